#include "grammar/grammar.h"

#include "grammar/debugstream.h"
#include "grammar/grammartester.h"
#include "support/qtcore/hostlog.h"
#include "support/temporaryfolder.h"

#include <QCborMap>
#include <QCborValue>
#include <QStringList>

using namespace Halvorin::TextMate;

namespace {

constexpr auto wholeGrammar = R"json({
    "name": "Test", "version": "1", "information_for_contributors": ["none"],
    "scopeName": "source.test", "fileTypes": ["t", "test"],
    "foldingStartMarker": "\\{", "foldingStopMarker": "\\}", "firstLineMatch": "^#!",
    "patterns": [{"include": "#all"}],
    "repository": {"all": {"patterns": [{"name": "a", "match": "x(y)", "captures": {"1": {"name": "y"}}},
        {"name": "b", "contentName": "c", "begin": "<(\\w)", "end": "\\1>", "beginCaptures": {"0": {"name": "open"}},
         "endCaptures": {"0": {"name": "close"}}, "patterns": [{"include": "$self"}]}]}}})json";

constexpr auto wholePropertyList = R"xml(<?xml version="1.0" encoding="UTF-8"?>
<!DOCTYPE plist>
<plist version="1.0"><dict>
  <key>name</key><string>Test</string>
  <key>scopeName</key><string>source.test</string>
  <key>fileTypes</key><array><string>t</string><string>test</string></array>
  <key>foldingStartMarker</key><string>\{</string>
  <key>foldingStopMarker</key><string>\}</string>
  <key>firstLineMatch</key><string>^#!</string>
  <key>patterns</key><array><dict><key>include</key><string>#all</string></dict></array>
  <key>repository</key><dict><key>all</key><dict><key>patterns</key><array>
    <dict><key>name</key><string>a</string><key>match</key><string>x(y)</string>
      <key>captures</key><dict><key>1</key><dict><key>name</key><string>y</string></dict></dict></dict>
    <dict><key>name</key><string>b</string><key>contentName</key><string>c</string>
      <key>begin</key><string>&lt;(\w)</string><key>end</key><string>\1&gt;</string>
      <key>beginCaptures</key><dict><key>0</key><dict><key>name</key><string>open</string></dict></dict>
      <key>endCaptures</key><dict><key>0</key><dict><key>name</key><string>close</string></dict></dict>
      <key>patterns</key><array><dict><key>include</key><string>$self</string></dict></array></dict>
  </array></dict></dict>
</dict></plist>)xml";

class GrammarFile : public testing::Test
{
protected:
    Grammar load(const char* name, const std::string& content) const
    {
        return Grammar(QString::fromStdString(folder.write(name, content).string()));
    }

    static std::string binary(const char* json)
    {
        const QJsonObject object = QJsonDocument::fromJson(json).object();
        return QCborValue(QCborMap::fromJsonObject(object)).toCbor().toStdString();
    }

    static void expectWhole(const Grammar& grammar)
    {
        EXPECT_EQ(grammar.scopeName(), QStringLiteral("source.test"));
        EXPECT_EQ(grammar.fileTypes(), (QStringList{QStringLiteral("t"), QStringLiteral("test")}));
        EXPECT_EQ(grammar.foldingStartMarker().pattern(), QStringLiteral("\\{"));
        EXPECT_EQ(grammar.foldingStopMarker().pattern(), QStringLiteral("\\}"));
        EXPECT_EQ(grammar.firstLineMatch().pattern(), QStringLiteral("^#!"));
        ASSERT_EQ(grammar.patterns().size(), 1U);
        EXPECT_EQ(grammar.patterns()[0].include, QStringLiteral("#all"));
        ASSERT_NE(grammar.rule(QStringLiteral("all")), nullptr);
        EXPECT_EQ(grammar.rule(QStringLiteral("none")), nullptr);
        const std::vector<GrammarRule>& rules = *grammar.rule(QStringLiteral("all"))->patterns;
        ASSERT_EQ(rules.size(), 2U);
        EXPECT_EQ(rules[0].name, QStringLiteral("a"));
        EXPECT_EQ(rules[0].match->pattern(), QStringLiteral("x(y)"));
        EXPECT_NE(rules[0].match->compiled(), nullptr);
        EXPECT_EQ(rules[0].captures.at(1).name, QStringLiteral("y"));
        EXPECT_FALSE(rules[0].begin || rules[0].end || rules[0].contentName || rules[0].include ||
                     rules[0].patterns);
        EXPECT_EQ(rules[1].contentName, QStringLiteral("c"));
        EXPECT_EQ(rules[1].begin->pattern(), QStringLiteral("<(\\w)"));
        EXPECT_EQ(rules[1].end->pattern(), QStringLiteral("\\1>"));
        EXPECT_TRUE(rules[1].end->hasBackReference());
        EXPECT_EQ(rules[1].end->compiled(), nullptr);
        EXPECT_EQ(rules[1].beginCaptures.at(0).name, QStringLiteral("open"));
        EXPECT_EQ(rules[1].endCaptures.at(0).name, QStringLiteral("close"));
        EXPECT_EQ(rules[1].patterns->at(0).include, QStringLiteral("$self"));
    }

    TemporaryFolder folder;
};

} // namespace

TEST_F(GrammarFile, IsReadAsJson)
{
    expectWhole(load("g.json", wholeGrammar));
}

TEST_F(GrammarFile, IsReadAsCbor)
{
    expectWhole(load("g.dat", binary(wholeGrammar)));
}

TEST_F(GrammarFile, IsReadAsAPropertyList)
{
    expectWhole(load("g.tmLanguage", wholePropertyList));
}

TEST_F(GrammarFile, IsKnownByItsSuffixWhateverTheCase)
{
    EXPECT_EQ(load("GRAMMAR.JSON", wholeGrammar).scopeName(), QStringLiteral("source.test"));
    EXPECT_EQ(Grammar::type(QStringLiteral("a.json")), GrammarType::Json);
    EXPECT_EQ(Grammar::type(QStringLiteral("a.tmLanguage.json")), GrammarType::Json);
    EXPECT_EQ(Grammar::type(QStringLiteral("A.DAT")), GrammarType::Binary);
    EXPECT_EQ(Grammar::type(QStringLiteral("a.TMLANGUAGE")), GrammarType::PropertyList);
    EXPECT_EQ(Grammar::type(QStringLiteral("a.txt")), GrammarType::Unknown);
    EXPECT_EQ(static_cast<int>(GrammarType::Unknown), 0);
    EXPECT_EQ(static_cast<int>(GrammarType::Binary), 1);
    EXPECT_EQ(static_cast<int>(GrammarType::Json), 2);
    EXPECT_EQ(static_cast<int>(GrammarType::PropertyList), 3);
}

TEST_F(GrammarFile, IsEmptyWhenItCannotBeRead)
{
    const std::string cut = std::string(wholePropertyList).substr(0, 300);
    for (const Grammar& grammar :
         {Grammar(QStringLiteral("/nowhere/g.json")), load("g.txt", wholeGrammar), load("g.json", "not JSON"),
          load("g.json", "[]"), load("g.dat", "not CBOR"), load("g.tmLanguage", "<plist>"),
          load("g.tmLanguage", ""), load("g.json", ""), load("g.tmLanguage", cut),
          load("g.tmLanguage", "<a><dict/></a>")})
        EXPECT_TRUE(grammar.patterns().empty());
}

TEST_F(GrammarFile, SaysWhyItCannotBeRead)
{
    const std::string start = "diagnostic: grammar: unable to read grammar: ";
    const std::vector<std::pair<const char*, std::string>> files{
        {"g.json", "not JSON"},
        {"g.json", "[]"},
        {"g.dat", "\xff"},
        {"g.dat", "\x80"},
        {"g.tmLanguage", "<a"},
        {"g.tmLanguage", "<plist><array/></plist>"},
        {"g.tmLanguage", "<plist><dict><key>patterns</key><array>"}};
    for (const auto& [name, content] : files) {
        const HostLog log;
        load(name, content);
        ASSERT_EQ(log.lines().size(), 1U) << content;
        EXPECT_TRUE(log.lines()[0].starts_with(start)) << log.lines()[0];
        EXPECT_GT(log.lines()[0].size(), start.size()) << content;
    }
    const HostLog log;
    load("g.json", "[]");
    EXPECT_EQ(log.lines(), std::vector<std::string>{start + "there is no object in it"});
}

TEST_F(GrammarFile, ThatCannotBeOpenedIsEmptyWithoutAReport)
{
    const HostLog log;
    EXPECT_TRUE(Grammar(QStringLiteral("/nowhere/g.json")).patterns().empty());
    EXPECT_TRUE(load("g.txt", wholeGrammar).patterns().empty());
    EXPECT_TRUE(log.lines().empty());
}

TEST_F(GrammarFile, HasEmptyMarkersWhereTheFileHasNone)
{
    const Grammar grammar = load("g.json", R"({"scopeName": "s"})");
    EXPECT_TRUE(grammar.foldingStartMarker().pattern().isEmpty());
    EXPECT_TRUE(grammar.foldingStopMarker().pattern().isEmpty());
    EXPECT_TRUE(grammar.firstLineMatch().pattern().isEmpty());
}

TEST_F(GrammarFile, MayHaveValuesOfWrongTypes)
{
    const Grammar grammar = load(
        "g.json", R"({"scopeName": 5, "fileTypes": {"a": 1}, "patterns": [5, {"match": [], "captures": [1],
        "beginCaptures": {"x": {"name": "a"}, "1": 5}, "patterns": {}}], "repository": [{}]})");
    EXPECT_EQ(grammar.patterns().size(), 2U);
    GrammarProcessor processor(std::make_shared<const Grammar>(grammar));
    processor.tokenise(QStringLiteral("a\n"));
}

TEST_F(GrammarFile, SaysWhichKeysOfACaptureItDoesNotKnow)
{
    const DebugStream stream;
    const Grammar grammar =
        load("g.json", R"({"patterns": [{"match": "x", "captures": {"1": {"name": "a", "patterns": []}}}]})");
    EXPECT_EQ(grammar.patterns()[0].captures.at(1).name, QStringLiteral("a"));
    EXPECT_EQ(DebugStream::messages(), QStringList{QStringLiteral("extra keys: patterns")});
}

TEST_F(GrammarFile, SaysWhichKeysOfAPropertyListItSkips)
{
    const DebugStream stream;
    load("g.tmLanguage", "<plist><dict><key>uuid</key><string>1</string><key>patterns</key><array><dict>"
                         "<key>comment</key><string>no</string></dict></array></dict></plist>");
    EXPECT_EQ(DebugStream::messages(),
              (QStringList{QStringLiteral("skipped: uuid"), QStringLiteral("skipped: comment")}));
}

TEST_F(GrammarFile, SaysWhichKeysOfACaptureInAPropertyListItDoesNotKnow)
{
    const DebugStream stream;
    const Grammar grammar = load(
        "g.tmLanguage",
        "<plist><dict><key>patterns</key><array><dict><key>match</key><string>x</string><key>captures</key>"
        "<dict><key>1</key><dict><key>name</key><string>a</string><key>patterns</key><array/></dict></dict>"
        "</dict></array></dict></plist>");
    EXPECT_EQ(grammar.patterns()[0].captures.at(1).name, QStringLiteral("a"));
    EXPECT_EQ(DebugStream::messages(), QStringList{QStringLiteral("extra keys: patterns")});
}

TEST_F(GrammarFile, PassesOverCapturesThatAreNoRecords)
{
    const Grammar grammar = load(
        "g.tmLanguage",
        "<plist><dict><key>patterns</key><array><dict><key>captures</key><dict><key>1</key><string>a</string>"
        "<key>x</key><dict/><key>2</key><dict/></dict><key>match</key><string>x</string></dict></array></"
        "dict>"
        "</plist>");
    ASSERT_EQ(grammar.patterns().size(), 1U);
    EXPECT_EQ(grammar.patterns()[0].captures.size(), 1U);
    EXPECT_EQ(grammar.patterns()[0].captures.count(2), 1U);
    EXPECT_EQ(grammar.patterns()[0].match->pattern(), QStringLiteral("x"));
}

TEST_F(GrammarFile, KeepsCarriageReturnsOfCbor)
{
    const Grammar grammar =
        load("g.dat", binary(R"({"patterns": [{"match": "a\rb", "name": "thirteen long"}]})"));
    ASSERT_EQ(grammar.patterns().size(), 1U);
    EXPECT_EQ(grammar.patterns()[0].match->pattern(), QStringLiteral("a\rb"));
    EXPECT_EQ(grammar.patterns()[0].name, QStringLiteral("thirteen long"));
}

TEST_F(GrammarFile, PassesOverRulesOfAPropertyListThatAreTooDeep)
{
    std::string open;
    std::string close;
    for (int depth = 0; depth < 2000; ++depth) {
        open += "<key>patterns</key><array><dict>";
        close += "</dict></array>";
    }
    const Grammar grammar = load("g.tmLanguage", "<plist><dict>" + open + close + "</dict></plist>");
    int depth = 0;
    for (const std::vector<GrammarRule>* rules = &grammar.patterns(); !rules->empty(); ++depth) {
        if (!rules->front().patterns)
            break;
        rules = &*rules->front().patterns;
    }
    EXPECT_EQ(depth, 500);
}

TEST_F(GrammarFile, RefusesEntitiesOfAPropertyList)
{
    const HostLog log;
    const Grammar grammar = load("g.tmLanguage", "<!DOCTYPE plist [<!ENTITY a \"aaaaaaaaaa\">]><plist><dict>"
                                                 "<key>scopeName</key><string>&a;</string></dict></plist>");
    EXPECT_EQ(grammar.scopeName(), QString());
    EXPECT_EQ(log.lines(),
              std::vector<std::string>{
                  "diagnostic: grammar: unable to read grammar: entities are declared (line 1)"});
}

TEST_F(GrammarFile, SaysWhichExpressionIsNotValid)
{
    const DebugStream stream;
    const Grammar grammar = load("g.json", R"({"patterns": [{"match": "(a"}, {"match": "b"}]})");
    EXPECT_EQ(grammar.patterns().size(), 2U);
    ASSERT_EQ(DebugStream::messages().size(), 1);
    EXPECT_EQ(DebugStream::messages().constFirst(),
              QStringLiteral("Expression error: (a with reason ") +
                  QRegularExpression(QStringLiteral("(a")).errorString());
}

TEST(GrammarExpression, IsKeptAsTextWithAnAnchorOrABackReference)
{
    for (const char* pattern : {"(?<=\\G)x", "\\Aa", "(a)\\1", "\\12"}) {
        const GrammarExpression expression{QString::fromUtf8(pattern)};
        EXPECT_EQ(expression.compiled(), nullptr) << pattern;
        EXPECT_EQ(expression.pattern(), QString::fromUtf8(pattern));
    }
    EXPECT_TRUE(GrammarExpression(QStringLiteral("(?<=\\G)x")).hasAnchorG());
    EXPECT_TRUE(GrammarExpression(QStringLiteral("\\Aa")).hasAnchorA());
}

TEST(GrammarExpression, HasABackReferenceFromOneToNineOnly)
{
    EXPECT_TRUE(EndGrammarExpression(QStringLiteral("\\1")).hasBackReference());
    EXPECT_TRUE(EndGrammarExpression(QStringLiteral("x\\9y")).hasBackReference());
    EXPECT_FALSE(EndGrammarExpression(QStringLiteral("\\0")).hasBackReference());
    EXPECT_FALSE(EndGrammarExpression(QStringLiteral("\\w1")).hasBackReference());
}

TEST(GrammarExpression, IsEmptyWhenDefaultMade)
{
    EXPECT_TRUE(GrammarExpression().isEmpty());
    EXPECT_TRUE(GrammarExpression().pattern().isEmpty());
    EXPECT_FALSE(GrammarExpression(QString()).isEmpty());
}
