def plain(): pass
def several(first, second: int, /, third: str = "x", *args: int, key=None, other: list[int] = [1, 2], **rest) -> dict[str, int]:
    return first
async def later(self, *, timeout: float = 1.5) -> None: ...
def generic[T: (int, str), *Ts, **P](cls, value: T, *rest: *Ts) -> T | None: pass
def __init__(self,
             name: str,  # what it is called
             size: "int |"
                   "float" = 3 +
                   4,
             either: int |
                     str = None,
             pair=(1,
                   2),
             last: int
) -> None:
    self.name = name
def \
    broken_line(a, \
                b): pass
def übergröße(naïve, 变量: int = 0): return naïve
def default_lambda(key=lambda a, b=1: (a, b), text='a,b)', data={'k': [1, 2]}): pass
def unfinished(a, b
               ): pass
def without_colon
def refused(if, None): pass
