#ifndef FINDINGREPORT_H
#define FINDINGREPORT_H

#include "actionlanguage/tokens/diagnostic.h"
#include "statechart/check/finding.h"
#include "statechart/check/findingrules.h"
#include "statechart/check/linemap.h"
#include "statechart/compilerecord.h"
#include "statechart/json/jsonlocator.h"

#include <vector>

/// Gathers the findings about one definition and puts each in its place in the text.
class FindingReport
{
public:
    FindingReport(std::string_view definition, const FindingRules& rules)
        : m_definition(definition), m_rules(rules), m_lines(definition)
    {}

    /// What to say, and the code in a table of the language if it has one.
    struct Words
    {
        FindingKind kind;
        std::string text;
        std::optional<std::uint32_t> code = std::nullopt;
    };

    /// About bytes of the definition.
    void addAtOffset(const Words& words, const JsonRange& range) { add(words, {}, range); }

    /// About the value at a path, or about its want: a simple value is pointed at itself, but the key of a
    /// large one and of one that lacks something.
    void addAt(const Words& words, const JsonPath& path) { add(words, path, rangeOf(path)); }

    /// About a member as such: its key is pointed at.
    void addAtKey(const Words& words, const JsonPath& path);

    /// About a piece of an action text, or all of it. `positionUnknown` stands for its end.
    void addInText(const Words& words, const ActionText& text, const std::optional<SourceSpan>& span);

    /// The text of the definition, and where the value at a path stands in it.
    std::string_view definition() const { return m_definition; }
    JsonLocation locate(const JsonPath& path) { return locator().locate(path); }

    /// The findings in the order of the text.
    std::vector<Finding> take();

private:
    void add(const Words& words, const JsonPath& path, const JsonRange& range);
    JsonLocator& locator();
    const JsonStringOffsets& offsetsIn(const ActionText& text);
    JsonRange rangeOf(const JsonPath& path);

    std::string_view m_definition;
    const FindingRules& m_rules;
    LineMap m_lines;
    std::optional<JsonLocator> m_locator; // made for the first finding: most definitions have none
    const ActionText* m_offsetsText = nullptr;
    std::optional<JsonStringOffsets> m_offsets; // in that text: many findings may be about one
    std::vector<Finding> m_findings;
};

#endif
