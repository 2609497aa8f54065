#include "actionlanguage/types/conversions.h"
#include "actionlanguage/types/datatype.h"

#include <optional>

namespace {

constexpr std::string_view spellings[] = {"unknown", "bool",   "char",     "double", "int",
                                          "int64_t", "string", "uint64_t", "void"};

DataType typeAt(std::size_t value)
{
    return static_cast<DataType>(value);
}

TEST(DataType, HasASpellingForEachOfItsValues)
{
    for (std::size_t value = 0; value < std::size(spellings); ++value)
        EXPECT_EQ(typeName(typeAt(value)), spellings[value]);
}

TEST(DataType, IsUnknownOutsideOfItsValues)
{
    EXPECT_EQ(typeName(typeAt(9)), "unknown");
    EXPECT_EQ(typeName(typeAt(0xffffffff)), "unknown");
}

TEST(DataType, IsFoundByTheSpellingsOfTheEightRealTypes)
{
    for (std::size_t value = 1; value < std::size(spellings); ++value)
        EXPECT_EQ(typeFromName(spellings[value]), typeAt(value));
}

TEST(DataType, IsNotFoundByAnyOtherText)
{
    for (const std::string_view text :
         {"unknown", "", "Int", "int ", " int", "float", "int6", "int64", "strin"})
        EXPECT_EQ(typeFromName(text), std::nullopt) << text;
}

TEST(ImplicitConversion, ExistsForThreePairsAlone)
{
    int pairs = 0;
    for (std::size_t from = 0; from < std::size(spellings); ++from)
        for (std::size_t to = 0; to < std::size(spellings); ++to) {
            const std::string pair = std::string(spellings[from]) + " to " + std::string(spellings[to]);
            const bool expected =
                pair == "int to bool" || pair == "double to bool" || pair == "int to double";
            EXPECT_EQ(canCast(typeAt(from), typeAt(to)), expected) << pair;
            pairs += expected;
        }
    EXPECT_EQ(pairs, 3);
}

TEST(InvalidCastException, WordsItsTwoTypesWhateverTheSource)
{
    const InvalidCastException error(typeAt(5), typeAt(1), {3, 4});
    EXPECT_EQ(error.message("some text"), "invalid cast from 'int64_t' to 'bool'");
    EXPECT_EQ(error.message(""), "invalid cast from 'int64_t' to 'bool'");
    EXPECT_STREQ(error.what(), "compilation error");
}

TEST(InvalidCastException, IsACompilationExceptionOfErrorNineteen)
{
    const InvalidCastException error(typeAt(6), typeAt(3), {3, 4});
    const CompilationException& base = error;
    EXPECT_EQ(static_cast<std::uint32_t>(base.code()), 19u);
    EXPECT_EQ(base.span(), (SourceSpan{3, 4}));
    EXPECT_EQ(error.from(), typeAt(6));
    EXPECT_EQ(error.to(), typeAt(3));
}

} // namespace
