"""The stub declares the names of the package for type checkers."""
import ast
import inspect
import pathlib
import unittest

import tallyfin99


class Stub(unittest.TestCase):
    def setUp(self):
        tree = ast.parse(pathlib.Path(tallyfin99.__file__).with_suffix(".pyi").read_text())
        self.classes = {node.name: node for node in tree.body if isinstance(node, ast.ClassDef)}
        self.functions = {node.name: node for node in tree.body if isinstance(node, ast.FunctionDef)}

    def fields(self, name):
        return [node.target.id for node in self.classes[name].body if isinstance(node, ast.AnnAssign)]

    def test_columns_and_results(self):
        self.assertEqual(self.fields("_Columns"), list(tallyfin99.columns))
        self.assertEqual(self.fields("Paycheck"), [*tallyfin99.results, "problem"])

    def test_arguments(self):
        self.assertEqual(set(self.functions), {name for name in tallyfin99.__all__ if inspect.isfunction(getattr(tallyfin99, name))})
        for name, node in self.functions.items():
            parameters = inspect.signature(getattr(tallyfin99, name)).parameters.values()
            by_kind = {kind: [each.name for each in parameters if each.kind == kind] for kind in inspect._ParameterKind}
            arguments = node.args
            self.assertEqual([each.arg for each in arguments.posonlyargs], by_kind[inspect.Parameter.POSITIONAL_ONLY])
            self.assertEqual([each.arg for each in arguments.kwonlyargs], by_kind[inspect.Parameter.KEYWORD_ONLY])
            self.assertEqual([arguments.kwarg.arg] if arguments.kwarg else [], by_kind[inspect.Parameter.VAR_KEYWORD])


if __name__ == "__main__":
    unittest.main()
