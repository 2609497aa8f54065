#ifndef EXAMPLES_H
#define EXAMPLES_H

#include "testfolders.h"

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <string>
#include <vector>

inline std::string readText(const std::filesystem::path& path)
{
    std::ifstream stream(path, std::ios::binary);
    return std::string(std::istreambuf_iterator<char>(stream), {});
}

/// The definitions of the devices in a folder of the examples, in the order of their names.
inline std::vector<std::filesystem::path> definitionsUnder(const char* folder)
{
    std::vector<std::filesystem::path> definitions;
    const std::filesystem::path root = std::filesystem::path(PROJECT_FOLDER) / "examples" / folder;
    for (const auto& entry : std::filesystem::directory_iterator(root))
        definitions.push_back(entry.path() / "definition.json");
    std::sort(definitions.begin(), definitions.end());
    return definitions;
}

#endif
