#include "support/valuechanges.h"

#include <array>
#include <charconv>
#include <sstream>
#include <stdexcept>
#include <unordered_map>

namespace {

std::string roundedReal(const std::string& value)
{
    double number = 0;
    std::from_chars(value.data() + 1, value.data() + value.size(), number);
    std::array<char, 32> digits;
    const auto end =
        std::to_chars(digits.data(), digits.data() + digits.size(), number, std::chars_format::general, 12)
            .ptr;
    return {digits.data(), end};
}

/// "\\x20" and "\\040" are both a blank.
std::string decodedText(const std::string& value)
{
    std::string text;
    for (std::size_t at = 0; at < value.size(); ++at) {
        if (value[at] != '\\' || at + 3 >= value.size()) {
            text += value[at];
            continue;
        }
        const bool isHexadecimal = value[at + 1] == 'x';
        const std::string digits = isHexadecimal ? value.substr(at + 2, 2) : value.substr(at + 1, 3);
        text += static_cast<char>(std::stoi(digits, nullptr, isHexadecimal ? 16 : 8));
        at += 3;
    }
    return text;
}

std::string normalised(const std::string& value)
{
    if (value.front() == 'r')
        return roundedReal(value);
    return value.front() == 's' ? decodedText(value) : value;
}

class DumpReader
{
public:
    explicit DumpReader(std::string_view dump) : m_words(std::string(dump)) {}

    std::map<std::string, ValueChanges> read()
    {
        for (std::string line; std::getline(m_words, line);)
            if (!line.empty())
                readLine(line);
        return std::move(m_changes);
    }

private:
    void readLine(const std::string& line)
    {
        if (line.front() == '$') {
            readCommand(line);
        } else if (line.front() == '#') {
            m_time = std::stoll(line.substr(1));
        } else if (m_isPastHead) {
            readValue(line);
        }
    }

    void readCommand(const std::string& line)
    {
        std::istringstream words(line);
        std::string command;
        std::string kind;
        std::string name;
        words >> command >> kind >> name;
        if (command == "$scope") {
            m_scopes.push_back(name);
        } else if (command == "$upscope") {
            m_scopes.pop_back();
        } else if (command == "$var") { // where the "name" is the width
            std::string code;
            words >> code >> name;
            std::string path;
            for (const std::string& scope : m_scopes)
                path.append(scope).append(".");
            m_names[code] = path + name;
            m_changes[path + name];
        } else if (command == "$enddefinitions") {
            m_isPastHead = true;
        }
    }

    void readValue(const std::string& line)
    {
        const bool isOneLevel = line.front() == '0' || line.front() == '1';
        const std::size_t end = isOneLevel ? 1 : line.rfind(' ');
        if (end == std::string::npos)
            throw std::runtime_error("not a value: " + line);
        const std::string code = line.substr(isOneLevel ? end : end + 1);
        const std::string value = line.substr(0, end);
        m_changes.at(m_names.at(code)).emplace_back(m_time, normalised(value));
    }

    std::istringstream m_words;
    std::vector<std::string> m_scopes;
    std::unordered_map<std::string, std::string> m_names; // by code
    std::map<std::string, ValueChanges> m_changes;
    long long m_time = 0;
    bool m_isPastHead = false;
};

} // namespace

std::map<std::string, ValueChanges> valueChangesOf(std::string_view dump)
{
    return DumpReader(dump).read();
}
