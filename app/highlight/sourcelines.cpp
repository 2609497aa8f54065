#include "highlight/sourcelines.h"

#include "HalvCore/widetext.h"

#include <QTextCodec>
#include <stdexcept>

namespace {

constexpr std::string_view byteOrderMark = "\xef\xbb\xbf";

bool isUtf8(std::string_view text)
{
    std::size_t position = 0;
    while (position < text.size()) {
        if (!Halvorin::System::nextCharacter(text, position))
            return false;
    }
    return true;
}

/// QString::fromUtf8() would drop a byte order mark at the start of each line.
QString withAllCharacters(std::string_view utf8)
{
    static const QTextCodec* const codec = QTextCodec::codecForName("UTF-8");
    QTextCodec::ConverterState state(QTextCodec::IgnoreHeader);
    return codec->toUnicode(utf8.data(), static_cast<int>(utf8.size()), &state);
}

} // namespace

SourceLines::SourceLines(std::string text) : m_text(std::move(text))
{
    if (!isUtf8(m_text))
        throw std::invalid_argument("the text is not UTF-8");
    if (m_text.starts_with(byteOrderMark))
        m_position = byteOrderMark.size();
}

bool SourceLines::next(QString& line)
{
    if (m_position == m_text.size())
        return false;
    const std::size_t newLine = m_text.find('\n', m_position);
    const std::size_t end = std::min(newLine, m_text.size());
    std::string_view content = std::string_view(m_text).substr(m_position, end - m_position);
    if (newLine != std::string::npos && content.ends_with('\r'))
        content.remove_suffix(1);
    line = withAllCharacters(content);
    m_position = newLine == std::string::npos ? end : newLine + 1;
    return true;
}
