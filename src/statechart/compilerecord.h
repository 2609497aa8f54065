#ifndef COMPILERECORD_H
#define COMPILERECORD_H

#include "actionlanguage/compileresult.h"
#include "statechart/json/jsonplace.h"
#include "statechart/json/jsonvalue.h"
#include "statechart/outofmemory.h"

#include <cstddef>
#include <exception>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

/// A text of the action language in a definition, in the words that the language's compiler got.
struct ActionText
{
    JsonPlace place;
    std::string source;      ///< the text that was compiled
    std::size_t wrapped = 0; ///< bytes that stand in `source` before those of the definition
    std::size_t length = 0;  ///< bytes of the definition's own text

    /// The address of the definition's own text, which tells it from all others of that definition. Not to be
    /// read: the definition may be gone.
    const void* identity = nullptr;
};

/// What a compiler does when a part of a definition is wrong.
enum class OnFailure
{
    raise, ///< ends the compile with an exception: there is no partial result
    goOn,  ///< keeps the failure and goes on with the next part: for tools that show all of them
};

/// What a compile of a definition leaves behind for tools that show it: its failures, and its action texts
/// with their warnings, each with its place. The texts of exceptions name a place for readers only, and not
/// each does.
///
/// A compiler says where it goes by steps; while an exception leaves, the innermost step remembers the place.
/// What can fail apart from the rest is an attempt.
///
///     record.attempt([&] {
///         const CompileRecord::Step step = record.enter("start");
///         definition.at("start").asString();   // whatever it raises, its place is {"start"}
///     });
class CompileRecord
{
public:
    struct Failure
    {
        JsonPlace place; ///< the innermost that the compile had gone to, maybe that of a missing member
        std::optional<ActionText> text; ///< when it was the compile of a text that failed
        std::exception_ptr exception;
    };

    /// A text that compiled.
    struct CompiledText
    {
        ActionText text;
        std::vector<Diagnostic> warnings;
        JsonValue form; ///< with OnFailure::goOn only; null otherwise
    };

    explicit CompileRecord(OnFailure onFailure = OnFailure::raise) : m_onFailure(onFailure) {}

    /// Forgets what was recorded.
    void clear() { *this = CompileRecord(m_onFailure); }

    /// Runs `body`; with OnFailure::goOn, what it raises becomes one of failures(), unless memory ran out.
    template <class Body>
    void attempt(Body body)
    {
        if (m_onFailure == OnFailure::raise) {
            body();
            return;
        }
        try {
            body();
        } catch (const std::exception& failure) {
            if (isOutOfMemory(failure))
                throw;
            keepFailure(std::current_exception());
        }
    }

    /// What an attempt does with an exception; for the one who catches the last.
    void keepFailure(std::exception_ptr exception);

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

        /// Hands the compiled form on; with OnFailure::goOn the record keeps it, and null goes on.
        /// @throws CompileFindingsException when there is none.
        JsonValue keep(CompileResult result);

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

    const std::vector<Failure>& failures() const { return m_failures; }

    /// The texts that compiled; with OnFailure::raise only those with warnings.
    const std::vector<CompiledText>& texts() const { return m_texts; }

private:
    struct Level
    {
        JsonPathSegment segment;
        JsonPlace place; // made when it is first asked for; the top until then
    };

    JsonPlace place();

    OnFailure m_onFailure;
    std::vector<Level> m_levels;
    std::optional<JsonPlace> m_failedPlace; // of the exception on its way out
    std::optional<ActionText> m_failedText;
    std::vector<Failure> m_failures;
    std::vector<CompiledText> m_texts;
};

#endif
