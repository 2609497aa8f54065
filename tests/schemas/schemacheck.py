#!/usr/bin/env python3
"""Holds the schema of definitions against the compiler. What the compiler accepts is valid; what the schema can
express is refused by both; what is beyond it is listed.

    schemacheck.py HALVORIN TEST_STATECHART PROJECT_FOLDER

The cases are mutations of base.json: "set" and "remove" name members by their path, "whole" takes its place. "raw"
is a number as it is spelt, which the compiler may read otherwise than Python does. The
definitions that the tests of the compiler go through are taken from the record of those tests."""

import copy
import json
import subprocess
import sys
import tempfile
import threading
import unittest
from pathlib import Path

try:
    from jsonschema import Draft7Validator
except ImportError:
    sys.exit("the Python that runs this has no jsonschema: scripts/install-dependencies installs it")

HALVORIN, TEST_STATECHART, PROJECT = sys.argv[1:4]
CASES = Path(__file__).resolve().parent
SCHEMA_PATH = Path(PROJECT, "resources/schemas/digital_device_state_chart_schema.json")
SCHEMA = json.loads(SCHEMA_PATH.read_text())
RULE_KEYS = {"type", "required", "enum", "const", "pattern", "minimum", "maximum", "minProperties", "not", "$ref",
             "items", "additionalProperties", "if", "else"}



def mutated(base, case):
    if "whole" in case:
        return case["whole"]
    definition = copy.deepcopy(base)
    for path in case.get("remove", []):
        *owners, key = path[1:].split("/")
        owner = definition
        for name in owners:
            owner = owner[name]
        del owner[key]
    for path, value in case.get("set", {}).items():
        *owners, key = path[1:].split("/")
        owner = definition
        for name in owners:
            owner = owner.setdefault(name, {})
        owner[key] = value
    return definition


def cases(file):
    """Name and definition of each case of a file."""
    base = json.loads((CASES / "base.json").read_text())
    return {name: mutated(base, case) for name, case in json.loads((CASES / file).read_text()).items()}


def texts(file):
    """Name and text of each case of a file of numbers as they are spelt."""
    base = json.loads((CASES / "base.json").read_text())
    found = {}
    for name, case in json.loads((CASES / file).read_text()).items():
        text = json.dumps(mutated(base, {"set": {path: "raw " + path for path in case["raw"]}}))
        for path, number in case["raw"].items():
            text = text.replace(json.dumps("raw " + path), number)
        found[name] = text
    return found


def compiler_errors(definitions):
    """What the compiler refuses, by name, each with the words of the first error. Definitions may be texts."""
    with tempfile.TemporaryDirectory() as folder:
        files = {}
        for number, (name, definition) in enumerate(definitions.items()):
            path = Path(folder, f"{number}.json")
            path.write_text(definition if isinstance(definition, str) else json.dumps(definition))
            files[str(path)] = name
        run = subprocess.run([HALVORIN, "check", "--json", *files], capture_output=True, text=True, check=False)
    if run.returncode not in (0, 1):
        sys.exit(f"halvorin check ended with {run.returncode}: {run.stderr}")
    errors = {}
    for line in run.stdout.splitlines():
        finding = json.loads(line)
        if finding["severity"] == "error":
            errors.setdefault(files[finding["file"]], finding["text"])
    return errors


def recorded_definitions():
    """What the compiler's tests gave to the compiler: outcome and definition by the test's name."""
    with tempfile.TemporaryDirectory() as folder:
        report = Path(folder, "report.json")
        subprocess.run([TEST_STATECHART, f"--gtest_output=json:{report}"], stdout=subprocess.DEVNULL, check=True)
        suites = json.loads(report.read_text())["testsuites"]
    device_half = {"outputs": {}, "outputDelay": "1n"}
    recorded = {}
    for test in (test for suite in suites for test in suite["testsuite"]):
        for outcome in ("accepted", "refused"):
            name = test["classname"] + ": " + test.get("value_param", test["name"])
            if f"{outcome}Chart" in test:  # compiled without looking at the device
                chart = json.loads(test[f"{outcome}Chart"])
                half = {key: chart[key] for key in ("states", "start") if key in chart}
                recorded[name] = (outcome, half | device_half)
            if f"{outcome}Definition" in test:
                recorded[name] = (outcome, json.loads(test[f"{outcome}Definition"]))
    return recorded


def nodes(schema, path="#"):
    """Every schema inside a schema, with its path, and whether a user meets it by name."""
    if isinstance(schema, list):
        for number, element in enumerate(schema):
            yield from nodes(element, f"{path}/{number}")
    if isinstance(schema, dict):
        for key, value in schema.items():
            named = key in ("properties", "definitions")
            for name, inner in value.items() if named else ():
                yield f"{path}/{key}/{name}", inner
            if key not in ("const", "enum", "default", "examples"):
                yield from nodes(value, f"{path}/{key}")


def rules(schema, path=()):
    """The path of every rule in a schema that decides what is valid. Words that only serve completion do not: they
    stand beside `true` or any text. What an "if" requires is required elsewhere too."""
    if isinstance(schema, list):
        for number, element in enumerate(schema):
            yield from rules(element, path + (number,))
    if not isinstance(schema, dict):
        return
    for key, value in schema.items():
        only_completes = key == "anyOf" and (True in value or {"type": "string"} in value and "enum" in value[0])
        if key not in ("const", "enum", "default", "examples", "required") and not only_completes:
            yield from rules(value, path + (key,))
    if path and path[-1] not in ("properties", "definitions"):
        for key in RULE_KEYS & schema.keys():
            if not (path[-1] == "if" and key == "required"):
                yield path + (key,)


def without(schema, path):
    changed = copy.deepcopy(schema)
    owner = changed
    for key in path[:-1]:
        owner = owner[key]
    del owner[path[-1]]
    return changed


def first_error(definition, validator=Draft7Validator(SCHEMA)):
    return next((f"{error.json_path}: {error.message}" for error in validator.iter_errors(definition)), None)


class Schema(unittest.TestCase):
    maxDiff = None

    def test_is_a_schema_itself(self):
        Draft7Validator.check_schema(SCHEMA)

    def test_has_the_name_that_definitions_ask_for(self):
        self.assertTrue(SCHEMA["$id"].endswith("/schemas/" + SCHEMA_PATH.name), SCHEMA["$id"])
        self.assertEqual(SCHEMA["properties"]["$schema"]["default"], SCHEMA["$id"])
        for path in Path(PROJECT, "examples").glob("*/*/definition.json"):
            self.assertEqual(json.loads(path.read_text())["$schema"], SCHEMA["$id"], str(path))

    def test_explains_every_property_and_every_kind(self):
        for path, node in nodes(SCHEMA):
            for key in ("title", "description"):
                self.assertTrue(node.get(key), f"{path} has no {key}")

    def test_takes_every_example(self):
        for path in sorted(Path(PROJECT, "examples").glob("charts/*/definition.json")):
            error = first_error(json.loads(path.read_text()))
            self.assertIsNone(error, f"{path}: {error}")

    def test_takes_the_definition_of_the_reference(self):
        page = Path(PROJECT, "docs/reference/definition.md").read_text()
        error = first_error(json.loads(page.split("```json\n")[1].split("```")[0]))
        self.assertIsNone(error, error)

    def test_takes_what_the_compiler_takes(self):
        accepted = cases("accepted.json")
        self.assertEqual(compiler_errors(accepted), {})
        for name, definition in accepted.items():
            error = first_error(definition)
            self.assertIsNone(error, f"{name}: {error}")

    def test_refuses_what_it_can_express_and_so_does_the_compiler(self):
        rejected = cases("rejected.json")
        errors = compiler_errors(rejected)
        for name, definition in rejected.items():
            self.assertIn(name, errors, f"{name}: the compiler takes it")
            self.assertIsNotNone(first_error(definition), f"{name}: the schema takes it")

    def test_leaves_to_the_compiler_what_is_beyond_it(self):
        beyond = cases("beyond.json")
        errors = compiler_errors(beyond)
        for name, definition in beyond.items():
            self.assertIn(name, errors, f"{name}: the compiler takes it")
            self.assertIsNone(first_error(definition), f"{name}: the schema refuses it, so it can express it")

    def test_refuses_numbers_that_only_the_compiler_reads_as_it_does(self):
        spelt = texts("read-otherwise.json")
        self.assertEqual(compiler_errors(spelt), {})
        for name, text in spelt.items():
            self.assertIsNotNone(first_error(json.loads(text)), f"{name}: the schema takes it")

    def test_has_no_rule_that_no_case_needs(self):
        accepted = cases("accepted.json").values()
        rejected = cases("rejected.json").values()
        for path in rules(SCHEMA):
            validator = Draft7Validator(without(SCHEMA, path))
            self.assertTrue(any(map(validator.is_valid, rejected)) or not all(map(validator.is_valid, accepted)),
                            f"without {'/'.join(map(str, path))} no case is judged otherwise")

    def test_agrees_with_the_tests_of_the_compiler(self):
        recorded = recorded_definitions()
        self.assertGreater(sum(outcome == "accepted" for outcome, _ in recorded.values()), 30)
        self.assertGreater(sum(outcome == "refused" for outcome, _ in recorded.values()), 80)
        taken = []
        for name, (outcome, definition) in recorded.items():
            error = first_error(definition)
            if outcome == "accepted":
                self.assertIsNone(error, f"{name}: {error}")
            elif error is None:
                taken.append(name)
        beyond = json.loads((CASES / "beyond-in-tests.json").read_text())
        self.assertEqual(sorted(taken), sorted(beyond))


def main():
    suite = unittest.defaultTestLoader.loadTestsFromTestCase(Schema)
    result = unittest.TextTestRunner().run(suite)
    STATUS.append(0 if result.wasSuccessful() else 1)


# The validator calls itself for each level of states, of which the compiler's tests nest hundreds.
STATUS = []
sys.setrecursionlimit(1_000_000)
threading.stack_size(1 << 29)
thread = threading.Thread(target=main)
thread.start()
thread.join()
sys.exit(STATUS[0] if STATUS else 1)
