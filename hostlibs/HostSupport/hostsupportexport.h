#ifndef HOSTSUPPORTEXPORT_H
#define HOSTSUPPORTEXPORT_H

/// Marks what the shared library HostSupport shows to the outside; everything else is hidden.
#if defined(_WIN32)
#if defined(HOSTSUPPORT_BUILD)
#define HOSTSUPPORT_EXPORT __declspec(dllexport)
#else
#define HOSTSUPPORT_EXPORT __declspec(dllimport)
#endif
#else
#define HOSTSUPPORT_EXPORT __attribute__((visibility("default")))
#endif

#endif
