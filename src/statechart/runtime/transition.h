#ifndef TRANSITION_H
#define TRANSITION_H

#include "actionlanguage/runtime/linkedexpression.h"
#include "actionlanguage/runtime/linkedstatement.h"

#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <vector>

class AbstractState;

/// A way from a state to another. It stands in its source by value.
struct Transition
{
    std::string identifier;
    std::shared_ptr<AbstractState> source;
    std::shared_ptr<AbstractState> target;
    std::vector<LinkedStatements> actions;           ///< executed in order
    std::vector<ExpressionPointer<bool>> conditions; ///< all must hold; tested up to the first that does not
    std::optional<std::string> event;                ///< none: taken when the source is entered
    bool local = false;                              ///< without effect
    std::int32_t order = 0;                          ///< that in which a state's transitions are tried
};

#endif
