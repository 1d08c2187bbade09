# SPDX-License-Identifier: MIT
"""The type stubs, varnock.pyi, describe the module as it runs: its names,
every record class's properties and methods, their arguments and defaults."""

import ast
import inspect
import os
import unittest

from support import CLASSES, varnock

STUBS = os.path.join(os.path.dirname(__file__), "..", "..", "python", "varnock.pyi")


def stub_tree():
    with open(STUBS, encoding="utf-8") as f:
        return ast.parse(f.read(), STUBS)


def default_value(node):
    return ast.literal_eval(node)


class StubsTest(unittest.TestCase):
    @classmethod
    def setUpClass(cls):
        cls.tree = stub_tree()
        cls.classes = {n.name: n for n in cls.tree.body if isinstance(n, ast.ClassDef)}
        cls.functions = {n.name for n in cls.tree.body if isinstance(n, ast.FunctionDef)}
        cls.assigned = {
            t.id
            for n in cls.tree.body
            if isinstance(n, (ast.Assign, ast.AnnAssign))
            for t in (n.targets if isinstance(n, ast.Assign) else [n.target])
        }

    def test_every_public_name_of_the_module_is_described(self):
        described = set(self.classes) | self.functions | self.assigned
        for name in dir(varnock):
            if name.startswith("_") and name != "__version__":
                continue
            if name in ("DictionaryIterator", "CollectionIterator"):
                continue  # made only by iteration
            self.assertIn(name, described)
        for name in self.functions:
            self.assertTrue(callable(getattr(varnock, name)), name)

    def test_each_record_class_has_the_members_of_its_interface(self):
        for class_name in CLASSES:
            stub = self.classes[class_name]
            methods = {}
            properties = set()
            for node in stub.body:
                if not isinstance(node, ast.FunctionDef):
                    continue
                decorators = [ast.unparse(d) for d in node.decorator_list]
                if "property" in decorators:
                    properties.add(node.name)
                elif not decorators:
                    methods[node.name] = node
            record = varnock.CreateObject("Varnock." + class_name)
            for name, _, kind, arguments in varnock.members(class_name):
                if kind != "method":
                    self.assertIn(name, properties, class_name)
                    continue
                self.assertIn(name, methods, class_name)
                stub_arguments = methods[name].args
                names = [a.arg for a in stub_arguments.args][1:]  # after self
                self.assertEqual(names, arguments, name)
                defaults = [default_value(d) for d in stub_arguments.defaults]
                running = [
                    p.default
                    for p in inspect.signature(getattr(record, name)).parameters.values()
                    if p.default is not inspect.Parameter.empty
                ]
                self.assertEqual(defaults, running, name)
            described = {m[0] for m in varnock.members(class_name)}
            self.assertEqual(set(methods) | properties, described, class_name)

    def test_create_object_is_typed_by_progid(self):
        literals = set()
        for node in self.tree.body:
            if isinstance(node, ast.FunctionDef) and node.name == "CreateObject":
                annotation = ast.unparse(node.args.args[0].annotation)
                if annotation.startswith("Literal["):
                    literals.add(ast.literal_eval(node.args.args[0].annotation.slice))
                    self.assertEqual(ast.unparse(node.returns), literals and
                                     ast.literal_eval(node.args.args[0].annotation.slice)[8:])
        self.assertEqual(literals, {"Varnock." + c for c in CLASSES})


if __name__ == "__main__":
    unittest.main()
