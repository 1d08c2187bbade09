// SPDX-License-Identifier: MIT
// How the server knows its own dispatch objects when a script hands one
// back (a record in a collection, a parent): a private interface that gives
// the Varnock object behind it.
#pragma once

#include <windows.h>

#include <memory>

#include "varnock/collection.h"
#include "varnock/record.h"
#include "varnock/variant.h"

namespace varnock::com {

// {6E1B7A52-3C0D-4F7B-9A8E-2D5C4B1F0A37}
inline constexpr IID IID_IOwnObject = {
    0x6e1b7a52, 0x3c0d, 0x4f7b, {0x9a, 0x8e, 0x2d, 0x5c, 0x4b, 0x1f, 0x0a, 0x37}};

struct IOwnObject : public IUnknown {
  virtual std::shared_ptr<Object> object() = 0;
};

IDispatch* newRecordDispatch(std::shared_ptr<Record> record);
IDispatch* newCollectionDispatch(std::shared_ptr<Collection> collection);

}  // namespace varnock::com
