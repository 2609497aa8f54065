if ready and not busy or late:
    pass
elif count is not None and key not in table:
    del table[key]
else:
    assert first is second, "not the same"
for index in range(3):
    if index: continue
    break
while True:
    break
else: pass
try:
    raise ValueError("bad") from error
except (KeyError, OSError) as problem:
    raise
except* TypeError:
    pass
except *ExceptionGroup:
    pass
finally:
    cleanup()
with open(path) as source, lock:
    read(source)
def counter():
    global total, seen
    nonlocal_name = 1
    def inner():
        nonlocal nonlocal_name  # of counter
        yield
        yield from inner()
    return [x async for x in inner() if x]
async def waits():
    async with lock as held:
        await held
    async for item in held: yield item
a = 1; b = 2; global c; import d
if x: import y; from z import w
