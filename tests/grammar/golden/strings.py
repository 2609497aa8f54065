a = 'single' "double" '''triple''' """triple"""
b = u'old' U"old" u'''old''' U"""old"""
c = 'it\'s \\ \a\b\f\n\r\t\v \0 \12 \377 \400 \x41 \u00e9 \U0001F600 \N{GREEK SMALL LETTER ALPHA}'
d = "wrong \q \x4 \u12 \U12345678 \N{} \8"
e = 'goes \
on' + "and \
on"
f = """over
lines "with" ""quotes"" \"""
"""
g = '''over
lines \
'''
h = "%s %d%% %(name)-10.3f %*.*f %r 100% sure %"
i = "{} {0} {name} {a.b[0]!r:>10} {x:{width}.{precision}} {{literal}} {not a field} {"
j = "unterminated
k = 'unterminated \
still
l = "ends\\"
m = ''"" '' ""
n = "日本語 😀 %s 😀"
o = "" """triple""" ''
