#include "HalvCore/application.h"
#include "HostSupport/optionstore.h"
#include "pyrightbenchmark.h"

#include <QCoreApplication>
#include <benchmark/benchmark.h>

int main(int argc, char** argv)
{
    using namespace Halvorin::System;
    const QCoreApplication application(argc, argv);
    Application::instance().logger().setLevel(MessageSeverity::error); // as little as in use
    // whatever its user has set: the server is to take its own default
    HostSupport::OptionStore::instance().setForThisRun("python.pythonVersion", "");
    benchmark::Initialize(&argc, argv);
    if (benchmark::ReportUnrecognizedArguments(argc, argv))
        return 1;
    addPyrightBenchmarks();
    benchmark::RunSpecifiedBenchmarks();
    endPyright();
    benchmark::Shutdown();
    return 0;
}
