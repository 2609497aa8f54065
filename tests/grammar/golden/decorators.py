@simple
@package.module.decorator
@with_arguments(1, name="x", *rest)
@property
@value.setter  # a comment
@(lambda f: f)
@buttons[0].clicked.connect
@long_name \
    .continued(1)
def decorated(): pass
    @staticmethod
    @classmethod
    def method(cls): return a @ b
matrix = (a
          @ b)
@False or null
@lambda f: null(f)
@x if y else not (z)
@type
@callable
@value.type.property
@(yield)
@spaced (1, x=2)(3)
@made(1)[0] @ (2)
@"text".format("%s" % 1)
def every(): pass
