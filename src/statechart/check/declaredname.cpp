#include "statechart/check/declaredname.h"

using Kind = NameKind;
using Role = NameRole;

bool fits(NameKind kind, NameRole role)
{
    switch (role) {
    case Role::pin:
        return kind == Kind::inputPin || kind == Kind::outputPin || kind == Kind::unknown;
    case Role::eventPin:
        return kind == Kind::inputPin || kind == Kind::unknown;
    case Role::drivenPin:
        return kind == Kind::outputPin || kind == Kind::unknown;
    case Role::bus:
        return kind == Kind::inputBus || kind == Kind::outputBus || kind == Kind::unknown;
    case Role::drivenBus:
        return kind == Kind::outputBus || kind == Kind::unknown;
    case Role::variable:
        return kind == Kind::variable;
    case Role::parameter:
        break;
    }
    return kind == Kind::parameter;
}

std::string_view describe(NameKind kind)
{
    switch (kind) {
    case Kind::inputPin:
        return "an input pin";
    case Kind::inputBus:
        return "an input bus";
    case Kind::outputPin:
        return "an output pin";
    case Kind::outputBus:
        return "an output bus";
    case Kind::parameter:
        return "a parameter";
    case Kind::variable:
        return "a variable";
    case Kind::unknown:
        break;
    }
    return "unknown";
}

bool isInput(NameKind kind)
{
    return kind == Kind::inputPin || kind == Kind::inputBus;
}

bool isOutput(NameKind kind)
{
    return kind == Kind::outputPin || kind == Kind::outputBus;
}

std::string_view describeSection(NameKind kind)
{
    if (isInput(kind))
        return "input";
    if (isOutput(kind))
        return "output";
    return kind == Kind::parameter ? "parameter" : "variable";
}
