#include "actionlanguage/runtime/executioninterface.h"

AbstractExecutionInterface::~AbstractExecutionInterface() = default;
