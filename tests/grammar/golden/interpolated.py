a = f'{x}' F"{x!r} {x!s:>10} {x!a}" f'''{x}''' f"""{x}"""
b = f"{value:{width}.{precision}f} {when:%H:%M} {x=} {x = !r} {x=:>5} {{literal}} }}"
c = f"{a if b else c} {d['key']} {e["same quotes"]} {(lambda x: x)(1)} {f(y=2)} {x != y} {x == y} {x <= y}"
d = f"{ {'k': 1}['k'] } {[i for i in range(3)]!r} {(n := 5)} {n:=5}"
e = f"\n \x41 \N{DASH} \q \{x} \400"
f = f"""{
    x  # a comment
    + y:>{
        width
    }} and
{z}"""
g = f"{
    x
} done"
h = f'{a +
b} {f(c,
d)} {a or
b}'
i = f"{} { } {x!z} } {x! }"
j = f"{unfinished
k = f"{unfinished:>10
l = f"unfinished
m = f"{f"{f"{deep}"}"}"
n = f"{x:{y:{z}}}"
o = f'''{x:%Y
%m}''' f"{x:{
    y}}"
p = f"goes \
on {x}"
q = f"{"\n".join(lines)}"
r = f"{1 + 2 =  # a comment
  }", f'{x  # a "comment'
  + y}'
x = f"{a['b'}"
y = f"{foo("
def one(a): pass
y = f"{foo(a['b
z = 3
    @property
    def two(self): pass
y = f'{ {"a": [
from .x import y
y = rf'{(lambda a
import y
y = rf"{(x:
for a in b: pass
for a in b:
y = f"{[
    x for x in y
    if x]} {[a
    if b else c for d in e]} \
return {x} \
  class \

def three(): pass
f = rf'a \
def {x}'
