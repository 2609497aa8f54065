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
