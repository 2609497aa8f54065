#ifndef RECORDINGINTERFACE_H
#define RECORDINGINTERFACE_H

#include "actionlanguage/runtime/executioninterface.h"

#include <string>
#include <vector>

/// Collects what running code prints, one entry a call.
class RecordingInterface : public AbstractExecutionInterface
{
public:
    void print(const std::string& text) override { lines.push_back(text); }

    std::vector<std::string> lines;
};

#endif
