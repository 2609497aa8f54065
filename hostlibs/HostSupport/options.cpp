#include "HostSupport/options.h"

#include "HostSupport/optionstore.h"
#include "HostSupport/optiontext.h"

using HostSupport::OptionStore;

namespace {

template <class T>
T option(const char* name, bool* found)
{
    const auto text = OptionStore::instance().value(name);
    auto value = text ? HostSupport::optionFromText<T>(*text) : std::nullopt;
    if (found)
        *found = value.has_value();
    return value ? *std::move(value) : T{};
}

} // namespace

bool sp_GetBoolOption(const char* name, bool* found)
{
    return option<bool>(name, found);
}

int sp_GetIntOption(const char* name, bool* found)
{
    return option<int>(name, found);
}

double sp_GetDoubleOption(const char* name, bool* found)
{
    return option<double>(name, found);
}

YString sp_GetStringOption(const char* name, bool* found)
{
    return option<YString>(name, found);
}

bool sp_WriteOption(const char* name, const char* text)
{
    return OptionStore::instance().write(name, text);
}

bool sp_WriteOption(const char* name, bool value)
{
    return OptionStore::instance().write(name, HostSupport::optionText(value));
}
