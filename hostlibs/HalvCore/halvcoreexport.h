#ifndef HALVCOREEXPORT_H
#define HALVCOREEXPORT_H

/// Marks what the shared library HalvCore shows to the outside; everything else is hidden.
#if defined(_WIN32)
#if defined(HALVCORE_BUILD)
#define HALVCORE_EXPORT __declspec(dllexport)
#else
#define HALVCORE_EXPORT __declspec(dllimport)
#endif
#else
#define HALVCORE_EXPORT __attribute__((visibility("default")))
#endif

#endif
