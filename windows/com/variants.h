// SPDX-License-Identifier: MIT
// Values between Varnock and COM. A record crosses as its dispatch object, a
// Collection as an enumerable collection object, a Dictionary as a
// Scripting.Dictionary; a Scripting.Dictionary coming in is read into a
// Dictionary. What has no Varnock value raises type mismatch.
#pragma once

#include <windows.h>

#include <oaidl.h>

#include "varnock/variant.h"

namespace varnock::com {

// The value a VARIANT holds, through one level of reference.
Variant fromCom(const VARIANT& value);

// A VARIANT holding `value`; the caller owns it (VariantClear).
void toCom(const Variant& value, VARIANT* out);

// Puts `value` where a by-reference argument points, as the caller's type
// (VT_BYREF|VT_VARIANT takes any value; a typed reference is converted to
// its type). Not by reference: nothing to do.
void writeBack(const Variant& value, VARIANT& argument);

}  // namespace varnock::com
