#include "statechart/runtime/parallelstate.h"

ParallelState::~ParallelState() = default;

int ParallelState::type() const
{
    return parallel;
}
