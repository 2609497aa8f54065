class Empty: pass
class Derived(Base, package.module.Other, Generic[T], make_base(1), Exception): ...
class WithMeta(Base, metaclass=Meta, flag=True, *more, **options): pass
class Generic[T, U: int, *Ts, **P](Base[T]):
    attribute: int = 0
    def __eq__(self, other): return NotImplemented
class Lines(  # a comment
    First,
    Second,
):
    __slots__ = ("a", "b")
class \
    Continued(Base): pass
class Unfinished
type Alias = int | str
type Pair[T, *Ts] = tuple[T, *Ts]
if x: type Inner = list[int]
type \
    Joined[T] \
    = int
type Broken \
    = str
type = 3
type(x)
type.mro(type)
type in kinds
type is None
