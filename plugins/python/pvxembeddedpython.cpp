#include "pvxembeddedpython.h"

#include "embeddedpython.h"

#include <Python.h>

namespace {

struct Module
{
    const char* name;
    const char* text;
};

/// A new module with what running its text defines; null with an exception set.
PyObject* makeModule(const Module& module)
{
    PyObject* code = Py_CompileString(module.text, module.name, Py_file_input);
    PyObject* made = code ? PyModule_New(module.name) : nullptr;
    PyObject* names = made ? PyModule_GetDict(made) : nullptr; // borrowed
    PyObject* result = nullptr;
    if (names && PyDict_SetItemString(names, "__builtins__", PyEval_GetBuiltins()) == 0)
        result = PyEval_EvalCode(code, names, names);
    if (!result)
        Py_CLEAR(made);
    Py_XDECREF(result);
    Py_XDECREF(code);
    return made;
}

int addModule(void* data)
{
    const Module& module = *static_cast<const Module*>(data);
    PyObject* made = makeModule(module);
    if (!made)
        return -1;
    const int outcome = PyDict_SetItemString(PyImport_GetModuleDict(), module.name, made);
    Py_DECREF(made);
    return outcome;
}

} // namespace

int dyn_AddPythonModule(const char* name, const char* text, char* error, std::size_t size)
{
    Module module{name, text};
    return dyn_CallPython(addModule, &module, error, size);
}
