#!/usr/bin/python3
"""Prints every docstring of Python's standard library and of numpy, each as a JSON string on a line of its own: those
in the source, as they stand and as they are shown, and those of what is built in. Debian's python3-numpy has both."""
import ast
import contextlib
import importlib
import inspect
import json
import pathlib
import pkgutil
import sys
import sysconfig
import warnings

import numpy

DOCUMENTED = (ast.Module, ast.ClassDef, ast.FunctionDef, ast.AsyncFunctionDef)


def in_source(folder):
    for file in sorted(pathlib.Path(folder).rglob("*.py")):
        try:
            tree = ast.parse(file.read_bytes())
        except (SyntaxError, ValueError):  # what is there to be refused
            continue
        for node in ast.walk(tree):
            if isinstance(node, DOCUMENTED):
                yield ast.get_docstring(node, clean=False)
                yield ast.get_docstring(node)


def built_in(module):
    for thing in [module, *vars(module).values()]:
        yield inspect.getdoc(thing)
        if inspect.isclass(thing):
            for member in vars(thing).values():
                yield inspect.getdoc(member)


def modules():
    names = sorted(name for name in sys.builtin_module_names)
    names += [found.name for found in pkgutil.walk_packages(numpy.__path__, "numpy.")
              if not any(part in found.name for part in ("test", "setup", "distutils", "f2py", "__main__"))]
    for name in names:
        try:
            with contextlib.redirect_stdout(sys.stderr):  # some greet
                module = importlib.import_module(name)
        except Exception:  # a module that needs what is not there
            continue
        yield module


def main():
    warnings.simplefilter("ignore")
    seen = set()

    def show(docstrings):
        for text in docstrings:
            if isinstance(text, str) and text and text not in seen:
                seen.add(text)
                print(json.dumps(text))

    show(in_source(sysconfig.get_paths()["stdlib"]))
    show(in_source(numpy.__path__[0]))
    for module in modules():
        show(built_in(module))


main()
