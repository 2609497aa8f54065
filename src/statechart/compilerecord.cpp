#include "statechart/compilerecord.h"

#include <exception>
#include <new>
#include <utility>

CompileRecord::Step::Step(CompileRecord& record, JsonPathSegment segment)
    : m_record(record), m_exceptions(std::uncaught_exceptions())
{
    m_record.m_place.push_back(std::move(segment));
}

CompileRecord::Step::~Step()
{
    if (std::uncaught_exceptions() > m_exceptions && !m_record.m_failedPlace) {
        try {
            m_record.m_failedPlace = m_record.m_place;
        } catch (const std::bad_alloc&) {
            // The next step outwards tries again.
        }
    }
    m_record.m_place.pop_back();
}

CompileRecord::TextStep::TextStep(CompileRecord& record, std::string_view text, std::string_view before,
                                  std::string_view behind)
    : m_record(record), m_exceptions(std::uncaught_exceptions())
{
    m_text.path = record.m_place;
    m_text.source.append(before).append(text).append(behind);
    m_text.wrapped = before.size();
    m_text.length = text.size();
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
    m_failures.push_back({std::exchange(m_failedPlace, std::nullopt).value_or(m_place),
                          std::exchange(m_failedText, std::nullopt), std::move(exception)});
}
