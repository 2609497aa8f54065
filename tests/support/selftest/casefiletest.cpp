#include "support/casefile.h"

namespace {

TEST(CaseFile, HoldsCasesWithFields)
{
    const auto cases =
        parseCases("# comment\n\n=== first one\nsource: a b \nerror: none\n\n=== second\nkey:\n", "f");
    ASSERT_EQ(cases.size(), 2u);
    EXPECT_EQ(cases[0].name(), "first one");
    EXPECT_EQ(cases[0].place(), "f:3");
    EXPECT_EQ(cases[0].at("source"), "a b ");
    EXPECT_EQ(cases[0].at("error"), "none");
    EXPECT_EQ(cases[1].at("key"), "");
    EXPECT_FALSE(cases[1].has("source"));
    EXPECT_EQ(cases[1].valueOr("source", "other"), "other");
}

TEST(CaseFile, TakesOneBlankOffAValue)
{
    const auto cases = parseCases("=== a\none: x\ntwo:  x\nthree:x\n", "f");
    EXPECT_EQ(cases[0].at("one"), "x");
    EXPECT_EQ(cases[0].at("two"), " x");
    EXPECT_EQ(cases[0].at("three"), "x");
}

TEST(CaseFile, HoldsBlocksWithTheirInnerLines)
{
    const auto cases = parseCases("=== a\nblock:\n    one\n      two\n\n    # three\n\n\nnext: x", "f");
    EXPECT_EQ(cases[0].at("block"), "one\n  two\n\n# three");
    EXPECT_EQ(cases[0].at("next"), "x");
}

TEST(CaseFile, HoldsRepeatedKeys)
{
    const auto cases = parseCases("=== a\nline: 1\nother: x\nline: 2\n", "f");
    EXPECT_EQ(cases[0].all("line"), (std::vector<std::string>{"1", "2"}));
}

TEST(CaseFile, DecodesWhatIsSaidToBeEscaped)
{
    const auto cases = parseCases("=== a\nraw: \\n\ntext (escaped): a\\n\\t\\r\\\\\\x00\\xffb\n", "f");
    EXPECT_EQ(cases[0].at("raw"), "\\n");
    EXPECT_EQ(cases[0].at("text"), std::string("a\n\t\r\\\0\xff"
                                               "b",
                                               8));
}

TEST(CaseFile, IsRefusedWithItsPlace)
{
    const std::pair<std::string_view, std::string_view> broken[] = {
        {"key: value\n", "f:1: a field before the first case"},
        {"=== a\nno field\n", "f:2: neither a case nor a field"},
        {"=== a\n  indented: x\n", "f:2: neither a case nor a field"},
        {"=== a\n=== b\n\n=== a\n", "f:4: a second case named 'a'"},
        {"=== a\nx (escaped): \\q\n", "f:2: a backslash before neither n, r, t, x nor a backslash"},
        {"=== a\nx (escaped): \\x1\n", "f:2: \\x wants two lower case hexadecimal digits"},
        {"=== a\nx (escaped): \\xFF\n", "f:2: \\x wants two lower case hexadecimal digits"},
    };
    for (const auto& [text, words] : broken) {
        try {
            (void)parseCases(text, "f");
            ADD_FAILURE() << text;
        } catch (const std::runtime_error& failure) {
            EXPECT_EQ(failure.what(), words);
        }
    }
}

TEST(CaseFile, NamesWhatACaseLacks)
{
    const auto cases = parseCases("=== a\n", "f");
    try {
        (void)cases[0].at("source");
        ADD_FAILURE();
    } catch (const std::runtime_error& failure) {
        EXPECT_STREQ(failure.what(), "f:1: the case has no 'source'");
    }
}

TEST(CaseFile, ThatIsNotThereIsRefused)
{
    EXPECT_THROW((void)readCaseFile("/no/such/file.cases"), std::runtime_error);
}

TEST(CaseName, IsAnIdentifierOfFileAndCase)
{
    const auto cases = parseCases("=== a + b, 1e5\n", "some/folder/first.cases");
    EXPECT_EQ(identifierOf(cases[0]), "first_a___b__1e5");
}

} // namespace
