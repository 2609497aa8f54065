#include "languageclient/triggerkeys.h"

#include <QKeySequence>
#include <gtest/gtest.h>

using Halvorin::LSP::triggerKeys;

namespace {

std::vector<int> keysOf(const char* text)
{
    return triggerKeys({QString::fromUtf8(text)});
}

} // namespace

TEST(TriggerKeys, AreTheKeysOfEachCharacterOfEachText)
{
    EXPECT_EQ(triggerKeys({QStringLiteral("."), QString(), QStringLiteral("(,")}),
              (std::vector<int>{Qt::Key_Period, Qt::Key_ParenLeft, Qt::Key_Comma}));
}

TEST(TriggerKeys, KnowLettersByTheirCapitals)
{
    EXPECT_EQ(keysOf("aZ"), (std::vector<int>{Qt::Key_A, Qt::Key_Z}));
    EXPECT_EQ(keysOf("\xC3\xA4"), std::vector<int>{Qt::Key_Adiaeresis});
}

TEST(TriggerKeys, AreThoseOfAKeySequenceForEveryCharacter)
{
    for (int code = 0; code < 0x10000; ++code) {
        const QString text(QChar(static_cast<ushort>(code)));
        const QKeySequence sequence = QKeySequence::fromString(text, QKeySequence::PortableText);
        std::vector<int> expected;
        if (!sequence.isEmpty())
            expected.push_back(sequence[0]);
        ASSERT_EQ(triggerKeys({text}), expected) << "character " << code;
    }
}
