#include "unicode/wholecharacters.h"

#include <gtest/gtest.h>

using Halvorin::Text::wholeCharacters;

namespace {

QString units(std::u16string_view text)
{
    return QString::fromUtf16(text.data(), static_cast<int>(text.size()));
}

TEST(WholeCharacters, LeaveATextOfThemAsItIs)
{
    for (const QString& text : {QString(), units(u"a\u00e4\uFFFF"), units(u"\U0001F600x\U0010FFFF")})
        EXPECT_EQ(wholeCharacters(text), text);
}

TEST(WholeCharacters, StandInThePlaceOfLoneHalves)
{
    const QChar high(0xD83D);
    const QChar low(0xDE00);
    const QChar replaced(QChar::ReplacementCharacter);
    EXPECT_EQ(wholeCharacters(QString(high)), QString(replaced));
    EXPECT_EQ(wholeCharacters(QString(low)), QString(replaced));
    EXPECT_EQ(wholeCharacters(QString(low) + high), QString(2, replaced));
    EXPECT_EQ(wholeCharacters(QString(high) + high + low + low), QString(replaced) + high + low + replaced);
    EXPECT_EQ(wholeCharacters(QLatin1Char('a') + QString(high) + QLatin1Char('b')),
              QLatin1Char('a') + QString(replaced) + QLatin1Char('b'));
}

} // namespace
