// SPDX-License-Identifier: MIT
#include "variants.h"

#include <oleauto.h>

#include <memory>

#include "dispatch_objects.h"
#include "varnock/automation_error.h"
#include "varnock/collection.h"
#include "varnock/dictionary.h"
#include "varnock/record.h"
#include "wide_text.h"

namespace varnock::com {

namespace {

constexpr std::int32_t kTypeMismatch = 13;

[[noreturn]] void mismatch() {
  throw AutomationError::runtime(kTypeMismatch);
}

Variant fromObject(IDispatch* object) {
  if (object == nullptr) return Variant(std::shared_ptr<Object>());
  if (std::shared_ptr<Object> own = ownObjectOf(object)) return Variant(std::move(own));
  if (auto dictionary = readScriptingDictionary(object)) return Variant(std::move(dictionary));
  mismatch();
}

}  // namespace

Variant fromCom(const VARIANT& value) {
  const VARTYPE type = V_VT(&value);
  if (type == (VT_BYREF | VT_VARIANT)) return fromCom(*V_VARIANTREF(&value));
  const bool byRef = (type & VT_BYREF) != 0;
  switch (type & ~VT_BYREF) {
    case VT_EMPTY:
      return Variant();
    case VT_NULL:
      return Variant::null();
    case VT_I2:
      return Variant(static_cast<std::int16_t>(byRef ? *V_I2REF(&value) : V_I2(&value)));
    case VT_I4:
      return Variant(static_cast<std::int32_t>(byRef ? *V_I4REF(&value) : V_I4(&value)));
    case VT_UI1:
      return Variant(static_cast<std::int16_t>(byRef ? *V_UI1REF(&value) : V_UI1(&value)));
    case VT_R4:
      return Variant(static_cast<double>(byRef ? *V_R4REF(&value) : V_R4(&value)));
    case VT_R8:
      return Variant(byRef ? *V_R8REF(&value) : V_R8(&value));
    case VT_CY:
      return Variant(Currency{(byRef ? *V_CYREF(&value) : V_CY(&value)).int64});
    case VT_DATE:
      return Variant(Date{byRef ? *V_DATEREF(&value) : V_DATE(&value)});
    case VT_BSTR:
      return Variant(narrow(byRef ? *V_BSTRREF(&value) : V_BSTR(&value)));
    case VT_BOOL:
      return Variant((byRef ? *V_BOOLREF(&value) : V_BOOL(&value)) != VARIANT_FALSE);
    case VT_DISPATCH:
      return fromObject(byRef ? *V_DISPATCHREF(&value) : V_DISPATCH(&value));
    case VT_ERROR:
      // A left-out optional argument, as script engines pass it.
      return Variant();
    default: {
      // Other numbers (8-byte, unsigned, decimal) as doubles when they convert.
      VARIANT converted;
      VariantInit(&converted);
      if (FAILED(VariantChangeType(&converted, const_cast<VARIANT*>(&value), 0, VT_R8))) mismatch();
      return Variant(V_R8(&converted));
    }
  }
}

void toCom(const Variant& value, VARIANT* out) {
  VariantInit(out);
  switch (value.type()) {
    case Variant::Type::Empty:
      return;
    case Variant::Type::Null:
      V_VT(out) = VT_NULL;
      return;
    case Variant::Type::Integer:
      V_VT(out) = VT_I2;
      V_I2(out) = value.asInteger();
      return;
    case Variant::Type::Long:
      V_VT(out) = VT_I4;
      V_I4(out) = value.asLong();
      return;
    case Variant::Type::Double:
      V_VT(out) = VT_R8;
      V_R8(out) = value.asDouble();
      return;
    case Variant::Type::Currency:
      V_VT(out) = VT_CY;
      V_CY(out).int64 = value.asCurrency().tenThousandths;
      return;
    case Variant::Type::Date:
      V_VT(out) = VT_DATE;
      V_DATE(out) = value.asDate().serial;
      return;
    case Variant::Type::String:
      V_VT(out) = VT_BSTR;
      V_BSTR(out) = newBstr(value.asString());
      return;
    case Variant::Type::Boolean:
      V_VT(out) = VT_BOOL;
      V_BOOL(out) = value.asBoolean() ? VARIANT_TRUE : VARIANT_FALSE;
      return;
    case Variant::Type::Object:
      V_VT(out) = VT_DISPATCH;
      V_DISPATCH(out) = dispatchFor(value.asObject());
      return;
  }
}

void writeBack(const Variant& value, VARIANT& argument) {
  const VARTYPE type = V_VT(&argument);
  if ((type & VT_BYREF) == 0) return;
  if (type == (VT_BYREF | VT_VARIANT)) {
    VARIANT* target = V_VARIANTREF(&argument);
    VariantClear(target);
    toCom(value, target);
    return;
  }
  VARIANT fresh;
  toCom(value, &fresh);
  VARIANT converted;
  VariantInit(&converted);
  const HRESULT changed = VariantChangeType(&converted, &fresh, 0, type & ~VT_BYREF);
  VariantClear(&fresh);
  if (FAILED(changed)) mismatch();
  switch (type & ~VT_BYREF) {
    case VT_BSTR:
      SysFreeString(*V_BSTRREF(&argument));
      *V_BSTRREF(&argument) = V_BSTR(&converted);
      return;  // the string now belongs to the caller's variable
    case VT_I2:
      *V_I2REF(&argument) = V_I2(&converted);
      break;
    case VT_I4:
      *V_I4REF(&argument) = V_I4(&converted);
      break;
    case VT_R8:
      *V_R8REF(&argument) = V_R8(&converted);
      break;
    case VT_BOOL:
      *V_BOOLREF(&argument) = V_BOOL(&converted);
      break;
    case VT_DATE:
      *V_DATEREF(&argument) = V_DATE(&converted);
      break;
    case VT_CY:
      *V_CYREF(&argument) = V_CY(&converted);
      break;
    default:
      VariantClear(&converted);
      mismatch();
  }
  VariantClear(&converted);
}

}  // namespace varnock::com
