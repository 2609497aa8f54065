#include "Python/pythonversion.h"

TEST(PythonVersion, IsMajorAndMinorNumberWithAFullStop)
{
    EXPECT_EQ(versionText(FileVersion{3, 12}), "3.12");
    EXPECT_EQ(versionText(FileVersion{3, 0}), "3.0");
    EXPECT_EQ(versionText(std::nullopt), "");
}

TEST(PythonVersion, HasTheNumberThatItsTextHasAsADecimalNumber)
{
    for (const auto& [text, number] : {std::pair("3.10", 310),
                                       {"3.11", 311},
                                       {"3.12", 312},
                                       {"3.13", 313},
                                       {"3.14", 314},
                                       {"3.29", 329},
                                       {"3.57", 357},
                                       {"4.35", 435},
                                       {"3", 300}})
        EXPECT_EQ(versionNumber(text), number) << text;
}

TEST(PythonVersion, HasAHigherNumberWithOneDigitThanWithTwo)
{
    EXPECT_EQ(versionNumber("3.9"), 390);
    EXPECT_GT(versionNumber("3.9"), versionNumber("3.12"));
}

TEST(PythonVersion, HasNoNumberWhereThereIsNone)
{
    for (const char* text : {"", "x", ".", "-"})
        EXPECT_EQ(versionNumber(text), 0) << text;
    EXPECT_EQ(versionNumber("3.11-32"), 311);
}
