a = r'\d+\'s' R"\"%s" r'''\'''' r"""\""" """
b = b'\x00\xff\777\u0041\N{x} \x0 %d é' B"\
" b'''tri
ple''' B"""x"""
c = rb'\x00' Rb"\"" bR'''\'''' BR"""é %s"""
d = br'' rb"" bR'a
e = r"goes \
on"
f = fr'\d{x}' rF"\{x}" Fr'''\{x}''' RF"""{x!r}\""" """
g = rf'{{}}' fR"}"
