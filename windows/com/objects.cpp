// SPDX-License-Identifier: MIT
// Varnock objects as scripts hold them, and back: records and collections as
// this server's dispatch objects, dictionaries as Scripting.Dictionary.
// The Windows headers that the others need first.
#include <windows.h>

#include <oleauto.h>

#include <vector>

#include "dispatch_objects.h"
#include "own_object.h"
#include "variants.h"
#include "varnock/conversions.h"
#include "wide_text.h"

namespace varnock::com {

namespace {

constexpr std::int32_t kTypeMismatch = 13;
constexpr std::int32_t kCannotCreateObject = 429;

// Calls a member of someone else's dispatch object by name; `arguments` in
// the order a script writes them.
HRESULT callByName(IDispatch* object, const wchar_t* name, WORD flags,
                   std::vector<VARIANT> arguments, VARIANT* result) {
  DISPID id = DISPID_UNKNOWN;
  LPOLESTR names[] = {const_cast<LPOLESTR>(name)};
  HRESULT hr = object->GetIDsOfNames(IID_NULL, names, 1, LOCALE_USER_DEFAULT, &id);
  if (FAILED(hr)) return hr;
  std::vector<VARIANT> reversed(arguments.rbegin(), arguments.rend());
  DISPPARAMS parameters{reversed.data(), nullptr, static_cast<UINT>(reversed.size()), 0};
  if (result != nullptr) VariantInit(result);
  return object->Invoke(id, IID_NULL, LOCALE_USER_DEFAULT, flags, &parameters, result, nullptr,
                        nullptr);
}

// The elements of a one-dimensional array of variants (Keys, Items).
std::vector<Variant> elementsOf(const VARIANT& array) {
  std::vector<Variant> elements;
  if ((V_VT(&array) & VT_ARRAY) == 0) throw AutomationError::runtime(kTypeMismatch);
  SAFEARRAY* items = V_ARRAY(&array);
  LONG low = 0, high = -1;
  SafeArrayGetLBound(items, 1, &low);
  SafeArrayGetUBound(items, 1, &high);
  for (LONG i = low; i <= high; ++i) {
    VARIANT element;
    VariantInit(&element);
    if (SUCCEEDED(SafeArrayGetElement(items, &i, &element))) {
      elements.push_back(fromCom(element));
      VariantClear(&element);
    }
  }
  return elements;
}

IDispatch* newScriptingDictionary(const Dictionary& entries) {
  CLSID id;
  if (FAILED(CLSIDFromProgID(L"Scripting.Dictionary", &id))) {
    throw AutomationError::runtime(kCannotCreateObject);
  }
  IDispatch* dictionary = nullptr;
  if (FAILED(CoCreateInstance(id, nullptr, CLSCTX_INPROC_SERVER, IID_IDispatch,
                              reinterpret_cast<void**>(&dictionary)))) {
    throw AutomationError::runtime(kCannotCreateObject);
  }
  for (const auto& [key, item] : entries) {
    VARIANT k, v;
    toCom(Variant(key), &k);
    toCom(item, &v);
    callByName(dictionary, L"Add", DISPATCH_METHOD, {k, v}, nullptr);
    VariantClear(&k);
    VariantClear(&v);
  }
  return dictionary;
}

}  // namespace

IDispatch* dispatchFor(const std::shared_ptr<Object>& object) {
  if (!object) return nullptr;
  if (auto record = std::dynamic_pointer_cast<Record>(object)) return newRecordDispatch(record);
  if (auto collection = std::dynamic_pointer_cast<Collection>(object)) {
    return newCollectionDispatch(collection);
  }
  if (auto dictionary = std::dynamic_pointer_cast<Dictionary>(object)) {
    return newScriptingDictionary(*dictionary);
  }
  throw AutomationError::runtime(kTypeMismatch);
}

std::shared_ptr<Object> ownObjectOf(IDispatch* object) {
  IOwnObject* own = nullptr;
  if (FAILED(object->QueryInterface(IID_IOwnObject, reinterpret_cast<void**>(&own)))) {
    return nullptr;
  }
  std::shared_ptr<Object> found = own->object();
  own->Release();
  return found;
}

std::shared_ptr<Dictionary> readScriptingDictionary(IDispatch* object) {
  VARIANT keys, items;
  if (FAILED(callByName(object, L"Keys", DISPATCH_METHOD | DISPATCH_PROPERTYGET, {}, &keys))) {
    return nullptr;
  }
  if (FAILED(callByName(object, L"Items", DISPATCH_METHOD | DISPATCH_PROPERTYGET, {}, &items))) {
    VariantClear(&keys);
    return nullptr;
  }
  const std::vector<Variant> keyValues = elementsOf(keys);
  const std::vector<Variant> itemValues = elementsOf(items);
  VariantClear(&keys);
  VariantClear(&items);
  auto dictionary = std::make_shared<Dictionary>();
  for (std::size_t i = 0; i < keyValues.size() && i < itemValues.size(); ++i)
    dictionary->Add(toText(keyValues[i]), itemValues[i]);
  return dictionary;
}

}  // namespace varnock::com
