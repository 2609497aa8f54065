import os
import os.path as path, sys
import package.sub_module as alias, \
    other
from os import path
from . import sibling
from .. import parent as up
from ...package.module import (first, second as two,  # why
                               third)
from .module import *
from __future__ import annotations; import after
from package \
    import name, \
    other as another
raise Wrong from cause
value = yield from source
if x: from y import z as w
