#include <cstdint>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iostream>
#include <iterator>
#include <string>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size);

/// Runs a fuzz target once over every file of the folders given. A finding ends the process, as it does under
/// the fuzzer; the name of the last file printed is the one that did it.
int main(int argc, char** argv)
{
    std::size_t count = 0;
    for (int index = 1; index < argc; ++index) {
        for (const auto& entry : std::filesystem::directory_iterator(argv[index])) {
            std::cout << entry.path().filename().native() << std::endl;
            std::ifstream file(entry.path(), std::ios::binary);
            const std::string text{std::istreambuf_iterator<char>(file), {}};
            LLVMFuzzerTestOneInput(reinterpret_cast<const std::uint8_t*>(text.data()), text.size());
            ++count;
        }
    }
    std::cout << count << " inputs\n";
    return count == 0 ? EXIT_FAILURE : EXIT_SUCCESS;
}
