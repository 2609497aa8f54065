count: int = 0
self.name: str = "x"
names: "list[str]"
nested: dict[str, tuple[int, ...]] = {}
either: int | None = None; other = 1
remark: float  # of what
split: int | \
    str = 3
wide: (
    int
) = 3
match: Pattern[str]
else: pass
try: pass
finally: pass
lambda: 0
if (n := 10) > 5: pass
items[0]: int
table["#]"][index[0]].name: int = {1: 2}
class Inner: x: int = 1
if x: y: int = 2
a; b: int; self.c: str
type: int
id: int = 3
LIMIT: int = 3
items[0]:
else: x = 1
while x[1]: y
if [x]: y
not[1]: y
lambda x: y
print(1); items[a:b] = 1
