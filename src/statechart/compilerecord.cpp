#include "statechart/compilerecord.h"

#include <exception>
#include <new>
#include <utility>

CompileRecord::Step::Step(CompileRecord& record, JsonPathSegment segment)
    : m_record(record), m_exceptions(std::uncaught_exceptions())
{
    m_record.m_levels.push_back({std::move(segment), {}});
}

CompileRecord::Step::~Step()
{
    if (std::uncaught_exceptions() > m_exceptions && !m_record.m_failedPlace) {
        try {
            m_record.m_failedPlace = m_record.place();
        } catch (const std::bad_alloc&) {
            // The next step outwards tries again.
        }
    }
    m_record.m_levels.pop_back();
}

CompileRecord::TextStep::TextStep(CompileRecord& record, std::string_view text, std::string_view before,
                                  std::string_view behind)
    : m_record(record), m_exceptions(std::uncaught_exceptions())
{
    m_text.place = record.place();
    m_text.source.append(before).append(text).append(behind);
    m_text.wrapped = before.size();
    m_text.length = text.size();
    m_text.identity = text.data();
}

CompileRecord::TextStep::~TextStep()
{
    if (std::uncaught_exceptions() > m_exceptions && !m_record.m_failedPlace)
        m_record.m_failedText = std::move(m_text);
}

JsonValue CompileRecord::TextStep::keep(CompileResult result)
{
    std::vector<Diagnostic> warnings = result.warnings();
    JsonValue form = std::move(result).value();
    if (m_record.m_onFailure == OnFailure::goOn) {
        m_record.m_texts.push_back({std::move(m_text), std::move(warnings), std::move(form)});
        return {};
    }
    if (!warnings.empty())
        m_record.m_texts.push_back({std::move(m_text), std::move(warnings), {}});
    return form;
}

void CompileRecord::keepFailure(std::exception_ptr exception)
{
    JsonPlace failed = m_failedPlace ? *std::exchange(m_failedPlace, std::nullopt) : place();
    m_failures.push_back(
        {std::move(failed), std::exchange(m_failedText, std::nullopt), std::move(exception)});
}

JsonPlace CompileRecord::place()
{
    std::size_t made = m_levels.size();
    while (made > 0 && m_levels[made - 1].place.isTop())
        --made;
    for (; made < m_levels.size(); ++made) {
        const JsonPlace outer = made == 0 ? JsonPlace() : m_levels[made - 1].place;
        m_levels[made].place = outer.below(m_levels[made].segment);
    }
    return m_levels.empty() ? JsonPlace() : m_levels.back().place;
}
