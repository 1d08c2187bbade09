// SPDX-License-Identifier: MIT
// A class's dual interface for callers bound early (compiled against the
// type library): a pointer whose table of functions is the interface's as
// the type library lays it out. The entries of IUnknown and IDispatch go to
// the object; every other entry packs its arguments into a call of the
// object's Invoke, so early and late callers reach the same member.
#pragma once

#include <windows.h>

#include <oaidl.h>

namespace varnock::com {

struct DualLayout;

struct DualInterface {
  const void* const* functions = nullptr;  // first, where callers look for it
  IDispatch* owner = nullptr;              // not counted: the owner holds this
  const DualLayout* layout = nullptr;
};

// Makes `face` answer the dual interface `id` on behalf of `owner`; false
// when the type library describes no such interface (or one whose argument
// types cannot be carried).
bool bindDualInterface(DualInterface& face, IDispatch* owner, REFIID id);

}  // namespace varnock::com
