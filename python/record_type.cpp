// SPDX-License-Identifier: MIT
// Written against the CPython API directly rather than through pybind11's
// class machinery: attribute access is the hot path of every script, and a
// type of our own gets it with one hash look-up and no exception on the way.
#include "record_type.h"

#include <cstddef>
#include <cstdint>
#include <deque>
#include <functional>
#include <new>
#include <string>
#include <string_view>
#include <unordered_map>
#include <utility>
#include <vector>

#include "errors.h"
#include "method_docs.h"
#include "record_locks.h"
#include "values.h"
#include "varnock/automation_error.h"
#include "varnock/host.h"

namespace varnock::python {

namespace {

struct TextHash {
  using is_transparent = void;
  std::size_t operator()(std::string_view text) const noexcept {
    return std::hash<std::string_view>{}(text);
  }
};

template <class T>
using TextMap = std::unordered_map<std::string, T, TextHash, std::equal_to<>>;

std::string lowerCase(std::string_view text) {
  std::string lower(text);
  for (char& c : lower) {
    if (c >= 'A' && c <= 'Z') c = static_cast<char>(c - 'A' + 'a');
  }
  return lower;
}

// A member or keyword name as UTF-8; one that has none (lone surrogates)
// names nothing.
std::string_view nameOf(PyObject* text) {
  Py_ssize_t size = 0;
  const char* data = PyUnicode_AsUTF8AndSize(text, &size);
  if (data == nullptr) {
    PyErr_Clear();
    throw AutomationError(kUnknownName, "Unknown name: not UTF-8 text",
                          AutomationError::kRuntimeSource);
  }
  return {data, static_cast<std::size_t>(size)};
}

// One name of a class's interface: a property (its getter and setter share
// the name and the identifier) or a method.
struct MemberInfo {
  std::string name;
  std::int32_t dispatchId = 0;
  bool property = false;
  bool reachesRegister = false;
  MemberDescription description;  // what help() and inspect show
  // Argument identifiers by keyword as spelt and in lower case, from
  // GetIDsOfNames.
  TextMap<std::int32_t> argumentIds;
};

// What one record class answers about its names, filled as names are used.
class ClassInfo {
 public:
  explicit ClassInfo(std::string_view className) : name_(className) {
    for (const MemberDescription& d : members(className)) {
      if (!names_.empty() && names_.back() == d.name) continue;  // the setter after the getter
      names_.push_back(d.name);
      members_.push_back(
          {d.name, d.dispatchId, d.kind != MemberKind::Method, d.reachesRegister, d, {}});
    }
  }

  const std::string& name() const { return name_; }
  const std::vector<std::string>& memberNames() const { return names_; }

  // The member of a name in any case; an unknown name raises kUnknownName.
  MemberInfo& find(const Record& record, std::string_view name) {
    if (auto found = byName_.find(name); found != byName_.end()) return *found->second;
    std::string lower = lowerCase(name);
    MemberInfo* member = nullptr;
    if (auto found = byName_.find(lower); found != byName_.end()) {
      member = found->second;
    } else {
      const std::int32_t id = GetIDsOfNames(record, {name})[0];
      for (MemberInfo& m : members_) {
        if (m.dispatchId == id) member = &m;
      }
      if (member == nullptr) {
        throw AutomationError(kUnknownName, "Unknown name: " + std::string(name),
                              AutomationError::kRuntimeSource);
      }
      byName_.emplace(std::move(lower), member);
    }
    remember(byName_, name, member);
    return *member;
  }

  // The identifier of a keyword argument of `member`; an unknown one raises
  // kUnknownName.
  std::int32_t argumentId(const Record& record, MemberInfo& member, std::string_view keyword) {
    TextMap<std::int32_t>& ids = member.argumentIds;
    if (auto found = ids.find(keyword); found != ids.end()) return found->second;
    std::string lower = lowerCase(keyword);
    std::int32_t id = 0;
    if (auto found = ids.find(lower); found != ids.end()) {
      id = found->second;
    } else {
      id = GetIDsOfNames(record, {member.name, keyword})[1];
      ids.emplace(std::move(lower), id);
    }
    remember(ids, keyword, id);
    return id;
  }

 private:
  // Spellings as written are kept too, so that the next look-up folds no
  // case; up to a bound, since a script could make up any number of them.
  template <class T>
  void remember(TextMap<T>& map, std::string_view spelling, T value) {
    if (map.size() < 4 * names_.size() + 64) map.emplace(std::string(spelling), value);
  }

  std::string name_;
  std::vector<std::string> names_;
  std::deque<MemberInfo> members_;  // stable addresses for byName_
  TextMap<MemberInfo*> byName_;
};

// One ClassInfo per class for the life of the process; it holds no Python
// objects, so it may outlive the interpreter. The caches are only touched
// with the GIL held, and nothing that fills them calls back into Python.
ClassInfo& classInfoOf(const Record& record) {
  static std::unordered_map<const void*, std::unique_ptr<ClassInfo>> classes;
  std::unique_ptr<ClassInfo>& info = classes[record.typeName().data()];
  if (!info) info = std::make_unique<ClassInfo>(record.typeName());
  return *info;
}

struct RecordObject {
  PyObject head;
  std::shared_ptr<Record> record;
  ClassInfo* info;
};

struct MethodObject {
  PyObject head;
  PyObject* owner;  // the RecordObject, a strong reference
  MemberInfo* member;
  vectorcallfunc vectorcall;
};

// Static: instances may outlive the module's attributes, never the types.
PyTypeObject recordTypeObject{};
PyTypeObject methodTypeObject{};

RecordObject& recordObject(PyObject* self) {
  return *reinterpret_cast<RecordObject*>(self);
}

// ---- record objects ----

void recordDealloc(PyObject* self) {
  recordObject(self).record.~shared_ptr();
  Py_TYPE(self)->tp_free(self);
}

PyObject* newMethod(PyObject* owner, MemberInfo& member);

PyObject* recordGetAttr(PyObject* self, PyObject* name) {
  if (!PyUnicode_Check(name)) return PyObject_GenericGetAttr(self, name);
  RecordObject& o = recordObject(self);
  try {
    MemberInfo* member = nullptr;
    try {
      const std::string_view text = nameOf(name);
      // Python's own names (__class__, __dir__, ...) are never members.
      if (text.starts_with("__")) return PyObject_GenericGetAttr(self, name);
      member = &o.info->find(*o.record, text);
    } catch (const AutomationError& e) {
      raiseUnknownAttribute(e);
      return nullptr;
    }
    if (!member->property) return newMethod(self, *member);
    DispatchArguments none;
    Variant value;
    {
      const RecordTurn turn(*o.record);
      value = Invoke(*o.record, member->dispatchId, kDispatchPropertyGet, none);
    }
    return fromVariant(value).release().ptr();
  } catch (...) {
    raiseCurrentException();
    return nullptr;
  }
}

int recordSetAttr(PyObject* self, PyObject* name, PyObject* value) {
  if (!PyUnicode_Check(name)) return PyObject_GenericSetAttr(self, name, value);
  RecordObject& o = recordObject(self);
  try {
    const std::string_view text = nameOf(name);
    if (value == nullptr) {
      throw AutomationError(kNotSupported,
                            "Object doesn't support this property or method: members of " +
                                o.info->name() + " cannot be deleted",
                            AutomationError::kRuntimeSource);
    }
    const MemberInfo& member = o.info->find(*o.record, text);
    // A holder given for the value is simply read: a property's value is
    // not passed by reference.
    const ByRef* holder = asByRef(value);
    DispatchArguments arguments;
    arguments.positional.push_back(
        toVariant(holder != nullptr ? py::handle(holder->value) : py::handle(value)));
    const RecordTurn turn(*o.record);
    Invoke(*o.record, member.dispatchId, kDispatchPropertyPut, arguments);
    return 0;
  } catch (...) {
    raiseCurrentException();
    return -1;
  }
}

PyObject* recordRepr(PyObject* self) {
  return PyUnicode_FromFormat("<varnock.%s object>", recordObject(self).info->name().c_str());
}

PyObject* recordDir(PyObject* self, PyObject*) {
  const std::vector<std::string>& names = recordObject(self).info->memberNames();
  PyObject* list = PyList_New(static_cast<Py_ssize_t>(names.size()));
  if (list == nullptr) return nullptr;
  for (std::size_t i = 0; i < names.size(); ++i) {
    PyObject* name =
        PyUnicode_FromStringAndSize(names[i].data(), static_cast<Py_ssize_t>(names[i].size()));
    if (name == nullptr) {
      Py_DECREF(list);
      return nullptr;
    }
    PyList_SET_ITEM(list, static_cast<Py_ssize_t>(i), name);
  }
  return list;
}

// Wrappers of one record are the same object to a script.
PyObject* recordCompare(PyObject* self, PyObject* other, int op) {
  if (Py_TYPE(other) != &recordTypeObject || (op != Py_EQ && op != Py_NE)) Py_RETURN_NOTIMPLEMENTED;
  const bool same = recordObject(self).record == recordObject(other).record;
  return PyBool_FromLong(same == (op == Py_EQ));
}

Py_hash_t recordHash(PyObject* self) {
  const auto address = reinterpret_cast<std::uintptr_t>(recordObject(self).record.get());
  auto hash = static_cast<Py_hash_t>(address >> 4);
  return hash == -1 ? -2 : hash;
}

PyMethodDef recordMethods[] = {
    {"__dir__", recordDir, METH_NOARGS, "The names of the object's members."},
    {nullptr, nullptr, 0, nullptr},
};

// ---- bound methods ----

// An argument that came in a ByRef holder: the holder, where the argument
// went, and the value it had, so only a changed value is written back (a
// by-value argument never changes, and an unchanged one keeps its Python
// object, a date staying a date).
struct Reference {
  py::object holder;
  bool named;
  std::size_t index;
  Variant given;
};

Variant passed(PyObject* value, bool named, std::size_t index, std::vector<Reference>& references) {
  const py::handle handle(value);
  if (ByRef* holder = asByRef(handle)) {
    Variant v = toVariant(holder->value);
    references.push_back({py::reinterpret_borrow<py::object>(handle), named, index, v});
    return v;
  }
  return toVariant(handle);
}

bool holdsObjects(const DispatchArguments& arguments) {
  for (const Variant& v : arguments.positional) {
    if (v.isObject()) return true;
  }
  for (const auto& [id, v] : arguments.named) {
    if (v.isObject()) return true;
  }
  return false;
}

PyObject* methodCall(PyObject* self, PyObject* const* args, std::size_t nargsf, PyObject* kwnames) {
  const auto& method = *reinterpret_cast<MethodObject*>(self);
  RecordObject& o = recordObject(method.owner);
  try {
    const Py_ssize_t count = PyVectorcall_NARGS(nargsf);
    const Py_ssize_t namedCount = kwnames != nullptr ? PyTuple_GET_SIZE(kwnames) : 0;
    DispatchArguments arguments;
    std::vector<Reference> references;
    arguments.positional.reserve(static_cast<std::size_t>(count));
    for (Py_ssize_t i = 0; i < count; ++i) {
      arguments.positional.push_back(
          passed(args[i], false, static_cast<std::size_t>(i), references));
    }
    arguments.named.reserve(static_cast<std::size_t>(namedCount));
    for (Py_ssize_t i = 0; i < namedCount; ++i) {
      const std::int32_t id =
          o.info->argumentId(*o.record, *method.member, nameOf(PyTuple_GET_ITEM(kwnames, i)));
      arguments.named.emplace_back(
          id, passed(args[count + i], true, static_cast<std::size_t>(i), references));
    }
    Variant result;
    const auto invoke = [&] {
      result = Invoke(*o.record, method.member->dispatchId, kDispatchMethod, arguments);
    };
    if (method.member->reachesRegister && !holdsObjects(arguments)) {
      runWithoutInterpreterLock(*o.record, invoke);
    } else {
      // A method that works on the object alone is over sooner than letting
      // go of the interpreter lock and taking it back. A dictionary or
      // collection passed in could be changed by another Python thread
      // while the call reads it, and a mapping is read by calling Python:
      // such calls keep the interpreter lock.
      const RecordTurn turn(*o.record);
      invoke();
    }
    for (Reference& r : references) {
      const Variant& now =
          r.named ? arguments.named[r.index].second : arguments.positional[r.index];
      if (!(now == r.given)) asByRef(r.holder)->value = fromVariant(now);
    }
    return fromVariant(result).release().ptr();
  } catch (...) {
    raiseCurrentException();
    return nullptr;
  }
}

PyObject* newMethod(PyObject* owner, MemberInfo& member) {
  auto* method = PyObject_New(MethodObject, &methodTypeObject);
  if (method == nullptr) return nullptr;
  Py_INCREF(owner);
  method->owner = owner;
  method->member = &member;
  method->vectorcall = methodCall;
  return reinterpret_cast<PyObject*>(method);
}

void methodDealloc(PyObject* self) {
  Py_DECREF(reinterpret_cast<MethodObject*>(self)->owner);
  Py_TYPE(self)->tp_free(self);
}

const MemberInfo& memberOf(PyObject* self) {
  return *reinterpret_cast<MethodObject*>(self)->member;
}

PyObject* methodDocGet(PyObject* self, void*) {
  try {
    return newText(methodDoc(memberOf(self).description));
  } catch (...) {
    raiseCurrentException();
    return nullptr;
  }
}

PyObject* methodSignatureGet(PyObject* self, void*) {
  try {
    return methodSignature(memberOf(self).description).release().ptr();
  } catch (...) {
    raiseCurrentException();
    return nullptr;
  }
}

PyObject* methodNameGet(PyObject* self, void*) {
  return newText(memberOf(self).name);
}

PyObject* methodQualifiedNameGet(PyObject* self, void*) {
  const auto& method = *reinterpret_cast<MethodObject*>(self);
  return newText(recordObject(method.owner).info->name() + "." + method.member->name);
}

PyGetSetDef methodAttributes[] = {
    {"__doc__", methodDocGet, nullptr, nullptr, nullptr},
    {"__signature__", methodSignatureGet, nullptr, nullptr, nullptr},
    {"__name__", methodNameGet, nullptr, nullptr, nullptr},
    {"__qualname__", methodQualifiedNameGet, nullptr, nullptr, nullptr},
    {nullptr, nullptr, nullptr, nullptr, nullptr}};

PyObject* methodRepr(PyObject* self) {
  const auto& method = *reinterpret_cast<MethodObject*>(self);
  return PyUnicode_FromFormat("<method %s of varnock.%s object>", method.member->name.c_str(),
                              recordObject(method.owner).info->name().c_str());
}

}  // namespace

void defineRecordType(py::module_& m) {
  // Both types are static, filled in here once. They have no tp_new:
  // records come only from CreateObject and the component's results, and
  // methods only from attribute look-ups.
  PyTypeObject& r = recordTypeObject;
  Py_SET_REFCNT(reinterpret_cast<PyObject*>(&r), 1);
  r.tp_name = "varnock.Record";
  r.tp_basicsize = sizeof(RecordObject);
  r.tp_flags = Py_TPFLAGS_DEFAULT;
  r.tp_doc =
      "A Varnock record object, made by varnock.CreateObject. Its properties are attributes "
      "and its methods take positional and keyword arguments; names match without regard to "
      "case.";
  r.tp_dealloc = recordDealloc;
  r.tp_getattro = recordGetAttr;
  r.tp_setattro = recordSetAttr;
  r.tp_repr = recordRepr;
  r.tp_richcompare = recordCompare;
  r.tp_hash = recordHash;
  r.tp_methods = recordMethods;
  if (PyType_Ready(&r) < 0) throw py::error_already_set();

  PyTypeObject& t = methodTypeObject;
  Py_SET_REFCNT(reinterpret_cast<PyObject*>(&t), 1);
  t.tp_name = "varnock.Method";
  t.tp_basicsize = sizeof(MethodObject);
  t.tp_flags = Py_TPFLAGS_DEFAULT | Py_TPFLAGS_HAVE_VECTORCALL;
  t.tp_doc = "A method of a Varnock record object, bound to that object.";
  t.tp_dealloc = methodDealloc;
  t.tp_vectorcall_offset = offsetof(MethodObject, vectorcall);
  t.tp_call = PyVectorcall_Call;
  t.tp_repr = methodRepr;
  t.tp_getset = methodAttributes;
  if (PyType_Ready(&t) < 0) throw py::error_already_set();

  m.attr("Record") = py::handle(reinterpret_cast<PyObject*>(&r));
}

py::object wrapRecord(std::shared_ptr<Record> record) {
  ClassInfo& info = classInfoOf(*record);
  auto* object = PyObject_New(RecordObject, &recordTypeObject);
  if (object == nullptr) throw py::error_already_set();
  new (&object->record) std::shared_ptr<Record>(std::move(record));
  object->info = &info;
  return py::reinterpret_steal<py::object>(reinterpret_cast<PyObject*>(object));
}

std::shared_ptr<Record> recordOf(py::handle value) {
  if (Py_TYPE(value.ptr()) != &recordTypeObject) return nullptr;
  return recordObject(value.ptr()).record;
}

}  // namespace varnock::python
