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
    if (std::uncaught_exceptions() > m_exceptions && !m_record.m_failure) {
        try {
            m_record.m_failure = m_record.m_place;
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
    if (std::uncaught_exceptions() > m_exceptions && !m_record.m_failure)
        m_record.m_failedText = std::move(m_text);
}

void CompileRecord::TextStep::keepWarnings(const std::vector<Diagnostic>& warnings)
{
    if (!warnings.empty())
        m_record.m_warnings.push_back({m_text, warnings});
}
