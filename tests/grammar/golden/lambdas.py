nothing = lambda: 0
one = lambda x: x + 1
many = lambda self, a, /, b=2, *args, c={1: 2}, **kw: a if b else c
nested = lambda cls, f=lambda y: y: f(cls)
calls = sorted(items, key=lambda item: item[1])
table = {"a": lambda: 1, "b": lambda x, y: x}
cut = (lambda)
split = lambda a, \
    b: a
