#ifndef CHECKEDTEXT_H
#define CHECKEDTEXT_H

#include "actionlanguage/analysis/sourcetree.h"
#include "statechart/compilerecord.h"

#include <vector>

/// A text of the definition that compiled, as a tree whose nodes know their places.
struct CheckedText
{
    enum class Use
    {
        statements,
        condition,
        time,
    };

    const ActionText* text = nullptr;
    Use use = Use::statements;
    SourceNode tree;
};

/// The trees of what compiled. They refer to the record.
std::vector<CheckedText> checkedTextsOf(const CompileRecord& record);

#endif
