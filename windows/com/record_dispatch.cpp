// SPDX-License-Identifier: MIT
// A record object's dispatch interface. Names and calls go to the object
// host, as they do from Python and the tool: one implementation of every
// member, whichever client calls it.
// The Windows headers that the others need first.
#include <windows.h>

#include <oleauto.h>

#include <string>
#include <vector>

#include "com_object.h"
#include "dispatch_objects.h"
#include "dual_interface.h"
#include "own_object.h"
#include "variants.h"
#include "varnock/host.h"
#include "wide_text.h"

namespace varnock::com {

namespace {

// The identifier of a class's dual interface, for its type information.
IID interfaceOf(const Record& record) {
  IID id = IID_NULL;
  for (const ClassDescription& c : classes()) {
    if (c.name == record.typeName()) {
      const std::wstring text = wide(c.interfaceId);
      IIDFromString(text.c_str(), &id);
    }
  }
  return id;
}

class RecordDispatch final : public ComObject<IDispatch>,
                             public ISupportErrorInfo,
                             public IOwnObject {
 public:
  explicit RecordDispatch(std::shared_ptr<Record> record)
      : record_(std::move(record)), interface_(interfaceOf(*record_)) {}

  HRESULT STDMETHODCALLTYPE QueryInterface(REFIID riid, void** out) override {
    if (out == nullptr) return E_POINTER;
    *out = nullptr;
    if (riid == IID_IUnknown || riid == IID_IDispatch) {
      *out = static_cast<IDispatch*>(this);
    } else if (riid == IID_ISupportErrorInfo) {
      *out = static_cast<ISupportErrorInfo*>(this);
    } else if (riid == IID_IOwnObject) {
      *out = static_cast<IOwnObject*>(this);
    } else if (riid == interface_ &&
               (dual_.functions != nullptr ||
                bindDualInterface(dual_, static_cast<IDispatch*>(this), riid))) {
      // The class's own interface, for callers bound to the type library.
      *out = &dual_;
    } else {
      return E_NOINTERFACE;
    }
    AddRef();
    return S_OK;
  }
  ULONG STDMETHODCALLTYPE AddRef() override { return ComObject<IDispatch>::AddRef(); }
  ULONG STDMETHODCALLTYPE Release() override { return ComObject<IDispatch>::Release(); }

  HRESULT STDMETHODCALLTYPE InterfaceSupportsErrorInfo(REFIID riid) override {
    return riid == IID_IDispatch || riid == interface_ ? S_OK : S_FALSE;
  }

  std::shared_ptr<Object> object() override { return record_; }

  HRESULT STDMETHODCALLTYPE GetTypeInfoCount(UINT* count) override {
    if (count == nullptr) return E_POINTER;
    *count = 1;
    return S_OK;
  }

  HRESULT STDMETHODCALLTYPE GetTypeInfo(UINT index, LCID, ITypeInfo** info) override {
    if (info == nullptr) return E_POINTER;
    *info = nullptr;
    if (index != 0) return DISP_E_BADINDEX;
    ITypeLib* library = typeLibrary();
    if (library == nullptr) return TYPE_E_CANTLOADLIBRARY;
    return library->GetTypeInfoOfGuid(interface_, info);
  }

  HRESULT STDMETHODCALLTYPE GetIDsOfNames(REFIID, LPOLESTR* names, UINT count, LCID,
                                          DISPID* ids) override {
    if (names == nullptr || ids == nullptr) return E_POINTER;
    std::vector<std::string> texts;
    for (UINT i = 0; i < count; ++i)
      texts.push_back(narrow(names[i], names[i] == nullptr ? 0 : wcslen(names[i])));
    std::vector<std::string_view> views(texts.begin(), texts.end());
    try {
      const std::vector<std::int32_t> found = varnock::GetIDsOfNames(*record_, views);
      for (UINT i = 0; i < count; ++i)
        ids[i] = found[i];
      return S_OK;
    } catch (const AutomationError&) {
      // Which names are unknown: the member first, then each argument.
      for (UINT i = 0; i < count; ++i)
        ids[i] = DISPID_UNKNOWN;
      for (UINT known = count; known > 0; --known) {
        try {
          const std::vector<std::string_view> some(views.begin(), views.begin() + known);
          const std::vector<std::int32_t> found = varnock::GetIDsOfNames(*record_, some);
          for (UINT i = 0; i < known; ++i)
            ids[i] = found[i];
          break;
        } catch (const AutomationError&) {
        }
      }
      return DISP_E_UNKNOWNNAME;
    } catch (...) {
      return E_FAIL;
    }
  }

  HRESULT STDMETHODCALLTYPE Invoke(DISPID member, REFIID, LCID, WORD flags, DISPPARAMS* parameters,
                                   VARIANT* result, EXCEPINFO* exception,
                                   UINT* argumentError) override {
    try {
      const UINT count = parameters == nullptr ? 0 : parameters->cArgs;
      const UINT named = parameters == nullptr ? 0 : parameters->cNamedArgs;
      DispatchArguments arguments;
      // Arguments arrive last first; the named ones come first in the array.
      for (UINT i = 0; i < count; ++i) {
        const VARIANT& given = parameters->rgvarg[i];
        if (argumentError != nullptr) *argumentError = i;
        if (i < named) {
          arguments.named.emplace_back(parameters->rgdispidNamedArgs[i], fromCom(given));
        }
      }
      for (UINT i = count; i > named; --i) {
        if (argumentError != nullptr) *argumentError = i - 1;
        arguments.positional.push_back(fromCom(parameters->rgvarg[i - 1]));
      }
      std::uint16_t kind = kDispatchMethod;
      if (flags & (DISPATCH_PROPERTYPUT | DISPATCH_PROPERTYPUTREF)) {
        kind = kDispatchPropertyPut;
      } else if ((flags & DISPATCH_METHOD) == 0) {
        kind = kDispatchPropertyGet;
      }
      Variant answer;
      try {
        answer = varnock::Invoke(*record_, member, kind, arguments);
      } catch (const AutomationError& e) {
        // "x = object.Name" asks for a method or a property at once.
        if (e.number() != kMemberNotFound || kind != kDispatchMethod ||
            (flags & DISPATCH_PROPERTYGET) == 0) {
          throw;
        }
        answer = varnock::Invoke(*record_, member, kDispatchPropertyGet, arguments);
      }
      // What the call left in arguments passed by reference goes back.
      for (UINT i = 0; i < named; ++i)
        writeBack(arguments.named[i].second, parameters->rgvarg[i]);
      for (UINT i = 0; i < arguments.positional.size(); ++i)
        writeBack(arguments.positional[i], parameters->rgvarg[count - 1 - i]);
      if (result != nullptr) toCom(answer, result);
      return S_OK;
    } catch (...) {
      return reportCaught(exception);
    }
  }

 private:
  std::shared_ptr<Record> record_;
  const IID interface_;
  DualInterface dual_;
};

}  // namespace

IDispatch* newRecordDispatch(std::shared_ptr<Record> record) {
  return new RecordDispatch(std::move(record));
}

}  // namespace varnock::com
