#include "statechart/outofmemory.h"

#include "actionlanguage/tokens/compilationexception.h"
#include "statechart/compilerecord.h"

#include <new>
#include <stdexcept>

namespace {

TEST(OutOfMemory, IsNoFailureOfTheTextThatWasBeingCompiled)
{
    CompileRecord record(OnFailure::goOn);
    record.attempt([] { throw std::runtime_error("of the text"); });
    record.attempt([] { throw TokeniserAllocationFailure(0); });
    EXPECT_EQ(record.failures().size(), 2u);
    EXPECT_THROW(record.attempt([] { throw std::bad_alloc(); }), std::bad_alloc);
    EXPECT_EQ(record.failures().size(), 2u);
}

TEST(OutOfMemory, IsSaidInPlainWords)
{
    EXPECT_STREQ(failureText(std::bad_alloc()), "out of memory");
    EXPECT_STREQ(failureText(std::bad_array_new_length()), "out of memory");
    EXPECT_STREQ(failureText(TokeniserAllocationFailure(0)), "bad allocation");
    EXPECT_STREQ(failureText(std::runtime_error("words")), "words");
}

} // namespace
