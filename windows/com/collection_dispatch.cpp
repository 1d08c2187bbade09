// SPDX-License-Identifier: MIT
// A Collection for scripts: Count, Item (its default member, from 1) and the
// enumerator that For Each (VBScript) and Enumerator (JScript) ask for.
// The Windows headers that the others need first.
#include <windows.h>

#include <oleauto.h>

#include "com_object.h"
#include "dispatch_objects.h"
#include "own_object.h"
#include "variants.h"
#include "varnock/conversions.h"
#include "wide_text.h"

namespace varnock::com {

namespace {

constexpr DISPID kCount = 1;

class ItemEnumerator final : public ComObject<IEnumVARIANT> {
 public:
  ItemEnumerator(std::shared_ptr<Collection> items, std::int32_t next)
      : items_(std::move(items)), next_(next) {}

  HRESULT STDMETHODCALLTYPE QueryInterface(REFIID riid, void** out) override {
    if (out == nullptr) return E_POINTER;
    *out = nullptr;
    if (riid != IID_IUnknown && riid != IID_IEnumVARIANT) return E_NOINTERFACE;
    *out = this;
    AddRef();
    return S_OK;
  }

  HRESULT STDMETHODCALLTYPE Next(ULONG wanted, VARIANT* out, ULONG* fetched) override {
    if (out == nullptr) return E_POINTER;
    ULONG given = 0;
    // Counted afresh at each step: the collection may have grown meanwhile.
    for (; given < wanted && next_ <= items_->Count(); ++given, ++next_)
      toCom(items_->Item(next_), &out[given]);
    if (fetched != nullptr) *fetched = given;
    return given == wanted ? S_OK : S_FALSE;
  }
  HRESULT STDMETHODCALLTYPE Skip(ULONG count) override {
    next_ += static_cast<std::int32_t>(count);
    return next_ <= items_->Count() + 1 ? S_OK : S_FALSE;
  }
  HRESULT STDMETHODCALLTYPE Reset() override {
    next_ = 1;
    return S_OK;
  }
  HRESULT STDMETHODCALLTYPE Clone(IEnumVARIANT** copy) override {
    if (copy == nullptr) return E_POINTER;
    *copy = new ItemEnumerator(items_, next_);
    return S_OK;
  }

 private:
  std::shared_ptr<Collection> items_;
  std::int32_t next_;
};

class CollectionDispatch final : public ComObject<IDispatch>, public IOwnObject {
 public:
  explicit CollectionDispatch(std::shared_ptr<Collection> items) : items_(std::move(items)) {}

  HRESULT STDMETHODCALLTYPE QueryInterface(REFIID riid, void** out) override {
    if (out == nullptr) return E_POINTER;
    *out = nullptr;
    if (riid == IID_IUnknown || riid == IID_IDispatch) {
      *out = static_cast<IDispatch*>(this);
    } else if (riid == IID_IOwnObject) {
      *out = static_cast<IOwnObject*>(this);
    } else {
      return E_NOINTERFACE;
    }
    AddRef();
    return S_OK;
  }
  ULONG STDMETHODCALLTYPE AddRef() override { return ComObject<IDispatch>::AddRef(); }
  ULONG STDMETHODCALLTYPE Release() override { return ComObject<IDispatch>::Release(); }

  std::shared_ptr<Object> object() override { return items_; }

  HRESULT STDMETHODCALLTYPE GetTypeInfoCount(UINT* count) override {
    if (count == nullptr) return E_POINTER;
    *count = 0;
    return S_OK;
  }
  HRESULT STDMETHODCALLTYPE GetTypeInfo(UINT, LCID, ITypeInfo** info) override {
    if (info != nullptr) *info = nullptr;
    return DISP_E_BADINDEX;
  }

  HRESULT STDMETHODCALLTYPE GetIDsOfNames(REFIID, LPOLESTR* names, UINT count, LCID,
                                          DISPID* ids) override {
    if (names == nullptr || ids == nullptr || count == 0) return E_POINTER;
    const std::string name = narrow(names[0], wcslen(names[0]));
    for (UINT i = 0; i < count; ++i)
      ids[i] = DISPID_UNKNOWN;
    if (equalsIgnoringCase(name, "Count")) {
      ids[0] = kCount;
    } else if (equalsIgnoringCase(name, "Item")) {
      ids[0] = DISPID_VALUE;
    } else if (equalsIgnoringCase(name, "_NewEnum")) {
      ids[0] = DISPID_NEWENUM;
    } else {
      return DISP_E_UNKNOWNNAME;
    }
    return count == 1 ? S_OK : DISP_E_UNKNOWNNAME;
  }

  HRESULT STDMETHODCALLTYPE Invoke(DISPID member, REFIID, LCID, WORD flags, DISPPARAMS* parameters,
                                   VARIANT* result, EXCEPINFO* exception, UINT*) override {
    const UINT count = parameters == nullptr ? 0 : parameters->cArgs;
    if (flags & (DISPATCH_PROPERTYPUT | DISPATCH_PROPERTYPUTREF)) return DISP_E_MEMBERNOTFOUND;
    try {
      switch (member) {
        case kCount:
          if (count != 0) return DISP_E_BADPARAMCOUNT;
          if (result != nullptr) toCom(Variant(items_->Count()), result);
          return S_OK;
        case DISPID_VALUE: {
          if (count != 1) return DISP_E_BADPARAMCOUNT;
          // Looked up even when the caller wants no result: a position out
          // of range raises all the same.
          const Variant& item = items_->Item(toLong(fromCom(parameters->rgvarg[0])));
          if (result != nullptr) toCom(item, result);
          return S_OK;
        }
        case DISPID_NEWENUM:
          // JScript's Enumerator asks by method call, VBScript's For Each by
          // property: both are answered.
          if (count != 0) return DISP_E_BADPARAMCOUNT;
          if (result != nullptr) {
            VariantInit(result);
            V_VT(result) = VT_UNKNOWN;
            V_UNKNOWN(result) = new ItemEnumerator(items_, 1);
          }
          return S_OK;
        default:
          return DISP_E_MEMBERNOTFOUND;
      }
    } catch (...) {
      return reportCaught(exception);
    }
  }

 private:
  std::shared_ptr<Collection> items_;
};

}  // namespace

IDispatch* newCollectionDispatch(std::shared_ptr<Collection> collection) {
  return new CollectionDispatch(std::move(collection));
}

}  // namespace varnock::com
