#include "statechart/json/jsonplace.h"

#include <algorithm>
#include <utility>

JsonPlace JsonPlace::below(JsonPathSegment segment) const
{
    JsonPlace place;
    place.m_step = std::make_shared<const Step>(m_step, std::move(segment));
    return place;
}

JsonPlace JsonPlace::outer() const
{
    JsonPlace place;
    place.m_step = m_step->outer;
    return place;
}

JsonPath JsonPlace::path() const
{
    JsonPath path;
    for (const Step* step = m_step.get(); step != nullptr; step = step->outer.get())
        path.push_back(step->segment);
    std::ranges::reverse(path);
    return path;
}
