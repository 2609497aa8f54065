x = (1, 2,
     3)
y = [a, [b, (c, {d: e})]]
z = {1, 2}
t = {"a": 1, **b, "c": x[1:2, ::3], "d": (n := 3)}
u = x[a][b:c, ...][(1)]
v = [1][0]
w = "abc"[0]
s = 1 + \
    2 + \
    3
if a and \
        b:
    pass
assert x, \
    """text"""
a \ b
)
]
}
$ ? ` !
unfinished(
def misplaced(self):
    global name
misplaced = (a, def, class,
    global)
class A(foo(
    def four(self, a=[1,
    def five(self, a: list[int) -> dict[str
    def six(self): return (1, [2)
@decorated(1,
def seven(): pass
x: int[
while 1: pass
from x import (
    a, b
class B: pass
case foo(a, [b
    return 1
x = \
   foo(
def eight(): pass
g = (a
@ b)
mismatched = (a, [b, {c), d]
mismatched = {a: (b}
