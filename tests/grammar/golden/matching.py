match command.split():
    case [action]:
        pass
    case [action, *rest] | (action, _): pass
    case Point(x=0, y=_) as origin if origin.valid:
        pass
    case {"kind": "circle", "radius": float(r), **others}:
        pass
    case package.Color.RED | None | True | -1.5 | 1 + 2j: pass
    case "text" | b'bytes' \
        "more": pass
    case (1 | 2): pass
    case str() if (n := len(s)) > 1 and {1: 2}[1]: pass
    case Shape(  # over lines
        Point(_, y),
        size=(_, [a, *_]),
    ):
        pass
    case _:
        pass
match (x):
    case (a, b): return a
match [a, b]:
    case [_, *_]: pass
match *a, b:
    case {}: pass
match -x:
    case not_a_keyword: pass
match not x:
    case _ if _ > 1: pass
match{1: 2}:
    case{1: 2}: pass
match = 3
match(x)
match.group(1)
match[0] = 1
match, case = case, match
match: int = 3
match in case
match is None
match - 1
case = 1
case(x)
case[1:2] = 4
case.lower()
case not in cases
print(match, case, _)
_ = 3
