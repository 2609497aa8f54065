nothing = lambda: 0
one = lambda x: x + 1
many = lambda self, a, /, b=2, *args, c={1: 2}, **kw: a if b else c
nested = lambda cls, f=lambda y: y: f(cls)
calls = sorted(items, key=lambda item: item[1])
table = {"a": lambda: 1, "b": lambda x, y: x}
cut = (lambda)
split = lambda a, \
    b: a
over = call(lambda x,
            y=1: x, z=2)
over = (lambda  # a comment
        self, a, *b: a, c)
over = [lambda a={1: 2} or  # a comment
        3,
        b=lambda: 0: b]
class Over(make(lambda a,
                b: b), metaclass=lambda *a,
           **b: type(*a)): pass
def default_over(key=lambda a,
                 b=2: (a, b), c=3): pass
cut = (lambda a,
       b)
