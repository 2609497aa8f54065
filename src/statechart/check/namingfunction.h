#ifndef NAMINGFUNCTION_H
#define NAMINGFUNCTION_H

#include "actionlanguage/types/datatype.h"

#include <string_view>

/// What a call takes the name in its first argument for.
enum class NameRole
{
    pin,       ///< any: an output reads as what it drives
    eventPin,  ///< an input: only those have edges
    drivenPin, ///< an output
    bus,
    drivenBus,
    variable,
    parameter,
};

/// A device function whose first argument is a name. Those that have none of them are not here.
struct NamingFunction
{
    std::string_view name;
    NameRole role;
    DataType type = DataType::unknown; ///< that the function takes the named thing to have
    bool hasIndex = false;             ///< its second argument is the number of a pin of the bus
    bool setsVariable = false;         ///< its last argument is the value: that one's type counts
    bool writesBus = false;            ///< its second argument is
};

/// The function of this name; null when it names nothing.
const NamingFunction* namingFunctionOf(std::string_view name);

bool isTerminal(NameRole role);
bool drives(NameRole role);

/// "an output pin"
std::string_view describe(NameRole role);

/// "pin", "bus", "variable" or "parameter"
std::string_view sectionWord(NameRole role);

#endif
