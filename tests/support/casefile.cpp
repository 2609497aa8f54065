#include "support/casefile.h"

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <ostream>
#include <set>
#include <stdexcept>

namespace {

constexpr std::string_view caseMark = "=== ";
constexpr std::string_view escapedMark = " (escaped)";
constexpr std::string_view indent = "    ";

[[noreturn]] void fail(const std::string& file, int line, const std::string& reason)
{
    throw std::runtime_error(file + ":" + std::to_string(line) + ": " + reason);
}

bool isBlank(std::string_view line)
{
    return line.find_first_not_of(" \t") == std::string_view::npos;
}

int hexDigit(char digit)
{
    constexpr std::string_view digits = "0123456789abcdef";
    const auto place = digits.find(digit);
    if (place == std::string_view::npos)
        throw std::runtime_error("\\x wants two lower case hexadecimal digits");
    return static_cast<int>(place);
}

/// Reads the lines of one file into cases.
class CaseParser
{
public:
    CaseParser(std::string_view text, const std::string& file) : m_file(file), m_lines(splitLines(text)) {}

    std::vector<TestCase> parse()
    {
        while (m_next < m_lines.size()) {
            const std::string& line = m_lines[m_next++];
            if (isBlank(line) || line.front() == '#')
                continue;
            if (line.starts_with(caseMark))
                openCase(line.substr(caseMark.size()));
            else
                readField(line);
        }
        return std::move(m_cases);
    }

private:
    int lineNumber() const { return static_cast<int>(m_next); }

    void openCase(std::string name)
    {
        if (!m_names.insert(name).second)
            fail(m_file, lineNumber(), "a second case named '" + name + "'");
        m_cases.emplace_back(m_file, lineNumber(), std::move(name));
    }

    void readField(const std::string& line)
    {
        if (m_cases.empty())
            fail(m_file, lineNumber(), "a field before the first case");
        const auto colon = line.find(':');
        if (colon == std::string::npos || line.front() == ' ')
            fail(m_file, lineNumber(), "neither a case nor a field");
        CaseField field{line.substr(0, colon), line.substr(colon + 1), lineNumber()};
        const bool escaped = field.key.ends_with(escapedMark);
        if (escaped)
            field.key.resize(field.key.size() - escapedMark.size());
        if (field.value.empty())
            field.value = readBlock();
        else if (field.value.front() == ' ')
            field.value.erase(0, 1);
        if (escaped)
            decode(field);
        m_cases.back().add(std::move(field));
    }

    void decode(CaseField& field) const
    {
        try {
            field.value = decodeEscapes(field.value);
        } catch (const std::runtime_error& error) {
            fail(m_file, field.line, error.what());
        }
    }

    std::string readBlock()
    {
        std::string block;
        std::string emptyLines;
        bool first = true;
        for (; m_next < m_lines.size(); ++m_next) {
            const std::string& line = m_lines[m_next];
            if (line.starts_with(indent)) {
                block += emptyLines;
                if (!first)
                    block += '\n';
                block += line.substr(indent.size());
                emptyLines.clear();
                first = false;
            } else if (line.empty()) {
                emptyLines += '\n';
            } else {
                break;
            }
        }
        return block;
    }

    std::string m_file;
    std::vector<std::string> m_lines;
    std::size_t m_next = 0;
    std::set<std::string> m_names;
    std::vector<TestCase> m_cases;
};

} // namespace

TestCase::TestCase(std::string file, int line, std::string name)
    : m_file(std::move(file)), m_line(line), m_name(std::move(name))
{}

std::string TestCase::place() const
{
    return m_file + ":" + std::to_string(m_line);
}

bool TestCase::has(std::string_view key) const
{
    return std::any_of(m_fields.begin(), m_fields.end(),
                       [&](const CaseField& field) { return field.key == key; });
}

const std::string& TestCase::at(std::string_view key) const
{
    for (const CaseField& field : m_fields)
        if (field.key == key)
            return field.value;
    fail(m_file, m_line, "the case has no '" + std::string(key) + "'");
}

std::string TestCase::valueOr(std::string_view key, std::string_view fallback) const
{
    return has(key) ? at(key) : std::string(fallback);
}

std::vector<std::string> TestCase::all(std::string_view key) const
{
    std::vector<std::string> values;
    for (const CaseField& field : m_fields)
        if (field.key == key)
            values.push_back(field.value);
    return values;
}

void TestCase::add(CaseField field)
{
    m_fields.push_back(std::move(field));
}

void PrintTo(const TestCase& testCase, std::ostream* output)
{
    *output << identifierOf(testCase);
}

std::vector<TestCase> parseCases(std::string_view text, const std::string& file)
{
    return CaseParser(text, file).parse();
}

std::vector<TestCase> readCaseFile(const std::string& path)
{
    std::ifstream input(path, std::ios::binary);
    if (!input)
        fail(path, 0, "cannot be read");
    const std::string text(std::istreambuf_iterator<char>(input), {});
    return parseCases(text, path);
}

std::vector<TestCase> readCaseFolder(const std::string& folder)
{
    std::set<std::string> paths;
    for (const auto& entry : std::filesystem::directory_iterator(folder))
        if (entry.path().extension() == ".cases")
            paths.insert(entry.path().string());
    if (paths.empty())
        fail(folder, 0, "no case file");
    std::vector<TestCase> cases;
    for (const std::string& path : paths)
        for (TestCase& testCase : readCaseFile(path))
            cases.push_back(std::move(testCase));
    return cases;
}

std::string identifierOf(const TestCase& testCase)
{
    const std::string place = testCase.place();
    const std::string file = std::filesystem::path(place.substr(0, place.rfind(':'))).stem().string();
    std::string identifier = file + "_" + testCase.name();
    std::replace_if(
        identifier.begin(), identifier.end(),
        [](char c) { return !((c >= '0' && c <= '9') || (c >= 'A' && c <= 'Z') || (c >= 'a' && c <= 'z')); },
        '_');
    return identifier;
}

std::string decodeEscapes(std::string_view text)
{
    std::string decoded;
    for (std::size_t i = 0; i < text.size(); ++i) {
        if (text[i] != '\\') {
            decoded += text[i];
            continue;
        }
        const char kind = ++i < text.size() ? text[i] : '\0';
        switch (kind) {
        case 'n':
            decoded += '\n';
            break;
        case 'r':
            decoded += '\r';
            break;
        case 't':
            decoded += '\t';
            break;
        case '\\':
            decoded += '\\';
            break;
        case 'x':
            if (i + 2 >= text.size())
                throw std::runtime_error("\\x wants two lower case hexadecimal digits");
            decoded += static_cast<char>(hexDigit(text[i + 1]) * 16 + hexDigit(text[i + 2]));
            i += 2;
            break;
        default:
            throw std::runtime_error("a backslash before neither n, r, t, x nor a backslash");
        }
    }
    return decoded;
}

std::vector<std::string> splitLines(std::string_view text)
{
    std::vector<std::string> lines;
    while (!text.empty()) {
        const auto end = text.find('\n');
        lines.emplace_back(text.substr(0, end));
        text.remove_prefix(end == std::string_view::npos ? text.size() : end + 1);
    }
    return lines;
}
