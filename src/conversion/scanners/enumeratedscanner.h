#ifndef ENUMERATEDSCANNER_H
#define ENUMERATEDSCANNER_H

#include "conversion/core/expression.h"
#include "conversion/scanners/markerform.h"

#include <vector>

namespace Halvorin::Text {

/// What the markers of an enumerated list are made of.
enum class EnumeratedKind
{
    numeric,
    romanNumeral,
    alphabetic,
};

/// One of the fifteen kinds of markers of enumerated lists.
struct Marker
{
    EnumeratedKind kind;
    MarkerForm form;
    bool isUpperCase = false;

    /// "\d", "[IVXLCDM]" and so on, and whether one of them is all there is.
    QString characterClass() const;
    bool isOneCharacter() const { return kind == EnumeratedKind::alphabetic; }
    bool holds(char16_t c) const;
};

/// The rows with markers and the automatic ones behind them, as hit groups 0 and 1.
bool scanEnumeratedList(SourceText& text, const Marker& marker, Hit& hit);

/// Items in rows, anywhere: their index and their content with the deeper lines behind it, as groups 0 and 1.
/// The automatic ones ("#.") have no index. Hold where line feeds are the only ends of lines.
std::vector<Hit> findMarkedItems(const SourceText& rows, const Marker& marker);
std::vector<Hit> findAutomaticItems(const SourceText& rows, MarkerForm form);

} // namespace Halvorin::Text

#endif
