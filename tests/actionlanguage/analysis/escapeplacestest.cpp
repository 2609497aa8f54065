#include "actionlanguage/analysis/escapeplaces.h"

#include "actionlanguage/buildrules.h"
#include "actionlanguage/codebuilder.h"

#include <gtest/gtest.h>

namespace {

/// What is blamed by the warnings of a text.
std::vector<std::string> escapesOf(const std::string& source)
{
    const CodeBuilder builder(std::make_shared<const BuildRules>(FunctionRules()));
    const CompileResult result = builder.compileStatements(source);
    const EscapePlaces places(source);
    std::vector<std::string> escapes;
    for (const Diagnostic& warning : result.warnings()) {
        const SourceSpan place = places.placeOf(warning.position);
        escapes.push_back(std::to_string(place.position) + source.substr(place.position, place.length));
    }
    return escapes;
}

using Escapes = std::vector<std::string>;

TEST(EscapePlaces, AreTheBackslashAndTheCharacterBehindIt)
{
    EXPECT_EQ(escapesOf("print(\"\\q\");"), Escapes{"7\\q"});
    EXPECT_EQ(escapesOf("print(\"aaaa\\q\");"), Escapes{"11\\q"});
    EXPECT_EQ(escapesOf("print(\"\\qaaaa\");"), Escapes{"7\\q"});
    EXPECT_EQ(escapesOf("char c = '\\q'; c;"), Escapes{"10\\q"});
    EXPECT_EQ(escapesOf("print(\"\xc3\xa9\\\xc3\x9f\");"), Escapes{"9\\\xc3\x9f"});
    EXPECT_EQ(escapesOf("print(\"\\q\"); print(\"a\\wb\\v\\x\");"), (Escapes{"7\\q", "21\\w", "26\\x"}));
}

TEST(EscapePlaces, LeavePositionsOutsideOfLiteralsAlone)
{
    const EscapePlaces places("a = \"b\";");
    for (const std::uint64_t position : {0u, 3u, 4u, 7u, 100u}) {
        EXPECT_EQ(places.placeOf(position).position, position);
        EXPECT_EQ(places.placeOf(position).length, 1u);
    }
}

} // namespace
