#include "HalvCore/errorbuilder.h"
#include "HalvCore/errorcode2.h"
#include "HalvCore/exception.h"
#include "HalvCore/expected.h"

using namespace Halvorin::System;

TEST(ErrorCode, IsTrueWhenItHoldsAnError)
{
    ErrorCode error;
    EXPECT_FALSE(error);
    EXPECT_EQ(error.message(), String());
    error.assign(ErrorBuilder<FileError>::make(FileError::cannotOpen));
    EXPECT_TRUE(error);
    EXPECT_EQ(error.message(), String("the file cannot be opened"));
    error.assignUnknown();
    EXPECT_EQ(error, ErrorBuilder<SystemError>::make(SystemError::unknown));
    error.assignNotImplemented();
    EXPECT_EQ(error.message(), String("not implemented"));
}

TEST(ErrorCode, KeepsEqualNumbersOfDifferentFamiliesApart)
{
    EXPECT_FALSE(ErrorCode(FileError::notFound) == ErrorCode(SystemError::unknown));
}

TEST(ErrorCodeException, CarriesItsCode)
{
    try {
        throw ErrorCodeException(ErrorCode(FileError::notFound));
    } catch (const AbstractErrorCodeException& error) {
        EXPECT_EQ(error.errorCode(), ErrorCode(FileError::notFound));
        EXPECT_STREQ(error.what(), "the file does not exist");
    }
}

TEST(Expected, GivesItsValue)
{
    const Expected<std::string, ErrorCode2> expected(std::string("value"));
    EXPECT_TRUE(expected);
    EXPECT_EQ(expected.value(), "value");
    EXPECT_EQ(expected->size(), 5U);
}

TEST(Expected, RaisesItsErrorWhenTheValueIsRead)
{
    const Expected<std::string, ErrorCode2> expected(ErrorCode2(FileError::notFound, "'a'"));
    EXPECT_FALSE(expected);
    try {
        static_cast<void>(expected.value());
        FAIL();
    } catch (const bad_expected_access<ErrorCode2>& error) {
        EXPECT_EQ(error.error(), ErrorCode2(FileError::notFound, "'a'"));
        EXPECT_STREQ(error.what(), "the file does not exist: 'a'");
    }
    EXPECT_THROW(static_cast<void>(expected->size()), bad_expected_access<ErrorCode2>);
}

TEST(Expected, OfNothingRaisesItsErrorToo)
{
    EXPECT_NO_THROW((Expected<void, ErrorCode2>().value()));
    const Expected<void, ErrorCode2> failed(ErrorCode2(SystemError::unknown));
    EXPECT_THROW(failed.value(), std::exception);
}
