// What an "include" stands for.

#include "grammar/grammartester.h"
#include "support/concatenated.h"
#include "support/qtcore/hostlog.h"

TEST(Include, OfSelfIsTheWholeGrammar)
{
    Tokeniser tokenise(
        R"json("patterns": [{"begin": "\\[", "end": "\\]", "name": "list", "patterns": [{"include": "$self"}]},
        {"match": "[0-9]", "name": "n"}])json");
    EXPECT_EQ(tokenise("[1[2]]\n"),
              (Texts{"0+1 root list", "1+1 root list n", "2+1 root list list", "3+1 root list list n",
                     "4+1 root list list", "5+1 root list", "6+1 root"}));
}

TEST(Include, OfARuleThatIsMissingIsSaid)
{
    const HostLog log;
    Tokeniser tokenise(R"("patterns": [{"include": "#nowhere"}, {"match": "a", "name": "a"}])");
    EXPECT_EQ(tokenise("a\n"), (Texts{"0+1 root a", "1+1 root"}));
    EXPECT_EQ(log.lines(), Texts{"diagnostic: grammar: unable to find rule: #nowhere"});
}

TEST(Include, OfOtherGrammarsIsSaidNotToBeSupported)
{
    const HostLog log;
    Tokeniser tokenise(R"("patterns": [{"include": "source.other"}, {"include": "$base"}])");
    tokenise("a\n");
    EXPECT_EQ(log.lines(), (Texts{"diagnostic: grammar: referencing external grammar files not supported",
                                  "diagnostic: grammar: referencing external grammar files not supported"}));
}

TEST(Include, ThatLeadsBackToItselfGivesNothing)
{
    Tokeniser circle(R"json("patterns": [{"include": "#a"}], "repository": {
        "a": {"patterns": [{"include": "#b"}, {"include": "$self"}]}, "b": {"include": "#a"}})json");
    EXPECT_EQ(circle("a\n"), Texts{"0+2 root"});
    Tokeniser itself(R"json("patterns": [{"include": "#c"}, {"match": "a", "name": "a"}], "repository": {
        "c": {"include": "#c"}})json");
    EXPECT_EQ(itself("a\n"), (Texts{"0+1 root a", "1+1 root"}));
}

TEST(Include, OfSelfWithinTheTopLevelIsTriedWhereItStands)
{
    Tokeniser tokenise(R"json("patterns": [{"include": "#r"}, {"match": "a", "name": "top"}], "repository": {
        "r": {"patterns": [{"include": "$self"}, {"match": "a", "name": "inner"}]}})json");
    EXPECT_EQ(tokenise("a\n"), (Texts{"0+1 root top", "1+1 root"}));
}

namespace {

/// Rules r0 to r(count - 1), of which each includes the next one, and the last one matches an "a".
std::string chainOfIncludes(int count)
{
    std::string repository;
    for (int rule = 0; rule + 1 < count; ++rule)
        repository += concatenated({"\"r", std::to_string(rule), R"(": {"patterns": [{"include": "#r)",
                                    std::to_string(rule + 1), "\"}]},"});
    return concatenated(
        {R"("patterns": [{"include": "#r0"}, {"match": "a", "name": "near"}], "repository": {)", repository,
         "\"r", std::to_string(count - 1), R"(": {"match": "a", "name": "far"}})"});
}

} // namespace

TEST(Include, InIncludesEndsSomewhere)
{
    for (const auto& [count, name] :
         {std::pair(1'000, "far"), std::pair(1'001, "near"), std::pair(100'000, "near")}) {
        const HostLog log;
        Tokeniser tokenise(chainOfIncludes(count));
        EXPECT_EQ(tokenise("a\n"), (Texts{concatenated({"0+1 root ", name}), "1+1 root"})) << count;
        EXPECT_EQ(log.lines(),
                  count > 1'000 ? Texts{"diagnostic: grammar: includes are nested too deeply"} : Texts());
    }
}
