#!/usr/bin/env python3
"""Tests scripts/check-grammar: it takes a small sound grammar, and names what is wrong with each changed one.

    checkgrammartest.py CHECK_GRAMMAR GRAMMAR

The cases stand in refused.json: rules that are added to the sound grammar, and words that a finding must hold. The
grammar that ships must give every scope that the theme colours."""
import json
import pathlib
import subprocess
import sys
import tempfile

here = pathlib.Path(__file__).resolve().parent
SOUND = {"scopeName": "source.python", "patterns": [{"include": "#word"}],
         "repository": {"word": {"name": "keyword.control.python", "match": "if"}}}
# the scopes that the theme of the Python editor knows
THEME = ["string", "comment.line", "constant.numeric", "support.function", "entity.name.function", "storage.type",
         "keyword.control", "keyword.other", "punctuation.definition.arguments", "punctuation.definition.parameters",
         "punctuation.section.function"]


def check(program, folder, grammar):
    file = folder / "case.tmLanguage.json"
    file.write_text(grammar if isinstance(grammar, str) else json.dumps(grammar), encoding="utf-8")
    done = subprocess.run([program, str(file)], capture_output=True, text=True)
    return done.returncode, done.stdout + done.stderr


def names_in(value):
    if isinstance(value, dict):
        for key, part in value.items():
            if key in ("name", "contentName") and isinstance(part, str):
                yield part
            yield from names_in(part)
    elif isinstance(value, list):
        for part in value:
            yield from names_in(part)


def main():
    program, shipped = sys.argv[1:]
    failures = []
    with tempfile.TemporaryDirectory() as name:
        folder = pathlib.Path(name)
        code, text = check(program, folder, SOUND)
        if code != 0:
            failures.append(f"the sound grammar is refused: {text}")
        cases = json.loads((here / "refused.json").read_text(encoding="utf-8"))
        for case in cases:
            grammar = json.loads(json.dumps(SOUND))
            for rule, value in case.get("rules", {}).items():
                grammar["repository"][rule] = value
                if rule not in case.get("unreached", []):
                    grammar["patterns"].append({"include": "#" + rule})
            code, text = check(program, folder, case.get("text", grammar))
            if code == 0 or case["finding"] not in text:
                failures.append(f"expected {case['finding']!r}, got exit {code}: {text.strip()}")
    given = set(names_in(json.loads(pathlib.Path(shipped).read_text(encoding="utf-8"))["repository"]))
    for scope in THEME:
        if not any((name + ".").startswith(scope + ".") for name in given):
            failures.append(f"no rule of the grammar gives {scope}")
    print("\n".join(failures) if failures else f"{len(cases)} cases, {len(THEME)} scopes of the theme")
    return 1 if failures else 0


sys.exit(main())
