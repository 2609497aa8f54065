#include "support/process.h"
#include "support/smalldefinition.h"
#include "support/temporaryfolder.h"
#include "testfolders.h"
#include "testpaths.h"

#include <fstream>

namespace fs = std::filesystem;

namespace {

/// An include of every header that stands below a folder.
std::string includesOf(const fs::path& folder)
{
    std::string lines;
    for (const auto& entry : fs::recursive_directory_iterator(folder)) {
        if (entry.path().extension() == ".h")
            lines += "#include \"" + entry.path().lexically_relative(folder).generic_string() + "\"\n";
    }
    return lines;
}

constexpr auto project = R"(cmake_minimum_required(VERSION 3.25)
project(Outside LANGUAGES CXX)
find_package(HalvWidgets 0.1 REQUIRED)
add_executable(outside main.cpp headers.cpp)
target_compile_features(outside PRIVATE cxx_std_20)
target_link_libraries(outside PRIVATE HalvWidgets::HalvWidgets HalvWidgets::HostSupport)
)";

constexpr auto program = R"program(#include "HostSupport/scripthost.h"
#include "quietdevice.h"
#include "statechart/json/jsonreader.h"
#include "statechart/json/jsonwriter.h"
#include <iostream>
#include <sstream>

class Tracer : public AbstractActorObserver
{
public:
    void transitionTaken(const Transition& transition) override { std::cout << transition.identifier << '\n'; }
    void conditionTested(const Transition&, std::size_t index, bool holds) override
    {
        std::cout << index << ' ' << holds << '\n';
    }
};

void runDevice()
{
    const auto device = quietDevice(R"({"outputs": {}, "outputDelay": 1, "start": "a",
        "variables": {"n": {"type": "int", "value": 1}},
        "states": {"a": {"type": "atomic", "transitions": {"t": {"target": "b", "order": 0, "event": "go",
            "conditions": "getVariable_int(\"n\") == 1"}}},
            "b": {"type": "atomic", "onEntry": "getVariable_bool(\"n\");"}}})");
    Tracer tracer;
    device->setObserver(&tracer);
    device->start();
    try {
        device->dispatch(NamedEvent("go"));
    } catch (const std::runtime_error& error) {
        std::cout << error.what() << '\n';
    }
}

int main(int, char** arguments)
{
    std::istringstream text("{\"a\": [1.0, true]}");
    std::cout << toString(readDocument(text).value()) << '\n';
    try {
        std::istringstream bad("{");
        readDocument(bad);
    } catch (const JsonReadException& error) {
        std::cout << error.what() << '\n';
    }
    const auto result = HostSupport::call("CompileDigitalDeviceStateChart", {arguments[1], arguments[2]});
    std::cout << std::get<std::vector<std::string>>(result).at(0) << '\n';
    runDevice();
}
)program";

std::string textOf(const fs::path& file)
{
    std::ifstream stream(file, std::ios::binary);
    return std::string(std::istreambuf_iterator<char>(stream), {});
}

} // namespace

TEST(Install, LetsAProgramFromOutsideBuildAgainstTheLibrary)
{
    const TemporaryFolder folder;
    const std::string prefix = folder / "prefix";
    ProcessResult step = runProcess({CMAKE_PROGRAM, "--install", BUILD_FOLDER, "--prefix", prefix});
    ASSERT_EQ(step.exitCode, 0) << step.output << step.error;

    EXPECT_TRUE(
        fs::exists(fs::path(prefix) / "share/halvorin/schemas/digital_device_state_chart_schema.json"));

    folder.write("source/CMakeLists.txt", project);
    folder.write("source/main.cpp", program);
    for (const char* header : {"quietdevice.h", "namedevent.h"})
        folder.write(std::string("source/") + header,
                     textOf(fs::path(PROJECT_FOLDER) / "tests/support/devices" / header));
    folder.write("source/headers.cpp", includesOf(folder / "prefix/include/HalvWidgets"));
    const std::string build = folder / "build";
    step = runProcess({CMAKE_PROGRAM, "-S", folder / "source", "-B", build, "-G", GENERATOR,
                       "-DCMAKE_PREFIX_PATH=" + prefix, std::string("-DCMAKE_CXX_COMPILER=") + COMPILER,
                       std::string("-DCMAKE_CXX_FLAGS=") + COMPILER_FLAGS});
    ASSERT_EQ(step.exitCode, 0) << step.output << step.error;
    step = runProcess({CMAKE_PROGRAM, "--build", build});
    ASSERT_EQ(step.exitCode, 0) << step.output << step.error;

    const std::string definition = folder.write("d.json", smallDefinition);
    step = runProcess({folder / "build/outside", definition, folder / "device.json"});
    EXPECT_EQ(step.exitCode, 0) << step.error;
    EXPECT_EQ(step.output, "{\"a\": [1.0,true]}\n"
                           "invalid JSON 'expected } or object definition' at position 1\n"
                           "Ok\n"
                           "\n0 1\nt\n"
                           "variable 'n' is read as 'bool', and holds 'int'\n");

    step = runProcess({folder / "prefix/bin/halvorin", "functions"});
    EXPECT_EQ(step.exitCode, 0) << step.error;
    EXPECT_THAT(step.output, testing::HasSubstr("CompileDigitalDeviceStateChart"));

    ProcessOptions options;
    options.environment.emplace_back("XDG_CONFIG_HOME", folder / "config");
    step = runProcess({folder / "prefix/bin/halvorin", "call", "IsPythonLoaded"}, options);
    EXPECT_EQ(step.output, "true\n") << step.error;
}
