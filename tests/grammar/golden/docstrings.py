"""A module.

>>> add(1, 2)
3
... not a prompt in the middle >>> here
TODO \n \q
"""
r'''Raw \d
>>> r'\d'
'''
def f():
    """One line."""
    x = """not a docstring"""
def g():
    'single quotes'
def h():
    "double quotes \t"  # a comment
    r'raw \d'; "not one"
    r"raw \s"
    R"""raw
    \d"""
class C:
    '''Triple
    single'''
    u"""Old"""
    u'old'
    ""
'a' + 'b'
call("""
not a docstring
""")
value = \
    """not
    one"""
'a' \
'b'
