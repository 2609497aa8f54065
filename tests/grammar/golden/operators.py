a = b + c - d * e / f // g % h ** i @ j
a += 1; a -= 1; a *= 2; a /= 2; a //= 2; a %= 2; a **= 2; a @= m; a &= 1; a |= 1; a ^= 1; a >>= 1; a <<= 1
a = b << c >> d & e | f ^ ~g
a == b != c < d > e <= f >= g <> h
a and b or not c in d not in e is f is not g
if (n := 10) > 5: pass
first, *rest = *a, *b
call(*a, **b, c ** d, *e)
[*a, *b]; {**a, **b}; x = *a,
-1; +1; a*b; a**-b; ~a
x -> y
x ... y
