#include "lintcase.h"

namespace {

class UnwritableKey : public testing::TestWithParam<LintCase>
{};

TEST_P(UnwritableKey, IsToldOfMembers)
{
    checkLintCase(GetParam(), FindingKind::unwritableKey);
}

const std::vector<LintCase> keys{
    {"aQuote",
     R"({"states": {«"a\"b"»: {"type": "atomic"}}, "start": "a\"b", "outputs": {}, "outputDelay": 1})",
     R"('a"b': a key with a quote or a backslash cannot be read back once it is written)"},
    {"behindOtherAlphabetsOnItsLine",
     R"({"é": "日本😀", "states": {"a": {"type": "atomic", "ß": 1, «"ü\"b"»: 2}}, "start": "a", "outputs": {}, "outputDelay": 1})",
     R"('ü"b': a key with a quote or a backslash cannot be read back once it is written)"},
    {"aBackslashInAListOfNotes",
     chartOf(R"("a": {"type": "atomic", "notes": [1, {"b": 2, «"c\\d"»: 3}, "\\"]})"),
     R"('c\d': a key with a quote or a backslash cannot be read back once it is written)"},
    {"anyOtherCharacter", chartOf("\"a\": {\"type\": \"atomic\", \"'\\/\\n\\té\": \"\\\"\\\\\"}")},
};
INSTANTIATE_TEST_SUITE_P(Keys, UnwritableKey, testing::ValuesIn(keys));

} // namespace
