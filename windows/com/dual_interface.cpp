// SPDX-License-Identifier: MIT
// The entries of a dual interface past IDispatch's are small stubs: each
// loads its place in the table and jumps to one routine that saves the
// argument registers next to the arguments on the stack, so that one
// function reads every call's arguments as a row of 8-byte words and the
// type library says what each word is.
// The Windows headers that the others need first.
#include <windows.h>

#include <oleauto.h>

#include <cstdint>
#include <cstring>
#include <iterator>
#include <memory>
#include <mutex>
#include <utility>
#include <vector>

#include "dispatch_objects.h"
#include "dual_interface.h"

// x64 calling convention: the first four words arrive in rcx, rdx, r8 and r9
// (floating-point ones in xmm0-xmm3), with room reserved for them just above
// the return address, where the fifth and later words already are. Structures
// larger than a word (a VARIANT passed by value) arrive as a pointer.
// The common routine stores the four registers in that room, xmm1-xmm3 in
// its own frame, and calls varnockDualCall(place, words, floats).
asm(R"(
    .text
    .globl varnock_dual_stubs
    .p2align 4
varnock_dual_stubs:
    .set varnock_dual_place, 0
    .rept 512
    movl $varnock_dual_place, %eax
    jmp varnock_dual_common
    .p2align 4, 0xcc
    .set varnock_dual_place, varnock_dual_place + 1
    .endr
varnock_dual_common:
    movq %rcx, 8(%rsp)
    movq %rdx, 16(%rsp)
    movq %r8, 24(%rsp)
    movq %r9, 32(%rsp)
    subq $72, %rsp
    movsd %xmm1, 32(%rsp)
    movsd %xmm2, 40(%rsp)
    movsd %xmm3, 48(%rsp)
    movl %eax, %ecx
    leaq 80(%rsp), %rdx
    leaq 32(%rsp), %r8
    call varnockDualCall
    addq $72, %rsp
    ret
)");

extern "C" void varnock_dual_stubs();

namespace varnock::com {

namespace {

constexpr std::size_t kStubs = 512;
constexpr std::size_t kStubSize = 16;
// IUnknown's three entries and IDispatch's four come first.
constexpr std::size_t kDispatchEntries = 7;

// An argument's type: one of the automation types, by value or by
// reference; an interface pointer is VT_DISPATCH with the interface.
struct ArgumentType {
  VARTYPE type = VT_EMPTY;
  IID identifier = IID_NULL;  // of an interface pointer
};

struct Entry {
  bool described = false;
  DISPID member = DISPID_UNKNOWN;
  WORD flags = DISPATCH_METHOD;
  std::vector<ArgumentType> inputs;
  bool returns = false;
  ArgumentType result;
};

}  // namespace

struct DualLayout {
  std::vector<const void*> functions;
  std::vector<Entry> entries;  // by place in the table
};

namespace {

DualInterface* faceOf(void* self) {
  return static_cast<DualInterface*>(self);
}

HRESULT STDMETHODCALLTYPE faceQueryInterface(void* self, REFIID riid, void** out) {
  return faceOf(self)->owner->QueryInterface(riid, out);
}
ULONG STDMETHODCALLTYPE faceAddRef(void* self) {
  return faceOf(self)->owner->AddRef();
}
ULONG STDMETHODCALLTYPE faceRelease(void* self) {
  return faceOf(self)->owner->Release();
}
HRESULT STDMETHODCALLTYPE faceGetTypeInfoCount(void* self, UINT* count) {
  return faceOf(self)->owner->GetTypeInfoCount(count);
}
HRESULT STDMETHODCALLTYPE faceGetTypeInfo(void* self, UINT index, LCID locale, ITypeInfo** info) {
  return faceOf(self)->owner->GetTypeInfo(index, locale, info);
}
HRESULT STDMETHODCALLTYPE faceGetIDsOfNames(void* self, REFIID riid, LPOLESTR* names, UINT count,
                                            LCID locale, DISPID* ids) {
  return faceOf(self)->owner->GetIDsOfNames(riid, names, count, locale, ids);
}
HRESULT STDMETHODCALLTYPE faceInvoke(void* self, DISPID member, REFIID riid, LCID locale,
                                     WORD flags, DISPPARAMS* parameters, VARIANT* result,
                                     EXCEPINFO* exception, UINT* argumentError) {
  return faceOf(self)->owner->Invoke(member, riid, locale, flags, parameters, result, exception,
                                     argumentError);
}

bool carried(VARTYPE type) {
  switch (type) {
    case VT_BSTR:
    case VT_VARIANT:
    case VT_BOOL:
    case VT_I2:
    case VT_I4:
    case VT_R8:
    case VT_DATE:
    case VT_DISPATCH:
      return true;
    default:
      return false;
  }
}

// What `description` declares, or false when it is nothing a call can carry.
bool argumentType(ITypeInfo* info, const TYPEDESC& description, ArgumentType& out) {
  int pointers = 0;
  const TYPEDESC* type = &description;
  while (type->vt == VT_PTR) {
    ++pointers;
    type = type->lptdesc;
  }
  VARTYPE base = type->vt;
  if (base == VT_USERDEFINED) {
    // One of the library's own interfaces: a pointer to it is a dispatch
    // pointer that callers expect as that interface.
    ITypeInfo* referenced = nullptr;
    if (FAILED(info->GetRefTypeInfo(type->hreftype, &referenced))) return false;
    TYPEATTR* attributes = nullptr;
    const bool known = SUCCEEDED(referenced->GetTypeAttr(&attributes));
    if (known) {
      out.identifier = attributes->guid;
      referenced->ReleaseTypeAttr(attributes);
    }
    referenced->Release();
    if (!known || pointers == 0) return false;
    base = VT_DISPATCH;
    --pointers;
  }
  if (pointers > 1 || !carried(base)) return false;
  out.type = static_cast<VARTYPE>(base | (pointers == 1 ? VT_BYREF : 0));
  return true;
}

WORD flagsOf(INVOKEKIND kind) {
  switch (kind) {
    case INVOKE_PROPERTYGET:
      return DISPATCH_PROPERTYGET;
    case INVOKE_PROPERTYPUT:
      return DISPATCH_PROPERTYPUT;
    case INVOKE_PROPERTYPUTREF:
      return DISPATCH_PROPERTYPUTREF;
    default:
      return DISPATCH_METHOD;
  }
}

// The entry for one function of the interface's table.
bool describe(ITypeInfo* info, const FUNCDESC& function, Entry& entry) {
  entry.described = true;
  entry.member = function.memid;
  entry.flags = flagsOf(function.invkind);
  for (SHORT i = 0; i < function.cParams; ++i) {
    const ELEMDESC& parameter = function.lprgelemdescParam[i];
    ArgumentType type;
    if (!argumentType(info, parameter.tdesc, type)) return false;
    if (parameter.paramdesc.wParamFlags & PARAMFLAG_FRETVAL) {
      if (i + 1 != function.cParams || (type.type & VT_BYREF) == 0) return false;
      entry.returns = true;
      entry.result = type;
    } else {
      entry.inputs.push_back(type);
    }
  }
  return true;
}

// The vtable part of dual interface `id`, as the type library lays it out.
std::unique_ptr<DualLayout> layoutOf(REFIID id) {
  ITypeLib* library = typeLibrary();
  ITypeInfo* dispatch = nullptr;
  if (library == nullptr || FAILED(library->GetTypeInfoOfGuid(id, &dispatch))) return nullptr;
  // A dual interface's dispatch description refers to its table's as -1.
  HREFTYPE reference = 0;
  ITypeInfo* table = nullptr;
  if (SUCCEEDED(dispatch->GetRefTypeOfImplType(static_cast<UINT>(-1), &reference)))
    dispatch->GetRefTypeInfo(reference, &table);
  dispatch->Release();
  if (table == nullptr) return nullptr;
  auto layout = std::make_unique<DualLayout>();
  layout->functions = {reinterpret_cast<const void*>(&faceQueryInterface),
                       reinterpret_cast<const void*>(&faceAddRef),
                       reinterpret_cast<const void*>(&faceRelease),
                       reinterpret_cast<const void*>(&faceGetTypeInfoCount),
                       reinterpret_cast<const void*>(&faceGetTypeInfo),
                       reinterpret_cast<const void*>(&faceGetIDsOfNames),
                       reinterpret_cast<const void*>(&faceInvoke)};
  TYPEATTR* attributes = nullptr;
  bool complete = SUCCEEDED(table->GetTypeAttr(&attributes));
  const WORD functions = complete ? attributes->cFuncs : 0;
  if (complete) table->ReleaseTypeAttr(attributes);
  for (WORD i = 0; complete && i < functions; ++i) {
    FUNCDESC* function = nullptr;
    if (FAILED(table->GetFuncDesc(i, &function))) {
      complete = false;
      break;
    }
    const std::size_t place = static_cast<std::size_t>(function->oVft) / sizeof(void*);
    if (place < kDispatchEntries || place >= kStubs) {
      complete = false;
    } else {
      if (layout->entries.size() <= place) layout->entries.resize(place + 1);
      complete = describe(table, *function, layout->entries[place]);
    }
    table->ReleaseFuncDesc(function);
  }
  table->Release();
  if (!complete) return nullptr;
  const auto* stubs = reinterpret_cast<const unsigned char*>(&varnock_dual_stubs);
  for (std::size_t place = kDispatchEntries; place < layout->entries.size(); ++place)
    layout->functions.push_back(stubs + place * kStubSize);
  return layout;
}

const DualLayout* cachedLayout(REFIID id) {
  static std::mutex guard;
  static std::vector<std::pair<IID, std::unique_ptr<DualLayout>>> layouts;
  const std::lock_guard<std::mutex> lock(guard);
  for (const auto& [known, layout] : layouts)
    if (IsEqualIID(known, id)) return layout.get();
  layouts.emplace_back(id, layoutOf(id));
  return layouts.back().second.get();
}

// One argument as the dispatch call takes it; `word` is the argument's
// word, `floating` its register copy when it came in one.
VARIANT argumentOf(const ArgumentType& type, std::uint64_t word, const double* floating) {
  VARIANT v;
  VariantInit(&v);
  void* pointer = reinterpret_cast<void*>(word);
  if ((type.type & VT_BYREF) != 0 && pointer == nullptr) {
    // An optional argument by reference that the caller left out.
    V_VT(&v) = VT_ERROR;
    V_ERROR(&v) = DISP_E_PARAMNOTFOUND;
    return v;
  }
  if (type.type == VT_VARIANT) return *static_cast<VARIANT*>(pointer);  // borrowed, not owned
  V_VT(&v) = type.type;
  if (type.type & VT_BYREF) {
    V_BYREF(&v) = pointer;
    return v;
  }
  switch (type.type) {
    case VT_BSTR:
      V_BSTR(&v) = static_cast<BSTR>(pointer);
      break;
    case VT_DISPATCH:
      V_DISPATCH(&v) = static_cast<IDispatch*>(pointer);
      break;
    case VT_BOOL:
      V_BOOL(&v) = static_cast<VARIANT_BOOL>(word & 0xFFFF);
      break;
    case VT_I2:
      V_I2(&v) = static_cast<SHORT>(word & 0xFFFF);
      break;
    case VT_I4:
      V_I4(&v) = static_cast<LONG>(word & 0xFFFFFFFF);
      break;
    default: {  // VT_R8, VT_DATE
      double value = 0;
      if (floating != nullptr) {
        value = *floating;
      } else {
        std::memcpy(&value, &word, sizeof value);
      }
      if (type.type == VT_DATE) {
        V_DATE(&v) = value;
      } else {
        V_R8(&v) = value;
      }
    }
  }
  return v;
}

// Moves `answer` where the caller's result pointer points, as its type.
HRESULT storeResult(VARIANT& answer, const ArgumentType& type, void* out) {
  if (out == nullptr) return E_POINTER;
  const VARTYPE base = type.type & ~VT_BYREF;
  if (base == VT_VARIANT) {
    *static_cast<VARIANT*>(out) = answer;
    VariantInit(&answer);
    return S_OK;
  }
  if (base == VT_DISPATCH) {
    auto** target = static_cast<IDispatch**>(out);
    *target = nullptr;
    if (V_VT(&answer) == VT_EMPTY) return S_OK;  // Nothing
    if (V_VT(&answer) != VT_DISPATCH) return DISP_E_TYPEMISMATCH;
    IDispatch* object = V_DISPATCH(&answer);
    if (object == nullptr) return S_OK;
    if (IsEqualIID(type.identifier, IID_NULL)) {
      object->AddRef();
      *target = object;
      return S_OK;
    }
    return object->QueryInterface(type.identifier, static_cast<void**>(out));
  }
  VARIANT converted;
  VariantInit(&converted);
  if (V_VT(&answer) == base) {
    converted = answer;  // already the caller's type: moved, not copied
    VariantInit(&answer);
  } else {
    const HRESULT changed = VariantChangeType(&converted, &answer, 0, base);
    if (FAILED(changed)) return changed;
  }
  switch (base) {
    case VT_BSTR:
      *static_cast<BSTR*>(out) = V_BSTR(&converted);
      return S_OK;  // the caller owns the string now
    case VT_BOOL:
      *static_cast<VARIANT_BOOL*>(out) = V_BOOL(&converted);
      break;
    case VT_I2:
      *static_cast<SHORT*>(out) = V_I2(&converted);
      break;
    case VT_I4:
      *static_cast<LONG*>(out) = V_I4(&converted);
      break;
    case VT_DATE:
      *static_cast<DATE*>(out) = V_DATE(&converted);
      break;
    default:
      *static_cast<double*>(out) = V_R8(&converted);
  }
  VariantClear(&converted);
  return S_OK;
}

}  // namespace

bool bindDualInterface(DualInterface& face, IDispatch* owner, REFIID id) {
  const DualLayout* layout = cachedLayout(id);
  if (layout == nullptr) return false;
  face.layout = layout;
  face.owner = owner;
  face.functions = layout->functions.data();
  return true;
}

}  // namespace varnock::com

// Where every stub goes: `place` in the table, the call's words (`this`
// first) and the copies of xmm1-xmm3.
extern "C" HRESULT varnockDualCall(unsigned place, const std::uint64_t* words,
                                   const double* floats) noexcept {
  using namespace varnock::com;
  const auto* face = reinterpret_cast<const DualInterface*>(words[0]);
  if (place >= face->layout->entries.size() || !face->layout->entries[place].described)
    return E_NOTIMPL;
  const Entry& entry = face->layout->entries[place];
  const std::size_t count = entry.inputs.size();
  try {
    // Invoke takes the arguments last first. A call has a few; room for
    // more is made only when needed.
    VARIANT few[8];
    std::vector<VARIANT> more(count > std::size(few) ? count : 0);
    VARIANT* arguments = more.empty() ? few : more.data();
    for (std::size_t i = 0; i < count; ++i) {
      const std::size_t word = i + 1;
      const bool inRegister = word <= 3;
      arguments[count - 1 - i] =
          argumentOf(entry.inputs[i], words[word], inRegister ? &floats[word - 1] : nullptr);
    }
    DISPID put = DISPID_PROPERTYPUT;
    const bool putting = (entry.flags & (DISPATCH_PROPERTYPUT | DISPATCH_PROPERTYPUTREF)) != 0;
    DISPPARAMS parameters{arguments, putting ? &put : nullptr, static_cast<UINT>(count),
                          putting ? 1u : 0u};
    VARIANT answer;
    VariantInit(&answer);
    EXCEPINFO exception{};
    UINT argumentError = 0;
    HRESULT hr =
        face->owner->Invoke(entry.member, IID_NULL, LOCALE_USER_DEFAULT, entry.flags, &parameters,
                            entry.returns ? &answer : nullptr, &exception, &argumentError);
    if (hr == DISP_E_EXCEPTION) {
      // The error object is already set; a bound caller reads the number
      // from the result.
      hr = FAILED(exception.scode) ? exception.scode : E_FAIL;
      SysFreeString(exception.bstrSource);
      SysFreeString(exception.bstrDescription);
      SysFreeString(exception.bstrHelpFile);
    }
    if (SUCCEEDED(hr) && entry.returns)
      hr = storeResult(answer, entry.result, reinterpret_cast<void*>(words[count + 1]));
    VariantClear(&answer);
    return hr;
  } catch (...) {
    return E_OUTOFMEMORY;
  }
}
