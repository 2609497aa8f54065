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
match (
        a,
        b):
match *a, b: pass
match ...:
match\
        (x):
    case -1: return 2
    case -0.5 | -1j: pass
    case - 1: pass
    case (a |
          b): pass
    case [y, (a) |
          b]: pass
    case (  # remark
          b): pass
    case *a, b: pass
    case *_,: pass
    case(a, b): pass
    case[1]: pass
    case ("#", '(', ":"): pass
    case(x, {1: 2}):  # remark
    case \
          5: pass
match(x)  # foo:
match(x, {f(1): 2})
match(
    x)
case(x)  # foo:
case(x, {f(1): 2})
case(
    x)
case[1]: int = 3
case[1:2] = 4
case - 1
case = -1
match *= 2
match .x
match - x[1:2]
case.x = {1: 2}
match(x)[1:2] = {1: 2}
case(x, lambda: 0)
case *= 2
case -= 2
match -= 2
