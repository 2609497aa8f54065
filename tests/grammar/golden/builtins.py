abs, len, print, map, sorted
int, str, dict, list, type, object
ValueError, KeyboardInterrupt, BaseExceptionGroup
DeprecationWarning, Warning
exit, quit, copyright, credits, license
True, False, None, NotImplemented, Ellipsis, ..., __debug__
__name__, __file__, __doc__, __all__
__init__, __eq__, __class_getitem__, __private__
self, cls, self.x, cls.y, selfish, clsx
MAX_SIZE, A1, T, Mixed, _PRIVATE
printer, my_int, int_, x_None, Noneé, éNone
import_ = from_ + __import__
call(import x)
