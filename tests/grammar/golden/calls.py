plain(1, x)
spaced (1)
keyword(name=1, other = 2, *rest, **more)
equal(a == 1)
outer(inner(x=1), y=[1, 2], z={"k": v})
object.method(a).other (b)
made()(1)[0](2)
print(len(str(x)), ValueError("x"), UserWarning(1), exit())
super().__init__(name=1)
__import__("x"); __getattr__("y"); x.__dict__; x.__class__.__name__; x.__len__
x.print(1); x.int; x.type; x.self; x.None_
generator(x for x in y if x)
multi(
    a,  # comment
    b=1,
    *c,
)
x . y . z
x.
call(1)(
x.\
    y. \
    z.\
    call(1)
