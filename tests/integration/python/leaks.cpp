/// Python keeps some of its own memory to the end of the process, also when the interpreter has ended: what
/// its library allocated is no leak of ours.
extern "C" __attribute__((visibility("default"))) const char* __lsan_default_suppressions();

const char* __lsan_default_suppressions()
{
    return "leak:libpython3\n";
}
