#include "support/python/fakemachine.h"

#include <cstdlib>

namespace {

int answeredVersion = 0;

int answerVersion()
{
    return answeredVersion;
}

class FakeLibrary : public PluginLibrary
{
public:
    FakeLibrary(FakeMachine& machine, FakeMachine::FilePath file)
        : m_machine(machine), m_file(std::move(file))
    {}

    bool load() override
    {
        const std::string path = std::getenv("PATH");
        m_machine.tries.push_back(name() + " with " + path.substr(0, path.find(':')));
        const auto library = m_machine.libraries.find(name());
        if (library == m_machine.libraries.end() || library->second.failures-- > 0)
            return false;
        m_machine.modules.push_back("lib" + name() + ".so");
        return true;
    }

    FakeMachine::FilePath file() const override { return m_file; }
    std::string reason() const override { return "it fails"; }

    void (*resolve(const char* symbol))() override
    {
        const std::optional<int> version = m_machine.libraries[name()].version;
        if (std::string(symbol) != "dyn_GetPythonVersion" || !version)
            return nullptr;
        answeredVersion = *version;
        return reinterpret_cast<void (*)()>(&answerVersion);
    }

private:
    std::string name() const { return m_file.toStdPath().filename().native(); }

    FakeMachine& m_machine;
    FakeMachine::FilePath m_file;
};

} // namespace

std::unique_ptr<PluginLibrary> FakeMachine::library(const FilePath& file)
{
    return std::make_unique<FakeLibrary>(*this, file);
}
