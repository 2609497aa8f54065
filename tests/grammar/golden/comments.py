#! /usr/bin/env python3
# -*- coding: utf-8 -*-
# plain
x = 1  # after code
# TODO and FIXME, XXX: a NOTE on a BUG or a HACK, not TODOS
# noqa: E501
y = 2  # pragma: no cover
z = 3  # noqa
a = []  # type: list[int]
b = None  # type: ignore
c = d()  # type: ignore[attr-defined, name-defined] # and more
def f(a, b):  # type: (int, *str) -> None
    pass
#
