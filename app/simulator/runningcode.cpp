#include "simulator/runningcode.h"

#include "statechart/runtime/abstractstate.h"

#include <algorithm>

namespace {

std::string_view wordsOf(ActorCode::Kind kind)
{
    switch (kind) {
    case ActorCode::Kind::entryAction:
        return "entry action";
    case ActorCode::Kind::exitAction:
        return "exit action";
    case ActorCode::Kind::condition:
        return "condition";
    case ActorCode::Kind::transitionAction:
        return "action";
    case ActorCode::Kind::wakeTime:
        return "wake time";
    }
    return "code";
}

} // namespace

FixedText& FixedText::operator<<(std::string_view text)
{
    for (const char character : text) {
        if (m_size == m_text.size())
            break;
        const bool isControl = static_cast<unsigned char>(character) < 0x20 || character == 0x7f;
        m_text[m_size++] = isControl ? '?' : character;
    }
    return *this;
}

FixedText& FixedText::operator<<(std::size_t number)
{
    std::array<char, 24> digits;
    auto first = digits.end();
    do {
        *--first = static_cast<char>('0' + number % 10);
        number /= 10;
    } while (number != 0);
    return *this << std::string_view(&*first, static_cast<std::size_t>(digits.end() - first));
}

void RunningCode::writeTime(FixedText& text) const
{
    std::array<char, timeTextSize> number;
    text << "at " << std::string_view(number.data(), ::writeTime(time, resolution, number.data()));
}

void RunningCode::writePlace(FixedText& text) const
{
    if (!isKnown())
        return;
    text << "in " << wordsOf(code.kind);
    if (code.kind != ActorCode::Kind::wakeTime)
        text << " " << code.index + 1;
    const AbstractState* state = code.state;
    if (code.transition != nullptr) {
        text << " of transition '" << code.transition->identifier << "'";
        state = code.transition->source.get();
    }
    text << " of state '" << state->identifier << "'";
}
