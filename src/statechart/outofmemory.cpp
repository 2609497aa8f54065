#include "statechart/outofmemory.h"

#include "actionlanguage/tokens/compilationexception.h"

#include <new>

bool isOutOfMemory(const std::exception& failure)
{
    return dynamic_cast<const std::bad_alloc*>(&failure) != nullptr &&
           dynamic_cast<const TokeniserAllocationFailure*>(&failure) == nullptr;
}

const char* failureText(const std::exception& failure)
{
    return isOutOfMemory(failure) ? "out of memory" : failure.what();
}
