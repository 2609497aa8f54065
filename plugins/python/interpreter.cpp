#include "interpreter.h"

#include <csignal>
#include <dlfcn.h>
#include <filesystem>
#include <optional>
#include <system_error>

namespace fs = std::filesystem;

namespace {

/// The program that belongs to the interpreter's library. Python finds its own modules from there; otherwise
/// it would go by whatever "python3" is first on PATH.
std::optional<std::string> interpreterProgram()
{
    Dl_info library{};
    if (!::dladdr(reinterpret_cast<void*>(&Py_IsInitialized), &library) || !library.dli_fname)
        return std::nullopt;
    const std::string name =
        "bin/python" + std::to_string(PY_MAJOR_VERSION) + "." + std::to_string(PY_MINOR_VERSION);
    std::error_code error;
    const fs::path folder = fs::canonical(library.dli_fname, error).parent_path();
    // beside "lib", or beside the "lib" that has a folder for each kind of processor
    for (const fs::path& root : {folder.parent_path(), folder.parent_path().parent_path()}) {
        if (!folder.empty() && fs::exists(root / name, error))
            return (root / name).native();
    }
    return std::nullopt;
}

PyStatus initialise()
{
    PyPreConfig before;
    PyPreConfig_InitIsolatedConfig(&before);
    before.utf8_mode = 1; // narrow text is UTF-8, whatever the locale says
    PyStatus status = Py_PreInitialize(&before);
    if (PyStatus_Exception(status))
        return status;

    PyConfig config;
    PyConfig_InitIsolatedConfig(&config);
    config.install_signal_handlers = 0;
    config.buffered_stdio = 0; // what is printed stands between what the program prints
    if (const auto program = interpreterProgram())
        status = PyConfig_SetBytesString(&config, &config.program_name, program->c_str());
    if (!PyStatus_Exception(status))
        status = Py_InitializeFromConfig(&config);
    PyConfig_Clear(&config);
    return status;
}

/// Loads the module that handles signals, which would take the interrupt from the program, were it not
/// ignored at that moment.
void loadSignalModule()
{
    struct sigaction ignored
    {};
    struct sigaction before
    {};
    ignored.sa_handler = SIG_IGN;
    ::sigaction(SIGINT, &ignored, &before);
    Py_XDECREF(PyImport_ImportModule("_signal"));
    PyErr_Clear();
    ::sigaction(SIGINT, &before, nullptr);
}

} // namespace

Interpreter& Interpreter::instance()
{
    static Interpreter interpreter;
    return interpreter;
}

Interpreter::Interpreter()
{
    if (Py_IsInitialized()) {
        m_failure = "another part of the program has started Python already";
        return;
    }
    const PyStatus status = initialise();
    if (PyStatus_Exception(status)) {
        m_failure = status.err_msg ? status.err_msg : "Python cannot be started";
        return;
    }
    loadSignalModule();
    m_thread = std::this_thread::get_id();
    m_threadState = PyEval_SaveThread();
}

Interpreter::~Interpreter()
{
    if (!m_threadState || m_thread != std::this_thread::get_id())
        return;
    PyEval_RestoreThread(m_threadState);
    Py_FinalizeEx();
}
