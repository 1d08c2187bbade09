// SPDX-License-Identifier: MIT
#include "containers.h"

#include <memory>
#include <string>

#include "values.h"
#include "varnock/collection.h"
#include "varnock/conversions.h"
#include "varnock/dictionary.h"

namespace varnock::python {

namespace {

// Iteration goes by position and checks the length on every step, so a
// container that grows or is added to while it is iterated stays safe.
template <class Container>
struct Cursor {
  std::shared_ptr<Container> container;
  std::int32_t next = 0;

  bool done() const { return next >= container->Count(); }
};

py::str textObject(const std::string& text) {
  PyObject* object = newText(text);
  if (object == nullptr) throw py::error_already_set();
  return py::reinterpret_steal<py::str>(object);
}

std::string countText(std::int32_t count) {
  return std::to_string(count) + (count == 1 ? " item" : " items");
}

py::list keysOf(const Dictionary& d) {
  py::list keys;
  for (const auto& entry : d)
    keys.append(textObject(entry.first));
  return keys;
}

py::list itemsOf(const Dictionary& d) {
  py::list items;
  for (const auto& entry : d)
    items.append(fromVariant(entry.second));
  return items;
}

void defineDictionary(py::module_& m) {
  using KeyCursor = Cursor<Dictionary>;
  py::class_<KeyCursor>(m, "DictionaryIterator", py::is_final())
      .def("__iter__", [](py::object self) { return self; })
      .def("__next__", [](KeyCursor& c) {
        if (c.done()) throw py::stop_iteration();
        return textObject((c.container->begin() + c.next++)->first);
      });

  py::class_<Dictionary, std::shared_ptr<Dictionary>>(
      m, "Dictionary", py::is_final(),
      "An ordered dictionary of text keys to values, the kind that GetDictionary returns and "
      "SetDictionary takes. Keys keep their insertion order and compare exactly.")
      .def(py::init([] { return std::make_shared<Dictionary>(); }))
      .def(
          "Add",
          [](Dictionary& d, py::object key, py::object item) {
            d.Add(textOf(key), toVariant(item));
          },
          py::arg("key"), py::arg("item"), "Adds a new key; an existing key raises error 457.")
      .def(
          "Item",
          [](const Dictionary& d, py::object key) {
            return fromVariant(Variant(d.Item(textOf(key))));
          },
          py::arg("key"), "The item of a key; a missing key raises error 5.")
      .def("__getitem__", [](const Dictionary& d,
                             py::object key) { return fromVariant(Variant(d.Item(textOf(key)))); })
      .def("__setitem__", [](Dictionary& d, py::object key,
                             py::object item) { d.SetItem(textOf(key), toVariant(item)); })
      .def(
          "Exists", [](const Dictionary& d, py::object key) { return d.Exists(textOf(key)); },
          py::arg("key"))
      .def("__contains__",
           [](const Dictionary& d, py::object key) { return d.Exists(textOf(key)); })
      .def("Keys", keysOf, "The keys, in insertion order.")
      .def("Items", itemsOf, "The items, in the order of their keys.")
      // Python's mapping names too: dict(d) reads keys() and d[key].
      .def("keys", keysOf, "The keys, in insertion order.")
      .def("values", itemsOf, "The items, in the order of their keys.")
      .def(
          "items",
          [](const Dictionary& d) {
            py::list pairs;
            for (const auto& entry : d)
              pairs.append(py::make_tuple(textObject(entry.first), fromVariant(entry.second)));
            return pairs;
          },
          "(key, item) pairs, in insertion order.")
      .def(
          "get",
          [](const Dictionary& d, py::object key, py::object otherwise) {
            const std::string text = textOf(key);
            return d.Exists(text) ? fromVariant(Variant(d.Item(text))) : otherwise;
          },
          py::arg("key"), py::arg("default") = py::none(),
          "The item of a key, or default when the key is missing.")
      .def_property_readonly("Count", &Dictionary::Count)
      .def("__len__", &Dictionary::Count)
      .def("__iter__", [](const std::shared_ptr<Dictionary>& d) { return KeyCursor{d}; })
      .def("__repr__", [](const Dictionary& d) {
        return "<varnock.Dictionary with " + countText(d.Count()) + ">";
      });
}

void defineCollection(py::module_& m) {
  using ItemCursor = Cursor<Collection>;
  py::class_<ItemCursor>(m, "CollectionIterator", py::is_final())
      .def("__iter__", [](py::object self) { return self; })
      .def("__next__", [](ItemCursor& c) {
        if (c.done()) throw py::stop_iteration();
        return fromVariant(Variant(*(c.container->begin() + c.next++)));
      });

  py::class_<Collection, std::shared_ptr<Collection>>(
      m, "Collection", py::is_final(),
      "The ordered, keyless collection that the listing methods return.\n\n"
      "Item counts from 1, as scripts do: c.Item(1) is the first item and c.Item(c.Count) the "
      "last. Python indexing counts from 0: c[0] is c.Item(1), c[-1] the last item, and c[1:3] "
      "a list of the second and third. len(c) is c.Count; iteration goes from first to last.")
      .def(py::init([] { return std::make_shared<Collection>(); }))
      .def(
          "Add", [](Collection& c, py::object item) { c.Add(toVariant(item)); }, py::arg("item"))
      .def(
          "Item",
          [](const Collection& c, py::object index) {
            return fromVariant(Variant(c.Item(toLong(toVariant(index)))));
          },
          py::arg("index"), "The item at a position from 1 to Count; others raise error 9.")
      .def(
          "__getitem__",
          [](const Collection& c, std::int64_t index) {
            const std::int64_t count = c.Count();
            const std::int64_t position = index < 0 ? index + count : index;
            if (position < 0 || position >= count)
              throw py::index_error("Collection index out of range");
            return fromVariant(Variant(c.Item(static_cast<std::int32_t>(position + 1))));
          },
          py::arg("index"))
      .def("__getitem__",
           [](const Collection& c, const py::slice& positions) {
             std::size_t start = 0, stop = 0, step = 0, length = 0;
             if (!positions.compute(static_cast<std::size_t>(c.Count()), &start, &stop, &step,
                                    &length)) {
               throw py::error_already_set();
             }
             py::list items;
             for (std::size_t i = 0; i < length; ++i, start += step)
               items.append(fromVariant(Variant(c.Item(static_cast<std::int32_t>(start + 1)))));
             return items;
           })
      .def_property_readonly("Count", &Collection::Count)
      .def("__len__", &Collection::Count)
      .def("__iter__", [](const std::shared_ptr<Collection>& c) { return ItemCursor{c}; })
      .def("__repr__", [](const Collection& c) {
        return "<varnock.Collection with " + countText(c.Count()) + ">";
      });
}

}  // namespace

void defineContainers(py::module_& m) {
  defineDictionary(m);
  defineCollection(m);
}

}  // namespace varnock::python
