#ifndef PYTHONEXECUTABLE_H
#define PYTHONEXECUTABLE_H

#include <string>

/// What is known of one Python version.
struct PythonExecutable
{
    std::string version;         // such as "3.12"
    std::wstring pythonPath;     // the interpreter; empty if not installed
    bool isSupported = false;    // there is a plug-in
    std::wstring languageServer; // empty if there is none

    bool isUsable() const { return isSupported && !pythonPath.empty(); }
};

#endif
