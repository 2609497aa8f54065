// What an action must not depend on: other compiles, other links, the locale, the life of its text.

#include "languagetester.h"
#include "operatormodel.h"
#include "support/commalocale.h"
#include "support/recordinginterface.h"

#include <thread>

namespace {

constexpr std::string_view countingAction =
    "int n; for (int i = 0; i < 1000; ++i) n += i; print(n); print(1.5);";

TEST(OneBuilder, CompilesLinksAndRunsOnSeveralThreads)
{
    std::vector<std::vector<std::string>> lines(4);
    std::vector<std::thread> threads;
    for (auto& own : lines)
        threads.emplace_back([&own] {
            for (int round = 0; round < 50; ++round)
                own = printedBy(countingAction);
        });
    for (std::thread& thread : threads)
        thread.join();
    for (const auto& own : lines)
        EXPECT_EQ(own, (std::vector<std::string>{"499500", "1.5"}));
}

TEST(TwoLinks, OfOneFormHaveTheirOwnVariables)
{
    const CompileResult compiled = languageBuilder().compileStatements("int x; x += 1; print(x);");
    const LinkedStatements first = languageBuilder().linkStatements(compiled.value());
    const LinkedStatements second = languageBuilder().linkStatements(compiled.value());
    RecordingInterface recorder;
    first.execute(recorder);
    first.execute(recorder);
    second.execute(recorder);
    EXPECT_EQ(recorder.lines, (std::vector<std::string>{"1", "2", "1"}));
}

TEST(ALinkedAction, OutlivesItsTextAndItsForm)
{
    RecordingInterface recorder;
    LinkedStatements linked;
    {
        const std::string source = "string s = \"some text that is longer than a small string\"; print(s);";
        const CompileResult compiled = languageBuilder().compileStatements(source);
        linked = languageBuilder().linkStatements(compiled.value());
    }
    linked.execute(recorder);
    EXPECT_EQ(recorder.lines, std::vector<std::string>{"some text that is longer than a small string"});
}

TEST(ALinkedAction, DoesNotChangeItsForm)
{
    const CompileResult compiled = languageBuilder().compileStatements("int x = 1; ++x; print(x);");
    const JsonValue before = compiled.value();
    RecordingInterface recorder;
    languageBuilder().linkStatements(compiled.value()).execute(recorder);
    EXPECT_EQ(compiled.value(), before);
}

TEST(ANumber, IsReadAndWrittenWithoutTheLocale)
{
    const CommaLocale locale;
    EXPECT_EQ(printedBy("print(1.5); print(1234567); print(format(\"{}\", 2.5e9));"),
              (std::vector<std::string>{"1.5", "1234567", "2.5e+09"}));
}

TEST(CompileResult, GivesItsFindingsInPlaceOfAForm)
{
    const CompileResult result = languageBuilder().compileStatements("x /*");
    EXPECT_FALSE(result.hasValue());
    EXPECT_EQ(result.findings(), (std::vector<Diagnostic>{{32, 4, 0}}));
    EXPECT_TRUE(result.warnings().empty());
    try {
        (void)result.value();
        ADD_FAILURE() << "there is a form";
    } catch (const std::bad_variant_access& failure) {
        EXPECT_STREQ(failure.what(), "bad variant access");
        const auto* kept = dynamic_cast<const CompileFindingsException*>(&failure);
        ASSERT_NE(kept, nullptr);
        EXPECT_EQ(kept->findings(), result.findings());
    }
}

TEST(CompileResult, GivesItsFormAndItsWarnings)
{
    const CompileResult result = languageBuilder().compileStatements("int x;");
    EXPECT_TRUE(result.hasValue());
    EXPECT_TRUE(result.findings().empty());
    EXPECT_EQ(result.warnings(), (std::vector<Diagnostic>{{6, 4, 1}}));
}

} // namespace
