#ifndef STANDINGREADINGS_H
#define STANDINGREADINGS_H

#include "statechart/check/declaredname.h"
#include "statechart/check/lints.h"

#include <set>
#include <string>
#include <unordered_map>

/// Something that stands still while one event is dealt with and that conditions may ask for: the time, an
/// input pin, a pin or the whole of an input bus, a parameter, or the edge that the event is.
struct StandingThing
{
    enum class Kind
    {
        time,
        level,     ///< of a pin: 0 or 1
        number,    ///< of a bus: an integer
        parameter, ///< any number of its type
        edge,      ///< 0 for none; then two for each pin, rising and falling
    };

    Kind kind = Kind::time;
    std::string key; ///< tells things apart
    std::string pin = {};
    const DeclaredName* name = nullptr; ///< of a bus or parameter
};

/// A call in a condition that asks for one of them.
struct StandingReading
{
    enum class Answer
    {
        value,
        negated,
        anyEdge,
        risingEdge,
        fallingEdge,
    };

    StandingThing thing;
    Answer answer = Answer::value;
    DataType type = DataType::boolean;
};

/// Recognises what stands still in the conditions of a device.
class StandingReadings
{
public:
    explicit StandingReadings(const CheckedDefinition& checked);

    /// What a call asks for; none when it may change meanwhile or is not known. What a device drives counts
    /// to that, since a write may show at once.
    std::optional<StandingReading> readingOf(const JsonObject& call);

    /// The literal that a call is as good as: the value of a variable that nothing sets.
    std::optional<JsonValue> constantOf(const JsonObject& call);

    /// The number that a call gives whatever happens: that of such a variable, or of a text given to "etod".
    std::optional<double> numberOf(const JsonObject& call);

private:
    std::optional<StandingReading> readingOfBus(const NamingFunction& function, const DeclaredName& name,
                                                const JsonObject& call) const;
    void findSetVariables(const CheckedDefinition& checked);

    /// The value of a variable that nothing sets, when the call asks for its type.
    const JsonValue* constantVariable(const JsonObject& call);

    const ConstantFolding& m_folding;
    DeclaredNames m_names;
    std::unordered_map<std::string_view, const JsonObject*> m_variables;
    std::set<std::string, std::less<>> m_setVariables;
    bool m_maySetAnyVariable = false;
};

#endif
