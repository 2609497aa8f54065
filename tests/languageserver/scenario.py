"""What a scenario may hold. It is checked as a whole before anything is played: a slip of the pen in a test must not
pass for a server that does nothing."""

import json
import signal

ANY = object
NUMBER = (int, float)
WRITE = {"cut": (int, list), "delay": NUMBER, "first": int, "over": int}
FRAME = {**WRITE, "header": str, "repeat": int, "pad": int}

# A step: the type of its value, and the types of its options.
STEPS = {
    "expect": ((str, dict), {"as": str}),
    "respond": (dict, {**FRAME, "to": str}),
    "send": (ANY, FRAME),
    "notify": (str, {**FRAME, "params": ANY}),
    "request": (str, {**FRAME, "params": ANY, "id": ANY}),
    "body": (str, FRAME),
    "raw": ((str, list), {**WRITE, "repeat": int, "pad": int}),
    "together": (list, WRITE),
    "sleep": (NUMBER, {}),
    "await": (str, {}),
    "hang": (bool, {}),
    "open": (bool, {}),
    "close": (str, {"over": int}),
    "exit": (int, {}),
    "kill": (str, {}),
    "ignore": (list, {}),
    "spawn": (bool, {"sockets": bool}),
    "print": (str, {"stream": str, "repeat": int}),
}
WRITING = ("respond", "send", "notify", "request", "body", "raw")  # what "together" may hold
# The keys of a scenario.
KEYS = {"log": str, "start": list, "steps": list, "on": dict}
# Texts that are one of a few.
WORDS = {"close": ("end", "reset"), "stream": ("stdout", "stderr"), "kill": signal.Signals.__members__}


class WrongScenario(Exception):
    """A scenario that cannot be played as it stands."""


def expect(condition, text):
    if not condition:
        raise WrongScenario(text)


def name_of(step):
    """The key of a step that is no option. The keys come in any order: whoever wrote the text may have sorted them."""
    return next((key for key in step if key in STEPS), next(iter(step)))


def check_value(key, value, kind, where):
    expect(isinstance(value, kind), f"{where}: {key} cannot be {json.dumps(value)}")
    expect(key not in WORDS or value in WORDS[key], f"{where}: {key} is none of {', '.join(WORDS.get(key, ()))}")


def check_steps(steps, where, names=tuple(STEPS)):
    expect(isinstance(steps, list), f"{where}: not a list of steps")
    for number, step in enumerate(steps):
        place = f"{where}[{number}]"
        expect(isinstance(step, dict) and step, f"{place}: not a step")
        name = name_of(step)
        expect(name in names, f"{place}: no step here is called {name}")
        kind, options = STEPS[name]
        check_value(name, step[name], kind, place)
        for option in step.keys() - {name}:
            expect(option in options, f"{place}: {name} has no option {option}")
            check_value(option, step[option], options[option], place)
        if name == "together":
            check_steps(step[name], place, WRITING)
        if name == "ignore":
            expect(all(word in WORDS["kill"] for word in step[name]), f"{place}: not names of signals")


def read_scenario(text):
    """A scenario from its text, or from a file that holds the text. No text is a server that behaves well."""
    try:
        if text and not text.lstrip().startswith("{"):
            with open(text, encoding="utf-8") as file:
                text = file.read()
        scenario = json.loads(text or "{}")
    except (OSError, ValueError) as error:
        raise WrongScenario(str(error)) from None
    expect(isinstance(scenario, dict), "a scenario is an object")
    for key, value in scenario.items():
        expect(key in KEYS, f"a scenario has no {key}")
        check_value(key, value, KEYS[key], "scenario")
    for key in ("start", "steps"):
        check_steps(scenario.setdefault(key, []), key)
    for method, steps in scenario.setdefault("on", {}).items():
        check_steps(steps, f"on {method}")
    return scenario
