#include "conversion/core/conversionlibrary.h"

#include "conversion/core/bestmatch.h"
#include "conversion/core/nesting.h"

#include <algorithm>
#include <iterator>

namespace Halvorin::Text {

class ConversionLibraryData : public System::ObjectData
{
public:
    std::vector<ConversionRule> blockRules;
    std::vector<ConversionRule> inlineRules;
};

namespace {

/// Replaces by the text as it was: rules that see no more than the one character before them cannot tell it
/// from the text with its replacements, since that character is never a part of one.
QString replaceInOnePass(const std::vector<ConversionRule>& rules, const QString& text, int offset)
{
    QString result;
    BestMatches matches(rules, QStringRef(&text));
    int copied = 0;
    while (offset < text.size()) {
        ConversionMatch match = matches.next(offset);
        if (!match.hasMatch())
            break;
        const QString replacement = match.convertMatched();
        result += text.midRef(copied, match.start() - copied);
        result += replacement;
        copied = match.start() + match.length();
        offset = copied + 1;
    }
    if (copied == 0 && result.isEmpty())
        return text;
    return result += text.midRef(copied);
}

QString replaceStepByStep(const std::vector<ConversionRule>& rules, QString text, int offset)
{
    while (offset < text.size()) {
        ConversionMatch match = bestMatch(rules, QStringRef(&text), static_cast<std::size_t>(offset));
        if (!match.hasMatch())
            break;
        const QString replacement = match.convertMatched();
        const int start = match.start();
        text.replace(start, match.length(), replacement);
        offset = start + replacement.size() + 1;
        // a character may be a pair of surrogates; no expression matches from its middle on
        if (offset < text.size() && text.at(offset).isLowSurrogate())
            ++offset;
    }
    return text;
}

} // namespace

ConversionLibrary::ConversionLibrary() : Object(std::make_unique<ConversionLibraryData>()) {}

ConversionLibrary::~ConversionLibrary() = default;

ConversionLibraryData& ConversionLibrary::_data()
{
    return static_cast<ConversionLibraryData&>(Object::_data());
}

const ConversionLibraryData& ConversionLibrary::_data() const
{
    return static_cast<const ConversionLibraryData&>(Object::_data());
}

QString ConversionLibrary::convertBlocks(const QStringRef& source, std::size_t) const
{
    if (source.isEmpty())
        return QString();
    const Nesting nesting;
    if (nesting.isTooDeep())
        return source.toString();
    SourceText text(source);
    QString result;
    while (text.position() < text.size()) {
        ConversionMatch match = bestMatchHere(_data().blockRules, text);
        if (!match.hasMatch())
            break;
        result += match.convertMatched();
        if (match.end() <= 0)
            break; // it would be found again for ever
        text.moveTo(text.position() + std::min(match.end(), text.size() - text.position()));
    }
    return result;
}

QString ConversionLibrary::convertBlocks(const QString& source, std::size_t offset) const
{
    return convertBlocks(QStringRef(&source), offset);
}

QString ConversionLibrary::convertInline(const QStringRef& source, std::size_t offset) const
{
    QString text = source.toString();
    if (offset >= static_cast<std::size_t>(text.size()))
        return text;
    const std::vector<ConversionRule>& rules = _data().inlineRules;
    return areLocal(rules) ? replaceInOnePass(rules, text, static_cast<int>(offset))
                           : replaceStepByStep(rules, text, static_cast<int>(offset));
}

QString ConversionLibrary::convertInline(const QString& source, std::size_t offset) const
{
    return convertInline(QStringRef(&source), offset);
}

void ConversionLibrary::addBlockRule(ConversionRule&& rule)
{
    _data().blockRules.push_back(std::move(rule));
}

void ConversionLibrary::addBlockRule(const ConversionRule& rule)
{
    _data().blockRules.push_back(rule);
}

void ConversionLibrary::addInlineRule(ConversionRule&& rule)
{
    _data().inlineRules.push_back(std::move(rule));
}

void ConversionLibrary::addInlineRule(const ConversionRule& rule)
{
    _data().inlineRules.push_back(rule);
}

void ConversionLibrary::prependBlockRule(ConversionRule&& rule)
{
    prependBlockRules(1, &rule);
}

void ConversionLibrary::prependBlockRule(const ConversionRule& rule)
{
    prependBlockRules(1, &rule);
}

void ConversionLibrary::prependBlockRules(const std::vector<ConversionRule>& rules)
{
    prependBlockRules(rules.size(), rules.data());
}

void ConversionLibrary::prependBlockRules(std::vector<ConversionRule>&& rules)
{
    prependBlockRules(rules.size(), rules.data());
}

void ConversionLibrary::prependBlockRules(std::size_t count, const ConversionRule* rules)
{
    _data().blockRules.insert(_data().blockRules.begin(), rules, rules + count);
}

void ConversionLibrary::prependBlockRules(std::size_t count, ConversionRule* rules)
{
    _data().blockRules.insert(_data().blockRules.begin(), std::make_move_iterator(rules),
                              std::make_move_iterator(rules + count));
}

ConversionMatch ConversionLibrary::nextBlockMatch(const QString& source, std::size_t offset) const
{
    return nextBlockMatch(QStringRef(&source), offset);
}

ConversionMatch ConversionLibrary::nextBlockMatch(const QStringRef& source, std::size_t offset) const
{
    return source.isEmpty() ? ConversionMatch() : bestMatch(_data().blockRules, source, offset);
}

ConversionMatch ConversionLibrary::nextInlineMatch(const QString& source, std::size_t offset) const
{
    return nextInlineMatch(QStringRef(&source), offset);
}

ConversionMatch ConversionLibrary::nextInlineMatch(const QStringRef& source, std::size_t offset) const
{
    return bestMatch(_data().inlineRules, source, offset);
}

} // namespace Halvorin::Text
