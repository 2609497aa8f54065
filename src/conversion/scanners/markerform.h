#ifndef MARKERFORM_H
#define MARKERFORM_H

namespace Halvorin::Text {

/// The form of a marker of an enumerated list: "1.", "(1)" and "1)".
enum class MarkerForm
{
    period = 0,
    enclosingParentheses = 1,
    closingParenthesis = 2,
};

} // namespace Halvorin::Text

#endif
