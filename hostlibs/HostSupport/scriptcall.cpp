#include "HostSupport/scriptcall.h"

#include <cstdlib>

ScriptResults::~ScriptResults()
{
    freeStrings();
}

char** ScriptResults::allocateStrings(std::size_t count)
{
    freeStrings();
    m_strings.assign(count, nullptr);
    return m_strings.data();
}

std::vector<std::string> ScriptResults::strings() const
{
    std::vector<std::string> texts;
    texts.reserve(m_strings.size());
    for (const char* text : m_strings)
        texts.emplace_back(text ? text : "");
    return texts;
}

void ScriptResults::freeStrings()
{
    for (char* text : m_strings)
        std::free(text);
    m_strings.clear();
}

ScriptSharedBlock* ScriptSharedBlock::create(std::shared_ptr<void> state)
{
    return new ScriptSharedBlock(std::move(state));
}

void ScriptSharedBlock::release()
{
    if (--m_references == 0)
        delete this;
}
