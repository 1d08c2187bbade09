// SPDX-License-Identifier: MIT
// The objects scripts hold: a record object's dispatch interface, answered
// through the object host; a Collection's, enumerable with For Each and
// Enumerator; and Scripting.Dictionary objects for GetDictionary and
// SetDictionary.
#pragma once

#include <windows.h>

#include <oaidl.h>

#include <memory>
#include <string>

#include "varnock/automation_error.h"
#include "varnock/dictionary.h"
#include "varnock/record.h"

namespace varnock::com {

// The dispatch object for a Varnock object (a new reference), or nullptr.
IDispatch* dispatchFor(const std::shared_ptr<Object>& object);

// The Varnock object behind one of this server's dispatch objects, or nullptr
// for anybody else's.
std::shared_ptr<Object> ownObjectOf(IDispatch* object);

// A Scripting.Dictionary's keys and items, or nullptr when `object` is not
// a dictionary.
std::shared_ptr<Dictionary> readScriptingDictionary(IDispatch* object);

// The HRESULT that reports `error` to a late-bound caller: the dispatch
// errors as themselves; any other through `exception` (number, description,
// source) and the thread's error object.
HRESULT reportError(const AutomationError& error, EXCEPINFO* exception);
// The same for the exception being handled, inside a catch block: nothing
// thrown in a call leaves the server.
HRESULT reportCaught(EXCEPINFO* exception) noexcept;

// Where the server's type library is: its own file.
ITypeLib* typeLibrary();

}  // namespace varnock::com
