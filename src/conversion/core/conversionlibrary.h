#ifndef CONVERSIONLIBRARY_H
#define CONVERSIONLIBRARY_H

#include "HalvCore/object.h"
#include "conversion/core/conversionmatch.h"
#include "conversion/core/conversionrule.h"
#include "halvwidgetsexport.h"

#include <QString>
#include <QStringRef>
#include <cstddef>
#include <vector>

namespace Halvorin::Text {

class ConversionLibraryData;

/// Turns a marked-up text into another by two lists of rules. It knows no markup: a subclass adds rules in
/// its constructor.
///
/// The leftmost match of a list wins, and among matches that start at the same place that of the rule that
/// stands first. Block conversion puts the result together of what the rules make, and drops what none takes;
/// inline conversion replaces in place. Rules may call the library for the parts of what they matched;
/// conversion nests 200 deep, and deeper text is given as it stands.
///
/// Once built, a library is only read, by any thread. It can be neither copied nor moved, since rules refer
/// to it.
class HALVWIDGETS_EXPORT ConversionLibrary : public System::Object
{
public:
    ConversionLibrary();
    ConversionLibrary(const ConversionLibrary&) = delete;
    ConversionLibrary& operator=(const ConversionLibrary&) = delete;
    ~ConversionLibrary() override;

    /// The offset is not looked at: the search starts at the start.
    virtual QString convertBlocks(const QStringRef& source, std::size_t offset) const;
    virtual QString convertBlocks(const QString& source, std::size_t offset) const;
    /// The text from the offset on is converted; the character behind each replacement is not looked at.
    virtual QString convertInline(const QStringRef& source, std::size_t offset) const;
    virtual QString convertInline(const QString& source, std::size_t offset) const;

    void addBlockRule(ConversionRule&& rule);
    void addBlockRule(const ConversionRule& rule);
    void addInlineRule(ConversionRule&& rule);
    void addInlineRule(const ConversionRule& rule);
    void prependBlockRule(ConversionRule&& rule);
    void prependBlockRule(const ConversionRule& rule);
    /// The rules keep the order that they have among themselves.
    void prependBlockRules(const std::vector<ConversionRule>& rules);
    void prependBlockRules(std::vector<ConversionRule>&& rules);

    ConversionMatch nextBlockMatch(const QString& source, std::size_t offset) const;
    ConversionMatch nextBlockMatch(const QStringRef& source, std::size_t offset) const;
    ConversionMatch nextInlineMatch(const QString& source, std::size_t offset) const;
    ConversionMatch nextInlineMatch(const QStringRef& source, std::size_t offset) const;

private:
    ConversionLibraryData& _data();
    const ConversionLibraryData& _data() const;

    void prependBlockRules(std::size_t count, const ConversionRule* rules);
    void prependBlockRules(std::size_t count, ConversionRule* rules);
};

} // namespace Halvorin::Text

#endif
