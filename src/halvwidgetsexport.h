#ifndef HALVWIDGETSEXPORT_H
#define HALVWIDGETSEXPORT_H

/// Marks what the shared library HalvWidgets shows to the outside. Everything else is hidden.
/// Exception types that leave the library carry it too: without it a catch clause on the other side
/// does not know them.
#if defined(_WIN32)
#define HALVWIDGETS_EXPORT __declspec(dllexport)
#else
#define HALVWIDGETS_EXPORT __attribute__((visibility("default")))
#endif

#endif
