#ifndef CASEFILE_H
#define CASEFILE_H

#include <string>
#include <string_view>
#include <vector>

/// Tests as data. A case file holds cases of one family; a small runner gives the fields their meaning.
///
///     # a line that starts with '#' is a comment
///     === minus runs after plus
///     source: print(1 - 2 + 3);
///     prints: -4
///
///     === a value of several lines is indented by four blanks
///     source:
///         int x = 1;
///         print(x);
///     prints: 1
///
///     === bytes that a text file should not hold
///     source (escaped): print("\x07");
///
/// A value stands behind "key: " to the end of its line, blanks at the end included; a block keeps its
/// inner line ends and loses the empty lines behind it. With " (escaped)" behind the key, "\n", "\r", "\t",
/// "\\" and "\xHH" are decoded; everything else stands for itself. A key may repeat.
/// To add a case, add lines; names are unique within a file.
struct CaseField
{
    std::string key;
    std::string value;
    int line = 0;
};

class TestCase
{
public:
    TestCase(std::string file, int line, std::string name);

    const std::string& name() const { return m_name; }
    /// "FILE:LINE", the way compilers write it.
    std::string place() const;
    const std::vector<CaseField>& fields() const { return m_fields; }

    bool has(std::string_view key) const;
    /// The value of the first field with this key. @throws std::runtime_error, with the place, when absent.
    const std::string& at(std::string_view key) const;
    std::string valueOr(std::string_view key, std::string_view fallback) const;
    /// The values of all fields with this key, in the order of the file.
    std::vector<std::string> all(std::string_view key) const;

    void add(CaseField field);

private:
    std::string m_file;
    int m_line;
    std::string m_name;
    std::vector<CaseField> m_fields;
};

/// What GoogleTest shows of a case.
void PrintTo(const TestCase& testCase, std::ostream* output);

/// @throws std::runtime_error "FILE:LINE: reason" when the file cannot be read or is not in the format.
std::vector<TestCase> readCaseFile(const std::string& path);

/// All cases of all "*.cases" in a folder, in the order of the file names.
std::vector<TestCase> readCaseFolder(const std::string& folder);

/// The same from text, for the reader's own tests.
std::vector<TestCase> parseCases(std::string_view text, const std::string& file);

/// A name that GoogleTest takes: file and case, letters, digits and underscores.
std::string identifierOf(const TestCase& testCase);

/// Decodes what " (escaped)" stands for. @throws std::runtime_error for a backslash before anything else.
std::string decodeEscapes(std::string_view text);

/// The lines of a text; a line end at its very end begins no further line.
std::vector<std::string> splitLines(std::string_view text);

#endif
