// SPDX-License-Identifier: MIT
#include "mapping_container.h"

#include <utility>
#include <vector>

#include "errors.h"
#include "values.h"

namespace varnock::python {

namespace {

// Runs a call into the mapping. Its ordinary exceptions become
// AutomationErrors for the component to trap; KeyboardInterrupt and
// SystemExit stay what they are and end the whole call.
template <class F>
auto intoPython(F&& f) {
  try {
    return f();
  } catch (py::error_already_set& e) {
    if (!e.matches(PyExc_Exception)) throw;
    throw automationErrorFrom(e);
  }
}

class MappingContainer final : public KeyedContainer {
 public:
  explicit MappingContainer(py::handle mapping)
      : mapping_(py::reinterpret_borrow<py::object>(mapping)) {}

  MappingContainer(const MappingContainer&) = delete;
  MappingContainer& operator=(const MappingContainer&) = delete;

  ~MappingContainer() override {
    // The last reference may go wherever a Variant dies; Python references
    // are only ever dropped under the GIL, and not at all once the
    // interpreter is gone.
    if (PyGILState_Check() != 0) return;
    if (Py_IsInitialized() == 0) {
      mapping_.release();
      for (py::object& key : keys_)
        key.release();
      return;
    }
    const PyGILState_STATE state = PyGILState_Ensure();
    mapping_ = py::object();
    keys_.clear();
    PyGILState_Release(state);
  }

  std::string_view typeName() const override { return "Dictionary"; }

  std::vector<Variant> keyList() const override {
    return intoPython([&] {
      std::vector<py::object> keys;
      std::vector<Variant> values;
      for (const py::handle key : py::iter(mapping_.attr("keys")())) {
        keys.push_back(py::reinterpret_borrow<py::object>(key));
        values.push_back(toVariant(key));
      }
      keys_ = std::move(keys);
      keyValues_ = values;
      next_ = 0;
      return values;
    });
  }

  Variant itemOf(const Variant& key) const override {
    return intoPython([&] {
      // The key as the mapping gave it (a date key stays a date, not the
      // datetime that its Variant would become): the component asks for the
      // keys in the order it got them, so the next one is tried first.
      std::size_t position = keys_.size();
      if (next_ < keys_.size() && keyValues_[next_] == key) {
        position = next_;
      } else {
        for (std::size_t i = 0; i < keyValues_.size(); ++i) {
          if (keyValues_[i] == key) {
            position = i;
            break;
          }
        }
      }
      py::object lookUp;
      if (position < keys_.size()) {
        lookUp = keys_[position];
        next_ = position + 1;
      } else {
        lookUp = fromVariant(key);
      }
      const py::object item = mapping_[lookUp];
      return toVariant(item);
    });
  }

  py::handle mapping() const { return mapping_; }

 private:
  py::object mapping_;
  // The keys of the latest keyList(), as given and as converted.
  mutable std::vector<py::object> keys_;
  mutable std::vector<Variant> keyValues_;
  mutable std::size_t next_ = 0;
};

}  // namespace

bool isMapping(py::handle value) {
  if (PyDict_Check(value.ptr())) return true;
  static PyObject* const mappingClass =
      py::object(py::module_::import("collections.abc").attr("Mapping")).release().ptr();
  const int isInstance = PyObject_IsInstance(value.ptr(), mappingClass);
  if (isInstance < 0) throw py::error_already_set();
  if (isInstance == 1) return true;
  return PyObject_HasAttrString(value.ptr(), "keys") == 1 &&
         PyObject_HasAttrString(value.ptr(), "__getitem__") == 1;
}

std::shared_ptr<KeyedContainer> wrapMapping(py::handle mapping) {
  return std::make_shared<MappingContainer>(mapping);
}

py::handle mappingOf(const Object& object) {
  if (const auto* container = dynamic_cast<const MappingContainer*>(&object)) {
    return container->mapping();
  }
  return {};
}

}  // namespace varnock::python
