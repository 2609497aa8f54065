#ifndef PYTHONTESTER_H
#define PYTHONTESTER_H

#include "HalvCore/application.h"
#include "HostSupport/options.h"
#include "HostSupport/optionstore.h"
#include "support/environmentvariable.h"
#include "support/python/fakemachine.h"

/// A test with a machine, options, a PATH and a log of its own.
class PythonTester : public testing::Test
{
protected:
    using FilePath = Halvorin::System::FilePath;

    PythonTester()
    {
        store.useFile(machine.folder / "options.ini");
        logger.setLevel(Halvorin::System::MessageSeverity::diagnostic);
        logger.setOutput([this](std::string_view line) { log += line; });
    }
    ~PythonTester() override
    {
        logger.setOutput({});
        logger.setLevel(Halvorin::System::MessageSeverity::warning);
        store.forgetThisRun();
    }

    std::string option(const char* name) const { return sp_GetStringOption(name).tocs(); }

    FakeMachine machine;
    HostSupport::OptionStore& store = HostSupport::OptionStore::instance();
    Halvorin::System::ApplicationLogger& logger = Halvorin::System::Application::instance().logger();
    std::string log;
    const EnvironmentVariable path{"PATH", "/usual"};
};

#endif
