#!/usr/bin/env python3
"""Holds the scopes that a grammar gives against Python's own tokenizer, character by character.

    agreement.py --command 'PROGRAM ... {}' [--minimum 99.9] FILE_OR_FOLDER...

PROGRAM prints a line of JSON per source line, an array of {"start", "length", "scopes"} in UTF-16 code units;
{} stands for the file, {all} for many files at once, whose lines then follow each other. Where the tokenizer sees
a string, a comment, a number, a keyword or anything else, the scopes must say the same. What stands in the
replacement fields of interpolated strings is counted apart. So are soft keywords, of which Python's parser says
whether they are one: each that the scopes miss or wrongly see is told, but none counts for the minimum. A file that
the tokenizer refuses is left out, and one that the parser refuses has its soft keywords left out. Of the lines
"slowest line FILE:LINE, N ms" that a program writes to stderr the worst is told.
Exit code 1 when fewer agree than the minimum, or when a file ends within an open string."""
import argparse
import ast
import bisect
import collections
import functools
import io
import json
import keyword
import pathlib
import re
import shlex
import subprocess
import sys
import tempfile
import tokenize
import warnings

KINDS = ("string", "comment", "number", "keyword", "other")
FIELD = 16
SOFT = ("match", "case", "type", "_")
KEYWORD_SCOPES = ("keyword.control", "keyword.other", "storage.type", "constant.language.boolean",
                  "constant.language.none", "keyword.operator.logical", "keyword.operator.membership",
                  "keyword.operator.identity", "variable.language.wildcard")
# the parts of an interpolated string, which newer tokenizers tell apart
STRING_TOKENS = {tokenize.STRING} | {getattr(tokenize, name) for name in ("FSTRING_START", "FSTRING_MIDDLE", "FSTRING_END")
                                     if hasattr(tokenize, name)}
SLOWEST = re.compile(r"^slowest line (.*):(\d+), ([\d.]+) ms$", re.MULTILINE)
# what a whole line is put after a file: it must come out as plain text, or something was left open
PROBE = "probe_of_what_is_open"


def kind_of(scopes):
    """What the scopes of a token say, and whether it stands in a replacement field."""
    if any(scope.startswith("comment.") for scope in scopes):
        return "comment", False
    inner = max((i for i, scope in enumerate(scopes) if scope.startswith("string.")), default=-1)
    field = max((i for i, scope in enumerate(scopes) if scope.startswith("meta.interpolation")), default=-1)
    if inner >= 0:
        return "string", field > -1
    last = scopes[-1]
    if last.startswith(("constant.numeric.", "invalid.illegal.number")):
        return "number", False
    if last.startswith(KEYWORD_SCOPES):
        return "keyword", False
    return "other", False


def expected_of(token):
    if token.type in STRING_TOKENS:
        return "string"
    if token.type == tokenize.COMMENT:
        return "comment"
    if token.type == tokenize.NUMBER:
        return "number"
    if token.type == tokenize.NAME and keyword.iskeyword(token.string):
        return "keyword"
    return "other"


def soft_keywords(lines, tokens):
    """The places (line, column) of the soft keywords that the parser sees; None when it refuses the text."""
    try:
        with warnings.catch_warnings():
            warnings.simplefilter("ignore")
            tree = ast.parse("\n".join(lines) + "\n")
    except (SyntaxError, ValueError, RecursionError):
        return None
    named = {word: [token.start for token in tokens if token.string == word] for word in SOFT}
    found = set()

    def place(node):  # the parser counts columns in bytes
        return node.lineno, len(lines[node.lineno - 1].encode()[:node.col_offset].decode())

    for node in ast.walk(tree):
        if isinstance(node, (ast.Match, getattr(ast, "TypeAlias", ast.Match))):
            found.add(place(node))
        elif isinstance(node, ast.match_case):  # it has no place; its pattern stands behind it, maybe in brackets
            found.add(named["case"][bisect.bisect_left(named["case"], place(node.pattern)) - 1])
        elif isinstance(node, ast.MatchAs) and node.pattern is None and node.name is None:
            found.add(place(node))
        elif isinstance(node, ast.MatchStar) and node.name is None:
            found.add(named["_"][bisect.bisect_left(named["_"], place(node))])
    return found


def units(text):
    """The place in UTF-16 of each character of a text, and of its end."""
    if text.isascii():
        return range(len(text) + 1)
    places, at = [], 0
    for character in text:
        places.append(at)
        at += 2 if ord(character) > 0xFFFF else 1
    return places + [at]


@functools.cache
def code_of(scopes):
    """kind_of() as a byte: the place in KINDS, and FIELD for what stands in a replacement field."""
    kind, in_field = kind_of([scope.removesuffix(".python") for scope in scopes])
    return KINDS.index(kind) + (FIELD if in_field else 0)


def codes_by_unit(line, tokens):
    codes = bytearray([KINDS.index("other")]) * (units(line)[-1] + 1)
    for token in tokens:
        start, end = token["start"], min(token["start"] + token["length"], len(codes))
        codes[start:end] = bytes([code_of(tuple(token["scopes"]))]) * (end - start)
    return codes


class Tally:
    def __init__(self):
        self.same = collections.Counter()
        self.judged = collections.Counter()
        self.apart = collections.Counter()
        self.soft = collections.Counter()
        self.disagreements = []
        self.soft_disagreements = []
        self.open_files = []
        self.left_out = []
        self.not_parsed = []
        self.slowest = (0.0, "")

    def judge(self, file, lines, outputs):
        """Compares one file: its lines, and what the program printed for each and for the probe."""
        codes = [codes_by_unit(line, json.loads(output)) for line, output in zip(lines, outputs)]
        places = [units(line) for line in lines]
        tokens = list(tokenize.generate_tokens(io.StringIO("\n".join(lines) + "\n").readline))
        soft = soft_keywords(lines, tokens)
        if soft is None:
            self.not_parsed.append(file)
        for token in tokens:
            if token.type in (tokenize.NEWLINE, tokenize.NL, tokenize.INDENT, tokenize.DEDENT, tokenize.ENDMARKER):
                continue
            if token.type != tokenize.NAME or token.string not in SOFT:
                self.judge_token(file, lines, places, codes, token)
            elif soft is not None:
                self.judge_soft(file, lines, places, codes, token, token.start in soft)
        probe = json.loads(outputs[len(lines)])
        if any(scope.startswith("string.") for part in probe for scope in part["scopes"]):
            self.open_files.append(file)

    def judge_token(self, file, lines, places, codes, token):
        expected = expected_of(token)
        (first, start), (last, end) = token.start, token.end
        for number in range(first, last + 1):
            line, place = lines[number - 1], places[number - 1]
            from_, to = start if number == first else 0, min(end if number == last else len(line), len(line))
            said = codes[number - 1][place[from_]:place[to]]
            if said.count(KINDS.index(expected)) == len(said):  # nearly always
                self.judged[expected] += to - from_
                self.same[expected] += to - from_
                continue
            self.judge_characters(f"{file}:{number}", line, [codes[number - 1][place[column]] for column in
                                                             range(from_, to)], from_, expected)

    def judge_soft(self, file, lines, places, codes, token, wanted):
        (number, start), (_, end) = token.start, token.end
        line, place = lines[number - 1], places[number - 1]
        said = [codes[number - 1][place[column]] for column in range(start, end)]
        word = KINDS.index("keyword")
        if not set(said) <= {word, KINDS.index("other")}:
            return self.judge_characters(f"{file}:{number}", line, said, start, "keyword" if wanted else "other")
        verdict = "wanted" if wanted else "names"
        self.soft[token.string, verdict] += 1
        if (set(said) == {word}) != wanted:
            verdict = "missed" if wanted else "false"
            self.soft[token.string, verdict] += 1
            self.soft_disagreements.append(f"{file}:{number}:{start + 1}: {token.string} {verdict}: "
                                           f"{line.strip()[:90]}")

    def judge_characters(self, where, line, codes, from_, expected):
        wrong = None
        for column, code in enumerate(codes, from_):
            kind = KINDS[code % FIELD]
            if code >= FIELD:
                self.apart["replacement fields"] += 1
                continue
            self.judged[expected] += 1
            if kind == expected:
                self.same[expected] += 1
            elif wrong is None:
                wrong = (column, kind)
        if wrong:
            self.disagreements.append(f"{where}:{wrong[0] + 1}: {wrong[1]} where there is {expected}: "
                                      f"{line.strip()[:90]}")

    def report(self, shown):
        judged, same = sum(self.judged.values()), sum(self.same.values())
        for line in self.disagreements[:shown] + self.soft_disagreements[:shown]:
            print(line)
        for file in self.open_files:
            print(f"{file}: ends within an open string")
        for kind in KINDS:
            if self.judged[kind]:
                share = 100 * self.same[kind] / self.judged[kind]
                print(f"{kind:8} {self.same[kind]:>10} of {self.judged[kind]:>10} characters  {share:9.4f} %")
        for what, count in sorted(self.apart.items()):
            print(f"apart: {what}: {count} characters")
        for word in SOFT:
            print(f"apart: {word}: " + ", ".join(f"{self.soft[word, verdict]} {verdict}"
                                               for verdict in ("wanted", "missed", "names", "false")))
        if self.not_parsed:
            print(f"apart: soft keywords of {len(self.not_parsed)} files not judged: "
                  f"{' '.join(self.not_parsed[:8])}")
        share = 100 * same / max(judged, 1)
        print(f"{len(self.disagreements)} lines disagree; {len(self.left_out)} files left out: "
              f"{' '.join(self.left_out[:8])}")
        if self.slowest[1]:
            print(f"slowest line {self.slowest[1]}, {self.slowest[0]} ms")
        print(f"agreement {share:.4f} % of {judged} characters")
        return share


def read_lines(path):
    """The lines of a file as the tokenizer counts them, None for one that it refuses."""
    try:
        text = path.read_text(encoding="utf-8-sig")
        list(tokenize.generate_tokens(io.StringIO(text).readline))
    except (UnicodeDecodeError, SyntaxError, tokenize.TokenError):
        return None
    lines = text.split("\n")
    if lines[-1] == "":
        lines.pop()
    return lines


def run(command, files):
    """What the program prints, a line a source line, for a few files, and the slowest line that it tells of."""
    words = []
    for word in shlex.split(command):
        if word == "{all}":
            words += files
        else:
            words.append(word.replace("{}", files[0]))
    done = subprocess.run(words, capture_output=True, text=True, encoding="utf-8")
    if done.returncode != 0:
        sys.exit(done.stderr or f"{words[0]} ended with {done.returncode}")
    slowest = max(((float(spent), file, number) for file, number, spent in SLOWEST.findall(done.stderr)),
                  default=None)
    return done.stdout.split("\n"), slowest


def collect(paths):
    for path in map(pathlib.Path, paths):
        if path.is_dir():
            yield from (file for file in sorted(path.rglob("*.py"))
                        if "lib2to3/tests/data" not in file.as_posix() and not file.name.startswith("bad_"))
        else:
            yield path


def main():
    parser = argparse.ArgumentParser(description=__doc__, formatter_class=argparse.RawDescriptionHelpFormatter)
    parser.add_argument("--command", required=True)
    parser.add_argument("--minimum", type=float, default=99.5)
    parser.add_argument("--show", type=int, default=20, help="disagreements to print")
    parser.add_argument("paths", nargs="+")
    arguments = parser.parse_args()
    batch = 50 if "{all}" in arguments.command else 1

    tally = Tally()
    with tempfile.TemporaryDirectory() as folder:
        work = []
        for number, path in enumerate(collect(arguments.paths)):
            lines = read_lines(path)
            if lines is None:
                tally.left_out.append(str(path))
                continue
            copy = pathlib.Path(folder) / f"{number}.py"
            copy.write_text("\n".join(lines + [PROBE]) + "\n", encoding="utf-8")
            work.append((str(path), lines, str(copy)))
        for at in range(0, len(work), batch):
            part = work[at:at + batch]
            outputs, slowest = run(arguments.command, [copy for _, _, copy in part])
            if slowest and slowest[0] > tally.slowest[0]:
                names = {copy: file for file, _, copy in part}
                tally.slowest = (slowest[0], f"{names.get(slowest[1], slowest[1])}:{slowest[2]}")
            for file, lines, _ in part:
                tally.judge(file, lines, outputs[:len(lines) + 1])
                del outputs[:len(lines) + 1]
    if not work:
        sys.exit("no file to compare")
    share = tally.report(arguments.show)
    return 0 if share >= arguments.minimum and not tally.open_files else 1


sys.exit(main())
