#ifndef COMPILERECORD_H
#define COMPILERECORD_H

#include "actionlanguage/tokens/diagnostic.h"
#include "statechart/json/jsonlocator.h"

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

/// A text of the action language in a definition, in the words that the language's compiler got.
struct ActionText
{
    JsonPath path;
    std::string source;      ///< the text that was compiled
    std::size_t wrapped = 0; ///< bytes that stand in `source` before those of the definition
    std::size_t length = 0;  ///< bytes of the definition's own text
};

/// What a compile of a definition leaves behind for tools that show it: the warnings of its action texts,
/// and the place where it failed. The texts of exceptions name a place for readers only, and not each does.
///
/// A compiler says where it goes by steps; while an exception leaves, the innermost step remembers the place.
///
///     const CompileRecord::Step step = record.enter("start");
///     definition.at("start").asString();   // whatever it raises, failure() is {"start"}
class CompileRecord
{
public:
    struct TextWarnings
    {
        ActionText text;
        std::vector<Diagnostic> warnings;
    };

    class [[nodiscard]] Step
    {
    public:
        Step(CompileRecord& record, JsonPathSegment segment);
        Step(const Step&) = delete;
        Step& operator=(const Step&) = delete;
        ~Step();

    private:
        CompileRecord& m_record;
        int m_exceptions;
    };

    class [[nodiscard]] TextStep
    {
    public:
        TextStep(CompileRecord& record, std::string_view text, std::string_view before,
                 std::string_view behind);
        TextStep(const TextStep&) = delete;
        TextStep& operator=(const TextStep&) = delete;
        ~TextStep();

        const std::string& source() const { return m_text.source; }
        void keepWarnings(const std::vector<Diagnostic>& warnings);

    private:
        CompileRecord& m_record;
        ActionText m_text;
        int m_exceptions;
    };

    Step enter(std::string_view key) { return Step(*this, std::string(key)); }
    Step enter(std::size_t index) { return Step(*this, index); }

    /// The compile of the text at the present place, put between what has to stand around it.
    TextStep enterText(std::string_view text, std::string_view before = {}, std::string_view behind = {})
    {
        return TextStep(*this, text, before, behind);
    }

    /// The place that the compile failed at: the innermost that it had gone to, which may be that of a
    /// member which is missing.
    const std::optional<JsonPath>& failure() const { return m_failure; }

    /// The text whose compile failed, if it was that of a text.
    const std::optional<ActionText>& failedText() const { return m_failedText; }

    const std::vector<TextWarnings>& warnings() const { return m_warnings; }

private:
    JsonPath m_place;
    std::optional<JsonPath> m_failure;
    std::optional<ActionText> m_failedText;
    std::vector<TextWarnings> m_warnings;
};

#endif
