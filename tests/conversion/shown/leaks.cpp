/// The offscreen platform never gives up its screen.
extern "C" __attribute__((visibility("default"))) const char* __lsan_default_suppressions();

const char* __lsan_default_suppressions()
{
    return "leak:libqoffscreen\n";
}
