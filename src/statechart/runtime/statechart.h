#ifndef STATECHART_H
#define STATECHART_H

#include "statechart/runtime/abstractstate.h"

/// A linked chart, which any number of actors may run, at one time on one thread only: the variables of its
/// actions are in the chart.
class HALVWIDGETS_EXPORT StateChart
{
public:
    StateChart() = default;
    StateChart(const StateChart&) = delete;
    StateChart& operator=(const StateChart&) = delete;

    /// Undoes the circles between its states. A state that somebody keeps has none around it from then on.
    virtual ~StateChart();

    /// Where every run begins: a state in no list, which the first event leaves for the chart's start.
    std::shared_ptr<AbstractState> initialState;
    std::vector<std::shared_ptr<AbstractState>> states; ///< of the top level

    /// Every state but the initial one; a state stands before those inside it.
    std::vector<std::shared_ptr<AbstractState>> allStates() const;
};

#endif
