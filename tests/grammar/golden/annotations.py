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
