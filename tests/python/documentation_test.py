"""Runs docs/python.md, and the example that plots."""
import doctest
import importlib.util
import pathlib
import re
import subprocess
import sys
import tempfile
import unittest

docs = pathlib.Path(__file__).resolve().parents[2] / "docs"


class Documentation(unittest.TestCase):
    def test_gives_what_it_shows(self):
        blocks = re.findall(r"```python\n(.*?)```", (docs / "python.md").read_text(), re.S)
        self.assertEqual(len(blocks), 4)
        examples = doctest.DocTestParser().get_doctest("\n".join(blocks), {}, "python.md", None, None)
        self.assertEqual(doctest.DocTestRunner().run(examples).failed, 0)

    @unittest.skipUnless(importlib.util.find_spec("matplotlib"), "python3-matplotlib is missing")
    def test_the_picture(self):
        with tempfile.TemporaryDirectory() as folder:
            file = pathlib.Path(folder, "marginal.svg")
            subprocess.run([sys.executable, docs / "python" / "marginal.py", file], check=True)
            self.assertGreater(file.read_text().count("<path"), 43)


if __name__ == "__main__":
    unittest.main()
