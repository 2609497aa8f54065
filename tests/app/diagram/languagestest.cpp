#include "outlineof.h"

namespace {

using testing::ElementsAre;
using testing::HasSubstr;
using testing::Not;

/// A state whose name has every printable character that means something in one of the languages.
constexpr auto oddState =
    R"json("a": {"type": "atomic", "onEntry": "if (x < 1 && y > \"z\") { w(); }\n\tv();",
    "transitions": {"t#1": {"target": "a", "order": 0, "event": "change", "conditions": "p[0] == 'q';"}}})json";

constexpr auto nested = R"json(
    "a": {"type": "atomic", "transitions": {"in": {"target": "d", "order": 0}, "lost": {"target": "x", "order": 1}}},
    "b": {"type": "compound", "initial": "c", "onEntry": "e();", "substates": {
        "c": {"type": "atomic", "onExit": "f();"}, "d": {"type": "atomic"}},
        "transitions": {"out": {"target": "a", "order": 0, "event": "change"}}},
    "p": {"type": "parallel", "substates": {"q": {"type": "atomic"}, "r": {"type": "atomic"}}})json";

constexpr auto usageText = R"({"states": [{"state": "a", "entered": 3}],
                               "transitions": [{"transition": "in", "taken": 2}]})";

DiagramText written(DiagramText (*write)(const DiagramContent&), const char* states, bool withUsage = false)
{
    const ChartOutline outline = outlineOf(states);
    const ChartUsage usage(usageText);
    return write({outline, withUsage ? &usage : nullptr});
}

constexpr auto lostNote = "transition 'lost' leads to 'x', which is no state";

} // namespace

TEST(DotText, EscapesWhatALabelWouldTakeForMarkup)
{
    const std::string text = textOf(dotText, oddState);
    EXPECT_THAT(text, HasSubstr("entry / if (x &lt; 1 &amp;&amp; y &gt; &quot;z&quot;) { w(); }<br "
                                "align=\"left\"/>&#9;v();"));
    EXPECT_THAT(text, HasSubstr("label=<change [p[0] == 'q';]<br align=\"left\"/>>"));
    EXPECT_THAT(text, HasSubstr("tooltip=<t#1>"));
}

TEST(DotText, DrawsStatesWithStatesInsideAsBoxesThatEdgesEndAt)
{
    const DiagramText result = written(dotText, nested);
    EXPECT_THAT(result.text, HasSubstr("subgraph cluster1 {"));
    EXPECT_THAT(result.text, HasSubstr("start -> state0;"));
    EXPECT_THAT(result.text, HasSubstr("initial1 -> state2;"));
    EXPECT_THAT(result.text, HasSubstr("anchor1 -> state0 [color=\"#2f3b4c\", style=solid, ltail=cluster1"));
    EXPECT_THAT(result.text, HasSubstr("<b>p (parallel)</b>"));
    EXPECT_THAT(result.unsaid, ElementsAre(lostNote));
}

TEST(DotText, ShowsWhatWasUsed)
{
    const DiagramText result = written(dotText, nested, true);
    EXPECT_THAT(result.text, HasSubstr("state0 [color=\"#1b6e35\", fillcolor=\"#dcf3e1\""));
    EXPECT_THAT(result.text, HasSubstr("(3 times)"));
    EXPECT_THAT(result.text, HasSubstr("style=\"rounded,filled,dashed\""));
    EXPECT_THAT(result.text, HasSubstr("(2 times)<br align=\"left\"/>>"));
}

TEST(MermaidText, EscapesWhatALabelWouldTakeForItsOwn)
{
    const std::string text = textOf(mermaidText, oddState);
    EXPECT_THAT(text, HasSubstr("entry / if #40;x #60; 1 #38;#38; y #62; #34;z#34;#41; #123; w#40;#41;#59; "
                                "#125;<br> v#40;#41;#59;"));
    EXPECT_THAT(text, HasSubstr("s0 --> s0 : change #91;p#91;0#93; == 'q'#59;#93;\n"));
}

TEST(MermaidText, SaysWhatItLeavesOut)
{
    const DiagramText result = written(mermaidText, nested);
    EXPECT_THAT(result.text, HasSubstr("    state s1 {\n        [*] --> s2\n"));
    EXPECT_THAT(result.text, HasSubstr("        --\n"));
    EXPECT_THAT(
        result.unsaid,
        ElementsAre("a state with states inside shows no actions: entry / e(); of state 'b'",
                    "transition 'in' from 'a' to 'b/d' crosses the border of a state: not every version "
                    "draws it",
                    lostNote));
}

TEST(MermaidText, ShowsWhatWasUsed)
{
    const DiagramText result = written(mermaidText, nested, true);
    EXPECT_THAT(result.text, HasSubstr("class s0 used\n"));
    EXPECT_THAT(result.text, HasSubstr("class s1 unused\n"));
    EXPECT_THAT(result.text, HasSubstr("s0 --> s3 : 0#58; <br>#40;2 times#41;\n"));
    EXPECT_THAT(result.unsaid,
                testing::Contains("transitions have no colours: numbers say how often one was taken"));
}

TEST(PlantUmlText, EscapesWhatALabelWouldTakeForItsOwn)
{
    const std::string text = textOf(plantUmlText, oddState);
    EXPECT_THAT(text, HasSubstr("s0 : entry &#47; if (x &#60; 1 &#38;&#38; y &#62; &#34;z&#34;) &#123; w(); "
                                "&#125;\\n v();\n"));
    EXPECT_THAT(text, HasSubstr("s0 --> s0 : change &#91;p&#91;0&#93; == 'q';&#93;\n"));
}

TEST(PlantUmlText, NestsStatesAndDividesRegions)
{
    const DiagramText result = written(plantUmlText, nested);
    EXPECT_THAT(result.text, testing::StartsWith("@startuml\n"));
    EXPECT_THAT(result.text, testing::EndsWith("@enduml\n"));
    EXPECT_THAT(result.text, HasSubstr("state \"b\" as s1 {\n  [*] --> s2\n  state \"c\" as s2\n"));
    EXPECT_THAT(result.text, HasSubstr("  state \"q\" as s5\n  --\n  state \"r\" as s6\n"));
    EXPECT_THAT(result.unsaid, ElementsAre(lostNote));
}

TEST(PlantUmlText, ShowsWhatWasUsed)
{
    const std::string text = written(plantUmlText, nested, true).text;
    EXPECT_THAT(text, HasSubstr("state \"a (3 times)\" as s0 #dcf3e1\n"));
    EXPECT_THAT(text, HasSubstr("s0 -[#1b6e35]-> s3"));
    EXPECT_THAT(text, HasSubstr("s1 -[#b3261e,dashed]-> s0"));
}

TEST(ScxmlText, EscapesWhatXmlWouldTakeForItsOwn)
{
    const DiagramText result = written(scxmlText, oddState);
    EXPECT_THAT(result.text, HasSubstr("<device:action>if (x &lt; 1 &amp;&amp; y &gt; &quot;z&quot;) { w(); "
                                       "}&#10;&#9;v();</device:action>"));
    EXPECT_THAT(result.text, HasSubstr("<transition event=\"change\" device:cond=\"p[0] == 'q';\" "
                                       "device:id=\"t#1\" target=\"a\"/>"));
    EXPECT_THAT(
        result.unsaid,
        ElementsAre("an action, kept as an element that others do not run: if (x < 1 && y > \"z\") { "
                    "w(); }\n\tv(); (entry of state 'a')",
                    "a condition, kept as an attribute that others do not read: p[0] == 'q'; (transition "
                    "'t#1')"));
}

TEST(ScxmlText, SaysWhereItsRulesDiffer)
{
    EXPECT_THAT(
        written(scxmlText, nested).unsaid,
        ElementsAre("an action, kept as an element that others do not run: e(); (entry of state 'b')",
                    "an action, kept as an element that others do not run: f(); (exit of state 'b/c')",
                    "transition 'in' runs no entry actions of 'b'; there it does",
                    "transition 'out' runs no exit actions of 'b/c'; there it does", lostNote));
    EXPECT_THAT(written(scxmlText, nested, true).unsaid, testing::Contains("coverage: there are no colours"));
}

TEST(ScxmlText, SaysWhichActionsOfOtherRegionsRunThereAndNotHere)
{
    constexpr auto regions = R"json(
        "a": {"type": "atomic", "transitions": {"in": {"target": "r1", "order": 0, "event": "change"}}},
        "p": {"type": "parallel", "substates": {
            "r1": {"type": "atomic", "transitions": {"go": {"target": "a", "order": 0, "event": "change"}}},
            "r2": {"type": "compound", "initial": "x", "substates": {
                "x": {"type": "atomic", "onEntry": "e();", "onExit": "f();"},
                "y": {"type": "atomic", "onEntry": "e();"}}}}})json";
    const std::vector<std::string> unsaid = written(scxmlText, regions).unsaid;
    EXPECT_THAT(unsaid, testing::Contains("transition 'go' runs no exit actions of 'p/r2/x'; there it does"));
    EXPECT_THAT(unsaid,
                testing::Contains("transition 'in' runs no entry actions of 'p/r2/x'; there it does"));
    EXPECT_THAT(unsaid, Not(testing::Contains(HasSubstr("'p/r2/y'; there")))); // it is not the initial one
}

TEST(ScxmlText, SaysThatATransitionInwardsLeavesItsSourceThere)
{
    constexpr auto inwards = R"json(
        "c": {"type": "compound", "initial": "c1", "onEntry": "e();", "onExit": "f();",
            "substates": {"c1": {"type": "atomic"}, "c2": {"type": "atomic"}},
            "transitions": {"in": {"target": "c2", "order": 0, "event": "change"},
                            "now": {"target": "c", "order": 1}}})json";
    const std::vector<std::string> unsaid = written(scxmlText, inwards).unsaid;
    EXPECT_THAT(unsaid, testing::Contains("transition 'in' runs no exit actions of 'c'; there it does"));
    EXPECT_THAT(unsaid, testing::Contains("transition 'in' runs no entry actions of 'c'; there it does"));
    EXPECT_THAT(unsaid,
                Not(testing::Contains("transition 'now' runs no exit actions of 'c'; there it does")));
    EXPECT_THAT(unsaid,
                testing::Contains("transition 'now' has no event and keeps what is inside of 'c' from being "
                                  "entered; there it is entered first"));
}

TEST(ScxmlText, GivesStatesNamesThatXmlTakesAndNoneTwice)
{
    const DiagramText result = written(scxmlText, R"json(
        "a": {"type": "atomic"}, "b c": {"type": "compound", "initial": "a", "substates": {"a": {"type": "atomic"},
            "state.1": {"type": "atomic"}}})json");
    EXPECT_THAT(result.text, HasSubstr("<state id=\"a\">"));
    EXPECT_THAT(result.text, HasSubstr("<state id=\"state.1\" initial=\"state.2\">"));
    EXPECT_THAT(result.text, HasSubstr("<state id=\"state.3\">"));
    EXPECT_THAT(result.unsaid, ElementsAre("the name of state 'b c', which is 'state.1' there",
                                           "the name of state 'b c/a', which is 'state.2' there",
                                           "the name of state 'b c/state.1', which is 'state.3' there"));
}

TEST(ScxmlText, FindsANameWhereItsOwnAreTakenToo)
{
    const DiagramText result = written(scxmlText, R"json(
        "state.2_": {"type": "atomic"}, "state.2": {"type": "atomic"}, "b c": {"type": "atomic"})json");
    EXPECT_THAT(result.text, HasSubstr("<state id=\"state.2__\">"));
}

TEST(ScxmlText, SendsAWakeWhenItsStateIsEnteredAndCancelsItWhenThatIsLeft)
{
    const DiagramText result = written(scxmlText, R"json("a": {"type": "atomic", "transitions": {
        "w": {"target": "a", "order": 0, "event": "wake", "wakeTime": "2n"},
        "two words": {"target": "a", "order": 1, "event": "wake", "wakeTimeCalc": "f()"}}})json");
    EXPECT_THAT(result.text, HasSubstr("<send event=\"wake.w\" id=\"wake.w\" delay=\"0.000000002s\"/>"));
    EXPECT_THAT(result.text, HasSubstr("<cancel sendid=\"wake.w\"/>"));
    EXPECT_THAT(result.text, HasSubstr("<transition event=\"wake.w\" device:id=\"w\" target=\"a\"/>"));
    EXPECT_THAT(result.text, HasSubstr("<send event=\"wake-1\" id=\"wake-1\" device:delayexpr=\"f()\"/>"));
    EXPECT_THAT(result.text, Not(HasSubstr("wake.two words")));
    EXPECT_THAT(result.unsaid,
                ElementsAre("the time of a wake, kept as an attribute that others do not read: f() "
                            "(transition 'two words')"));
}
