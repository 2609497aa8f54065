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
