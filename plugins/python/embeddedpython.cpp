#include "embeddedpython.h"

#include "interpreter.h"

#include <algorithm>
#include <cstring>
#include <memory>

namespace {

struct Release
{
    void operator()(PyObject* object) const { Py_XDECREF(object); }
};

using Reference = std::unique_ptr<PyObject, Release>;

void copyText(std::string_view text, char* buffer, std::size_t size)
{
    if (!buffer || size == 0)
        return;
    const std::size_t length = std::min(text.size(), size - 1);
    std::memcpy(buffer, text.data(), length);
    buffer[length] = '\0';
}

std::string textOf(PyObject* object)
{
    const Reference text(object ? PyObject_Str(object) : nullptr);
    const char* bytes = text ? PyUnicode_AsUTF8(text.get()) : nullptr;
    PyErr_Clear(); // an exception that cannot be worded has no text
    return bytes ? bytes : "";
}

/// Takes the exception that is set, and words it.
std::string takeException()
{
    PyObject* type = nullptr;
    PyObject* value = nullptr;
    PyObject* traceback = nullptr;
    PyErr_Fetch(&type, &value, &traceback);
    PyErr_NormalizeException(&type, &value, &traceback);
    const Reference ownedType(type);
    const Reference ownedValue(value);
    const Reference ownedTraceback(traceback);
    if (!value)
        return "unknown error";
    const std::string text = textOf(value);
    const std::string name = Py_TYPE(value)->tp_name;
    return text.empty() ? name : name + ": " + text;
}

int runInMain(void* code)
{
    PyObject* module = PyImport_AddModule("__main__"); // borrowed, as its dictionary is
    if (!module)
        return -1;
    PyObject* names = PyModule_GetDict(module);
    const Reference result(PyRun_String(static_cast<const char*>(code), Py_file_input, names, names));
    return result ? 0 : -1;
}

} // namespace

int dyn_CallPython(int (*function)(void* data), void* data, char* error, std::size_t size)
{
    try {
        const Interpreter& interpreter = Interpreter::instance();
        if (!interpreter.isRunning()) {
            copyText(interpreter.failure(), error, size);
            return -1;
        }
        const InterpreterLock lock;
        if (function(data) == 0)
            return 0;
        copyText(takeException(), error, size);
    } catch (const std::exception& exception) {
        copyText(exception.what(), error, size);
    }
    return -1;
}

int dyn_RunPython(const char* code, char* error, std::size_t size)
{
    return dyn_CallPython(runInMain, const_cast<char*>(code), error, size);
}
