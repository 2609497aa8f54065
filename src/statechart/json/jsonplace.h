#ifndef JSONPLACE_H
#define JSONPLACE_H

#include "statechart/json/jsonlocator.h"

#include <memory>
#include <utility>

/// A place in a document that shares the way to it with the places around it: however long the names on the
/// way are, one more place takes no more than its own step.
///
///     const JsonPlace list = JsonPlace().below("onEntry");
///     list.below(0u).path()   // {"onEntry", 0}; list.below(1u) shares the first step
class HALVWIDGETS_EXPORT JsonPlace
{
public:
    /// The top of the document.
    JsonPlace() = default;

    JsonPlace below(JsonPathSegment segment) const;

    bool isTop() const { return m_step == nullptr; }

    /// Its own step, and the place that this leads from. Not for the top.
    const JsonPathSegment& segment() const { return m_step->segment; }
    JsonPlace outer() const;

    /// All steps from the top.
    JsonPath path() const;

private:
    struct Step
    {
        Step(std::shared_ptr<const Step> before, JsonPathSegment last)
            : outer(std::move(before)), segment(std::move(last))
        {}

        std::shared_ptr<const Step> outer;
        JsonPathSegment segment;
    };

    std::shared_ptr<const Step> m_step;
};

#endif
