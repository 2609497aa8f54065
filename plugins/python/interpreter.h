#ifndef INTERPRETER_H
#define INTERPRETER_H

#include <Python.h>
#include <string>
#include <thread>

/// The embedded interpreter of this process. It is started once, and ended with the program by the thread
/// that started it; when that thread is gone by then, the system ends it with the process.
class Interpreter
{
public:
    static Interpreter& instance();

    Interpreter(const Interpreter&) = delete;
    Interpreter& operator=(const Interpreter&) = delete;

    bool isRunning() const { return m_threadState; }

    /// Why it could not be started.
    const std::string& failure() const { return m_failure; }

private:
    Interpreter();
    ~Interpreter();

    PyThreadState* m_threadState = nullptr; // of the thread that started it, which does not hold the lock
    std::thread::id m_thread;
    std::string m_failure;
};

/// Takes the interpreter's lock for this thread.
class InterpreterLock
{
public:
    InterpreterLock() : m_state(PyGILState_Ensure()) {}
    InterpreterLock(const InterpreterLock&) = delete;
    InterpreterLock& operator=(const InterpreterLock&) = delete;
    ~InterpreterLock() { PyGILState_Release(m_state); }

private:
    PyGILState_STATE m_state;
};

#endif
