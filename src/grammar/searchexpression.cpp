#include "grammar/searchexpression.h"

#include "grammar/grammarlog.h"

#include <utility>

#define PCRE2_CODE_UNIT_WIDTH 16
#include <pcre2.h>

namespace Halvorin::TextMate {

namespace {

/// How much of a pattern a log line shows: one that was made of captured text may be long.
constexpr int shownLength = 200;

/// What a match needs beside the expression, one set for each thread: its place for the positions grows with
/// the expressions.
class MatchSpace
{
public:
    MatchSpace()
        : m_context(pcre2_match_context_create_16(nullptr)),
          m_stack(pcre2_jit_stack_create_16(startStack, fullStack, nullptr))
    {
        pcre2_jit_stack_assign_16(m_context, nullptr, m_stack);
    }
    MatchSpace(const MatchSpace&) = delete;
    MatchSpace& operator=(const MatchSpace&) = delete;
    ~MatchSpace()
    {
        pcre2_match_data_free_16(m_data);
        pcre2_jit_stack_free_16(m_stack);
        pcre2_match_context_free_16(m_context);
    }

    pcre2_match_context_16* context() const { return m_context; }

    pcre2_match_data_16* data(std::uint32_t groups)
    {
        if (groups > m_groups) {
            pcre2_match_data_free_16(m_data);
            m_data = pcre2_match_data_create_16(groups, nullptr);
            m_groups = groups;
        }
        return m_data;
    }

    const PCRE2_SIZE* offsets() const { return pcre2_get_ovector_pointer_16(m_data); }
    int attempt() const { return static_cast<int>(pcre2_get_startchar_16(m_data)); }

private:
    // what Qt gives its own matches
    static constexpr std::size_t startStack = 32 * 1024;
    static constexpr std::size_t fullStack = 512 * 1024;

    pcre2_match_context_16* m_context;
    pcre2_jit_stack_16* m_stack;
    pcre2_match_data_16* m_data = nullptr;
    std::uint32_t m_groups = 0;
};

MatchSpace& matchSpace()
{
    static thread_local MatchSpace space;
    return space;
}

PCRE2_SPTR16 units(const QString& text)
{
    return reinterpret_cast<PCRE2_SPTR16>(text.constData());
}

/// What a unit that PCRE2 tells of an expression stands for: it does not tell whether it ignores the case.
UnitSet eitherCase(std::uint32_t unit)
{
    UnitSet set;
    const bool isLetter = (unit >= 'A' && unit <= 'Z') || (unit >= 'a' && unit <= 'z');
    if (unit > 127) {
        set.insertAll();
    } else if (isLetter) {
        set.insert(unit & ~0x20U);
        set.insert(unit | 0x20U);
        set.insert(0x212A); // the Kelvin sign is another K, and there is another S
    } else {
        set.insert(unit);
    }
    return set;
}

} // namespace

void SearchExpression::Free::operator()(pcre2_real_code_16* code) const
{
    pcre2_code_free_16(code);
}

SearchExpression::SearchExpression(const QString& pattern)
    : m_pattern(pattern),
      m_isRepeatable(!pattern.contains(QLatin1String("(*")) && !pattern.contains(QLatin1String("\\G")))
{
    int error = 0;
    PCRE2_SIZE offset = 0;
    m_code.reset(pcre2_compile_16(units(pattern), static_cast<PCRE2_SIZE>(pattern.size()), PCRE2_UTF, &error,
                                  &offset, nullptr));
    if (m_code)
        prepare();
}

void SearchExpression::prepare()
{
    m_isFast = pcre2_jit_compile_16(m_code.get(), PCRE2_JIT_COMPLETE) == 0;
    pcre2_pattern_info_16(m_code.get(), PCRE2_INFO_CAPTURECOUNT, &m_groups);
    ++m_groups;

    m_first.insertAll();
    m_required.insertAll();
    const std::uint8_t* starts = nullptr;
    pcre2_pattern_info_16(m_code.get(), PCRE2_INFO_FIRSTBITMAP, &starts);
    if (starts != nullptr) {
        m_first = {};
        for (unsigned first = 0; first < 256; ++first) {
            if ((starts[first / 8] >> first % 8 & 1) != 0)
                m_first.insert(first);
        }
    }
    std::uint32_t isKnown = 0; // 2 stands for the start of a line
    std::uint32_t unit = 0;
    pcre2_pattern_info_16(m_code.get(), PCRE2_INFO_FIRSTCODETYPE, &isKnown);
    if (isKnown == 1) {
        pcre2_pattern_info_16(m_code.get(), PCRE2_INFO_FIRSTCODEUNIT, &unit);
        m_first = eitherCase(unit);
    }
    pcre2_pattern_info_16(m_code.get(), PCRE2_INFO_LASTCODETYPE, &isKnown);
    if (isKnown == 1) {
        pcre2_pattern_info_16(m_code.get(), PCRE2_INFO_LASTCODEUNIT, &unit);
        m_required = eitherCase(unit);
    }
}

int SearchExpression::run(const QString& line, int from) const
{
    if (!m_code || from > line.size())
        return PCRE2_ERROR_NOMATCH;
    MatchSpace& space = matchSpace();
    const auto search = m_isFast ? pcre2_jit_match_16 : pcre2_match_16;
    const int result =
        search(m_code.get(), units(line), static_cast<PCRE2_SIZE>(line.size()), static_cast<PCRE2_SIZE>(from),
               m_isFast ? 0 : PCRE2_NO_UTF_CHECK, space.data(m_groups), space.context());
    if (result < PCRE2_ERROR_NOMATCH && !std::exchange(m_limitLogged, true))
        logDiagnostic(QStringLiteral("an expression was given up on a long line: ") +
                      m_pattern.left(shownLength));
    if (result > 0) {
        const PCRE2_SIZE* const offsets = space.offsets();
        if (offsets[0] < static_cast<PCRE2_SIZE>(from) || offsets[1] < offsets[0])
            return PCRE2_ERROR_NOMATCH; // a subroutine can move the start to wherever it likes
    }
    return result;
}

SearchExpression::Hit SearchExpression::find(const QString& line, int from) const
{
    const int result = run(line, from);
    if (result <= 0)
        return {.isGivenUp = result < PCRE2_ERROR_NOMATCH};
    return {static_cast<int>(matchSpace().offsets()[0]), matchSpace().attempt(), false};
}

bool SearchExpression::match(const QString& line, int from, Match& match) const
{
    const int count = run(line, from);
    if (count <= 0)
        return false;
    const PCRE2_SIZE* const offsets = matchSpace().offsets();
    std::vector<int> positions(static_cast<std::size_t>(count) * 2);
    for (std::size_t index = 0; index < positions.size(); ++index)
        positions[index] = offsets[index] == PCRE2_UNSET ? -1 : static_cast<int>(offsets[index]);
    match = Match(std::move(positions));
    return true;
}

} // namespace Halvorin::TextMate
