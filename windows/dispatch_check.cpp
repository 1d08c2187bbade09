// SPDX-License-Identifier: MIT
// A compiled COM client of Varnock.dll, as programs (not scripts) call it:
// bound early to the classes' dual interfaces, through the header that widl
// writes from the type library's IDL; and through IDispatch with typed
// by-reference arguments (VT_BYREF|VT_BSTR), variant references, named
// arguments and the error object.
//   dispatch_check CONNECTION-STRING
// Varnock.dll must be registered; the register must hold no user. Prints
// each check and "N passed, M failed"; the exit status is 1 when one failed.
#include <windows.h>

#include <oleauto.h>

#include <cstdio>
#include <iostream>
#include <string>
#include <vector>

#include "varnock_interfaces.h"

namespace {

int passed = 0;
int failed = 0;

void check(bool ok, const std::string& what) {
  (ok ? passed : failed) += 1;
  std::cout << (ok ? "pass: " : "FAIL: ") << what << '\n';
}

std::wstring wide(const std::string& text) {
  return std::wstring(text.begin(), text.end());  // the checks' texts are ASCII
}

std::string narrow(BSTR text) {
  std::string out;
  for (UINT i = 0; text != nullptr && i < SysStringLen(text); ++i)
    out += static_cast<char>(text[i]);
  return out;
}

// The identifiers of a member and of the named arguments that follow it.
std::vector<DISPID> idsOf(IDispatch* object, const std::vector<std::wstring>& names) {
  std::vector<LPOLESTR> pointers;
  for (const std::wstring& n : names)
    pointers.push_back(const_cast<LPOLESTR>(n.c_str()));
  std::vector<DISPID> ids(names.size(), DISPID_UNKNOWN);
  object->GetIDsOfNames(IID_NULL, pointers.data(), static_cast<UINT>(names.size()),
                        LOCALE_USER_DEFAULT, ids.data());
  return ids;
}

// Calls `member` with `arguments` in the order a caller writes them; the
// named ones last, with their identifiers.
HRESULT call(IDispatch* object, DISPID member, WORD flags, std::vector<VARIANT> arguments,
             std::vector<DISPID> named, VARIANT* result, EXCEPINFO* exception = nullptr) {
  std::vector<VARIANT> reversed(arguments.rbegin(), arguments.rend());
  std::vector<DISPID> namedReversed(named.rbegin(), named.rend());
  DISPPARAMS parameters{reversed.data(), namedReversed.data(), static_cast<UINT>(reversed.size()),
                        static_cast<UINT>(named.size())};
  if (result != nullptr) VariantInit(result);
  EXCEPINFO ignored{};
  const HRESULT hr = object->Invoke(member, IID_NULL, LOCALE_USER_DEFAULT, flags, &parameters,
                                    result, exception != nullptr ? exception : &ignored, nullptr);
  if (exception == nullptr) {
    SysFreeString(ignored.bstrDescription);
    SysFreeString(ignored.bstrSource);
  }
  return hr;
}

VARIANT text(const std::string& value) {
  VARIANT v;
  VariantInit(&v);
  V_VT(&v) = VT_BSTR;
  V_BSTR(&v) = SysAllocString(wide(value).c_str());
  return v;
}

VARIANT boolean(bool value) {
  VARIANT v;
  VariantInit(&v);
  V_VT(&v) = VT_BOOL;
  V_BOOL(&v) = value ? VARIANT_TRUE : VARIANT_FALSE;
  return v;
}

void put(IDispatch* object, const std::wstring& property, VARIANT value) {
  call(object, idsOf(object, {property})[0], DISPATCH_PROPERTYPUT, {value}, {DISPID_PROPERTYPUT},
       nullptr);
  VariantClear(&value);
}

IDispatch* newUser(const std::string& dsn) {
  CLSID id;
  IDispatch* user = nullptr;
  if (FAILED(CLSIDFromProgID(L"Varnock.User", &id)) ||
      FAILED(CoCreateInstance(id, nullptr, CLSCTX_INPROC_SERVER, IID_IDispatch,
                              reinterpret_cast<void**>(&user)))) {
    return nullptr;
  }
  put(user, L"DSN", text(dsn));
  return user;
}

bool addUser(const std::string& dsn, const std::string& name) {
  IDispatch* user = newUser(dsn);
  for (const char* column : {"Firstname", "Lastname", "Password", "Email", "Country"})
    put(user, wide(column), text(name));
  put(user, L"Username", text(name));
  put(user, L"Authorized", boolean(true));
  VARIANT result;
  call(user, idsOf(user, {L"AddUser"})[0], DISPATCH_METHOD, {}, {}, &result);
  user->Release();
  return V_VT(&result) == VT_BOOL && V_BOOL(&result) == VARIANT_TRUE;
}

std::string hex(HRESULT hr) {
  char text[16];
  std::snprintf(text, sizeof text, "0x%08lX", static_cast<unsigned long>(hr));
  return text;
}

template <class Interface>
Interface* bound(IDispatch* object, REFIID id) {
  Interface* out = nullptr;
  if (object == nullptr || FAILED(object->QueryInterface(id, reinterpret_cast<void**>(&out))))
    return nullptr;
  return out;
}

std::string errorDescription() {
  IErrorInfo* info = nullptr;
  BSTR description = nullptr;
  if (GetErrorInfo(0, &info) == S_OK) {
    info->GetDescription(&description);
    info->Release();
  }
  const std::string out = narrow(description);
  SysFreeString(description);
  return out;
}

IDispatch* newObject(const wchar_t* progId, const std::string& dsn) {
  CLSID id;
  IDispatch* object = nullptr;
  if (FAILED(CLSIDFromProgID(progId, &id)) ||
      FAILED(CoCreateInstance(id, nullptr, CLSCTX_INPROC_SERVER, IID_IDispatch,
                              reinterpret_cast<void**>(&object)))) {
    return nullptr;
  }
  put(object, L"DSN", text(dsn));
  return object;
}

// Calls through the classes' own interfaces, as a program compiled against
// the type library makes them: every argument in its declared place and type.
void checkEarlyBinding(IDispatch* user, const std::string& dsn) {
  _User* early = bound<_User>(user, IID__User);
  check(early != nullptr, "QueryInterface for _User, the class's dual interface");
  if (early == nullptr) return;
  IUnknown* one = nullptr;
  IUnknown* other = nullptr;
  user->QueryInterface(IID_IUnknown, reinterpret_cast<void**>(&one));
  early->QueryInterface(IID_IUnknown, reinterpret_cast<void**>(&other));
  check(one != nullptr && one == other, "_User and IDispatch are one object");
  if (one != nullptr) one->Release();
  if (other != nullptr) other->Release();

  BSTR dsnRead = nullptr;
  HRESULT hr = early->get_DSN(&dsnRead);
  check(SUCCEEDED(hr) && narrow(dsnRead) == dsn, "get_DSN bound early");
  SysFreeString(dsnRead);
  BSTR table = nullptr;
  hr = early->GetTableName(&table);
  check(SUCCEEDED(hr) && narrow(table) == "User", "GetTableName bound early: " + narrow(table));
  SysFreeString(table);

  // A lookup with its order left out (a null reference is an argument not given).
  BSTR where = SysAllocString(L"Username = 'bob'");
  VARIANT_BOOL found = VARIANT_FALSE;
  hr = early->GetUser(&where, nullptr, &found);
  VARIANT name;
  VariantInit(&name);
  early->get_Username(&name);
  check(SUCCEEDED(hr) && found == VARIANT_TRUE && V_VT(&name) == VT_BSTR &&
            narrow(V_BSTR(&name)) == "bob",
        "GetUser bound early, one optional argument left out");
  VariantClear(&name);
  SysFreeString(where);

  // A property put and an update, seen by a count through another object.
  VARIANT last = text("Black");
  hr = early->put_Lastname(last);
  VariantClear(&last);
  VARIANT_BOOL updated = VARIANT_FALSE;
  const HRESULT updating = early->UpdateUser(&updated);
  _User* counter = bound<_User>(newUser(dsn), IID__User);
  BSTR blacks = SysAllocString(L"Lastname = 'Black'");
  LONG count = -1;
  if (counter != nullptr) counter->CountEveryUser(&blacks, &count);
  check(SUCCEEDED(hr) && SUCCEEDED(updating) && updated == VARIANT_TRUE && count == 1,
        "put_Lastname and UpdateUser bound early, counted by another object");
  SysFreeString(blacks);
  if (counter != nullptr) {
    counter->Release();  // the QueryInterface reference
    counter->Release();  // newUser's
  }

  // Words past the fourth travel on the stack: the page size and the result.
  BSTR order = SysAllocString(L"Username DESC");
  VARIANT offset;
  VariantInit(&offset);
  V_VT(&offset) = VT_ERROR;
  V_ERROR(&offset) = DISP_E_PARAMNOTFOUND;
  VARIANT size;
  VariantInit(&size);
  V_VT(&size) = VT_I4;
  V_I4(&size) = 1;
  IDispatch* page = nullptr;
  hr = early->GetEveryUser(nullptr, &order, &offset, &size, &page);
  VARIANT pageCount;
  VariantInit(&pageCount);
  VARIANT first;
  VariantInit(&first);
  if (page != nullptr) {
    call(page, idsOf(page, {L"Count"})[0], DISPATCH_PROPERTYGET, {}, {}, &pageCount);
    VARIANT index;
    VariantInit(&index);
    V_VT(&index) = VT_I4;
    V_I4(&index) = 1;
    VARIANT item;
    call(page, DISPID_VALUE, DISPATCH_METHOD | DISPATCH_PROPERTYGET, {index}, {}, &item);
    if (V_VT(&item) == VT_DISPATCH)
      call(V_DISPATCH(&item), idsOf(V_DISPATCH(&item), {L"Username"})[0], DISPATCH_PROPERTYGET, {},
           {}, &first);
    VariantClear(&item);
  }
  check(SUCCEEDED(hr) && V_VT(&pageCount) == VT_I4 && V_I4(&pageCount) == 1 &&
            V_VT(&first) == VT_BSTR && narrow(V_BSTR(&first)) == "bob",
        "GetEveryUser bound early, a page of one on the stack: " + hex(hr));
  VariantClear(&first);
  if (page != nullptr) page->Release();
  SysFreeString(order);

  // A refusal is no failure: the call succeeds and the message is kept.
  VARIANT null;
  VariantInit(&null);
  V_VT(&null) = VT_NULL;
  hr = early->put_Username(null);
  BSTR refusal = nullptr;
  early->GetLastErrorMessage(&refusal);
  check(hr == S_OK && narrow(refusal) == "Property UserName cannot be set to NULL",
        "put_Username(Null) bound early is refused: " + narrow(refusal));
  SysFreeString(refusal);

  // A raised error: a failing HRESULT with the number, the error object with
  // the text.
  BSTR wrong = SysAllocString(L"NoSuchColumn = 1");
  count = -1;
  hr = early->CountEveryUser(&wrong, &count);
  const std::string description = errorDescription();
  check(FAILED(hr) && hr != DISP_E_EXCEPTION &&
            description.find("no such column: NoSuchColumn") != std::string::npos,
        "CountEveryUser bound early raises " + hex(hr) + ": " + description);
  SysFreeString(wrong);

  // What one call costs, bound early and through IDispatch (a figure, not a check).
  LARGE_INTEGER frequency, started, ended;
  QueryPerformanceFrequency(&frequency);
  constexpr int kCalls = 20000;
  QueryPerformanceCounter(&started);
  for (int i = 0; i < kCalls; ++i) {
    BSTR answer = nullptr;
    early->GetTableName(&answer);
    SysFreeString(answer);
  }
  QueryPerformanceCounter(&ended);
  const double earlyNs = 1e9 * static_cast<double>(ended.QuadPart - started.QuadPart) /
                         static_cast<double>(frequency.QuadPart) / kCalls;
  const DISPID tableName = idsOf(user, {L"GetTableName"})[0];
  QueryPerformanceCounter(&started);
  for (int i = 0; i < kCalls; ++i) {
    VARIANT answer;
    call(user, tableName, DISPATCH_METHOD, {}, {}, &answer);
    VariantClear(&answer);
  }
  QueryPerformanceCounter(&ended);
  const double lateNs = 1e9 * static_cast<double>(ended.QuadPart - started.QuadPart) /
                        static_cast<double>(frequency.QuadPart) / kCalls;
  std::cout << "GetTableName bound early: " << static_cast<long>(earlyNs)
            << " ns; through IDispatch::Invoke: " << static_cast<long>(lateNs) << " ns\n";
  early->Release();

  // A relation whose result is one of the library's interfaces.
  IDispatch* group = newObject(L"Varnock.GroupCode", dsn);
  put(group, L"GroupCode", text("staff"));
  put(group, L"Group", text("Staff"));
  VARIANT added;
  call(group, idsOf(group, {L"AddGroupCode"})[0], DISPATCH_METHOD, {}, {}, &added);
  _GroupMember* member =
      bound<_GroupMember>(newObject(L"Varnock.GroupMember", dsn), IID__GroupMember);
  _User* parent = nullptr;
  VARIANT parentName;
  VariantInit(&parentName);
  if (member != nullptr) {
    VARIANT code = text("staff");
    VARIANT who = text("ann");
    VARIANT_BOOL memberAdded = VARIANT_FALSE;
    member->put_GroupCode(code);
    member->put_Username(who);
    member->AddGroupMember(&memberAdded);
    VariantClear(&code);
    VariantClear(&who);
    member->GetParentInUser(&parent);
  }
  if (parent != nullptr) parent->get_Username(&parentName);
  check(parent != nullptr && V_VT(&parentName) == VT_BSTR && narrow(V_BSTR(&parentName)) == "ann",
        "GetParentInUser bound early returns a _User");
  VariantClear(&parentName);
  if (parent != nullptr) parent->Release();
  if (member != nullptr) {
    member->Release();
    member->Release();
  }
  group->Release();
}

// Every class answers its dual interface, found in its type information,
// and a generic caller reaches GetTableName through it at the place the
// type library gives.
void checkEveryDualInterface(const std::string& dsn) {
  for (const char* name : {"Country", "ErrorLog", "GroupCode", "GroupMember", "LogFile", "Parm",
                           "State", "User", "Zone", "ZoneAddress", "ZonePool"}) {
    IDispatch* object = newObject(wide(std::string("Varnock.") + name).c_str(), dsn);
    ITypeInfo* dispatch = nullptr;
    ITypeInfo* table = nullptr;
    HREFTYPE reference = 0;
    if (object != nullptr && SUCCEEDED(object->GetTypeInfo(0, LOCALE_USER_DEFAULT, &dispatch)) &&
        SUCCEEDED(dispatch->GetRefTypeOfImplType(static_cast<UINT>(-1), &reference))) {
      dispatch->GetRefTypeInfo(reference, &table);
    }
    IUnknown* early = nullptr;
    std::string tableName;
    if (table != nullptr) {
      TYPEATTR* attributes = nullptr;
      table->GetTypeAttr(&attributes);
      object->QueryInterface(attributes->guid, reinterpret_cast<void**>(&early));
      table->ReleaseTypeAttr(attributes);
      LPOLESTR method[] = {const_cast<LPOLESTR>(L"GetTableName")};
      MEMBERID member = 0;
      FUNCDESC* function = nullptr;
      // The function's place: the description whose identifier is GetTableName's.
      if (early != nullptr && SUCCEEDED(table->GetIDsOfNames(method, 1, &member))) {
        for (UINT i = 0; SUCCEEDED(table->GetFuncDesc(i, &function)); ++i) {
          if (function->memid == member) break;
          table->ReleaseFuncDesc(function);
          function = nullptr;
        }
      }
      if (function != nullptr) {
        BSTR answer = nullptr;
        VARIANT out;
        VariantInit(&out);
        V_VT(&out) = VT_BYREF | VT_BSTR;
        V_BSTRREF(&out) = &answer;
        VARTYPE types[] = {VT_BYREF | VT_BSTR};
        VARIANT* values[] = {&out};
        VARIANT hr;
        VariantInit(&hr);
        if (SUCCEEDED(
                DispCallFunc(early, function->oVft, CC_STDCALL, VT_ERROR, 1, types, values, &hr)) &&
            V_ERROR(&hr) == S_OK) {
          tableName = narrow(answer);
        }
        SysFreeString(answer);
        table->ReleaseFuncDesc(function);
      }
      table->Release();
    }
    check(early != nullptr && tableName == name,
          std::string("the dual interface of ") + name + " answers GetTableName: " + tableName);
    if (early != nullptr) early->Release();
    if (dispatch != nullptr) dispatch->Release();
    if (object != nullptr) object->Release();
  }
}

}  // namespace

int main(int argc, char** argv) {
  if (argc != 2) {
    std::cerr << "usage: dispatch_check CONNECTION-STRING\n";
    return 2;
  }
  const std::string dsn = argv[1];
  CoInitialize(nullptr);
  IDispatch* user = newUser(dsn);
  check(user != nullptr, "CoCreateInstance of Varnock.User");
  if (user == nullptr) return 1;
  check(addUser(dsn, "ann") && addUser(dsn, "bob"), "two users added");

  // A typed reference: the reversed order comes back as a BSTR.
  const DISPID getLast = idsOf(user, {L"GetLastUser"})[0];
  BSTR order = SysAllocString(L"Username");
  VARIANT where = text("");
  VARIANT orderReference;
  VariantInit(&orderReference);
  V_VT(&orderReference) = VT_BYREF | VT_BSTR;
  V_BSTRREF(&orderReference) = &order;
  VARIANT result;
  HRESULT hr = call(user, getLast, DISPATCH_METHOD, {where, orderReference}, {}, &result);
  check(SUCCEEDED(hr) && V_BOOL(&result) == VARIANT_TRUE, "GetLastUser through IDispatch");
  check(narrow(order) == "Username DESC", "a typed BSTR reference written back: " + narrow(order));
  SysFreeString(order);
  VariantClear(&where);

  // A variant reference, passed by name.
  const std::vector<DISPID> ids = idsOf(user, {L"GetLastUser", L"strOrderClause"});
  VARIANT inner = text("Lastname");
  VARIANT variantReference;
  VariantInit(&variantReference);
  V_VT(&variantReference) = VT_BYREF | VT_VARIANT;
  V_VARIANTREF(&variantReference) = &inner;
  hr = call(user, ids[0], DISPATCH_METHOD, {variantReference}, {ids[1]}, &result);
  check(SUCCEEDED(hr) && V_VT(&inner) == VT_BSTR && narrow(V_BSTR(&inner)) == "Lastname DESC",
        "a named variant reference written back");
  VariantClear(&inner);

  // A named optional argument: at most one user.
  const std::vector<DISPID> every = idsOf(user, {L"GetEveryUser", L"lngNumRecords"});
  VARIANT one;
  VariantInit(&one);
  V_VT(&one) = VT_I4;
  V_I4(&one) = 1;
  hr = call(user, every[0], DISPATCH_METHOD, {one}, {every[1]}, &result);
  VARIANT count;
  if (SUCCEEDED(hr) && V_VT(&result) == VT_DISPATCH) {
    call(V_DISPATCH(&result), idsOf(V_DISPATCH(&result), {L"Count"})[0], DISPATCH_PROPERTYGET, {},
         {}, &count);
  }
  check(SUCCEEDED(hr) && V_VT(&count) == VT_I4 && V_I4(&count) == 1,
        "a named optional argument (lngNumRecords = 1)");
  VariantClear(&result);

  // A raised error: number, description and source in EXCEPINFO and in the
  // thread's error object.
  const DISPID countEvery = idsOf(user, {L"CountEveryUser"})[0];
  EXCEPINFO exception{};
  hr = call(user, countEvery, DISPATCH_METHOD, {text("NoSuchColumn = 1")}, {}, &result, &exception);
  check(hr == DISP_E_EXCEPTION && FAILED(exception.scode) &&
            SysStringLen(exception.bstrDescription) > 0,
        "CountEveryUser raises through EXCEPINFO: " + narrow(exception.bstrDescription));
  IErrorInfo* info = nullptr;
  BSTR source = nullptr;
  if (GetErrorInfo(0, &info) == S_OK) {
    info->GetSource(&source);
    info->Release();
  }
  check(source != nullptr && narrow(source) == narrow(exception.bstrSource),
        "the error object has the same source: " + narrow(source));
  SysFreeString(source);
  SysFreeString(exception.bstrDescription);
  SysFreeString(exception.bstrSource);
  ISupportErrorInfo* supports = nullptr;
  check(
      SUCCEEDED(user->QueryInterface(IID_ISupportErrorInfo, reinterpret_cast<void**>(&supports))) &&
          supports->InterfaceSupportsErrorInfo(IID_IDispatch) == S_OK,
      "ISupportErrorInfo answers for IDispatch");
  if (supports != nullptr) supports->Release();
  check(call(user, idsOf(user, {L"GetTableName"})[0], DISPATCH_METHOD, {text("extra")}, {},
             &result) == DISP_E_BADPARAMCOUNT,
        "too many arguments is DISP_E_BADPARAMCOUNT");
  LPOLESTR unknown[] = {const_cast<LPOLESTR>(L"NoSuchMember")};
  DISPID id = 0;
  check(user->GetIDsOfNames(IID_NULL, unknown, 1, LOCALE_USER_DEFAULT, &id) == DISP_E_UNKNOWNNAME &&
            id == DISPID_UNKNOWN,
        "an unknown name is DISP_E_UNKNOWNNAME");
  ITypeInfo* type = nullptr;
  check(SUCCEEDED(user->GetTypeInfo(0, LOCALE_USER_DEFAULT, &type)) && type != nullptr,
        "the type information of _User, from the embedded type library");
  if (type != nullptr) type->Release();

  checkEarlyBinding(user, dsn);
  checkEveryDualInterface(dsn);

  user->Release();
  CoUninitialize();
  std::cout << passed << " passed, " << failed << " failed\n";
  return failed == 0 ? 0 : 1;
}
