#ifndef PLUGINEXPORT_H
#define PLUGINEXPORT_H

/// Marks what a plug-in shows to the outside.
#if defined(_WIN32)
#define PLUGIN_EXPORT extern "C" __declspec(dllexport)
#else
#define PLUGIN_EXPORT extern "C" __attribute__((visibility("default")))
#endif

#endif
