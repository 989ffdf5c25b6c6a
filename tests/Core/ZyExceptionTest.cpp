// SPDX-License-Identifier: BSD-3-Clause
// Every class of the exception tree: its name, its base and the words of every constructor.
#include <ZyException.h>

#include <gtest/gtest.h>

#include <functional>
#include <limits>
#include <new>
#include <string>
#include <type_traits>
#include <utility>

static_assert(sizeof(ZyException) == 2 * sizeof(void *), "a virtual table and the hidden fields");
static_assert(!std::is_base_of_v<std::exception, ZyException>,
              "a handler of the standard exception must not catch it");
static_assert(std::is_abstract_v<ZyException>);
static_assert(std::is_base_of_v<ZyExceptionInterface, ZyException>);

namespace
{
struct Case
{
    std::function<void()> raise;
    std::string name;
    std::string words;
};

void PrintTo(Case const & c, std::ostream * to)
{
    *to << c.name << ": " << c.words;
}

template <class E, class... A>
Case thrown(char const * name, char const * words, A... arguments)
{
    return {[=] { throw E(arguments...); }, name, words};
}

class ZyExceptionWords : public testing::TestWithParam<Case>
{};
} // namespace

TEST_P(ZyExceptionWords, AreComposedAtTheThrow)
{
    try {
        GetParam().raise();
        FAIL() << "nothing thrown";
    } catch (ZyException const & e) {
        EXPECT_STREQ(e.name(), GetParam().name.c_str());
        EXPECT_STREQ(e.what(), GetParam().words.c_str());
        EXPECT_EQ(e.message().toStdString(), GetParam().words);
    }
}

INSTANTIATE_TEST_SUITE_P(
    General, ZyExceptionWords,
    testing::Values(thrown<ZyNotFoundException>("ZyNotFoundException", "Item not found"),
                    thrown<ZyNotFoundException>("ZyNotFoundException", "Item not found: key", "key"),
                    thrown<ZyNotImplementedException>("ZyNotImplementedException", "Not implemented"),
                    thrown<ZyNotImplementedException>("ZyNotImplementedException", "Not implemented: f", "f"),
                    thrown<ZyNullPointerException>("ZyNullPointerException", ""),
                    thrown<ZyNullPointerException>("ZyNullPointerException", "p", "p"),
                    thrown<ZyNullPointerException>("ZyNullPointerException", "p", ZyString("p")),
                    thrown<ZyInvalidCallException>("ZyInvalidCallException", ""),
                    thrown<ZyInvalidCallException>("ZyInvalidCallException", "c", "c"),
                    thrown<ZyInvalidCallException>("ZyInvalidCallException", "c", ZyString("c")),
                    thrown<ZyInvalidParameterException>("ZyInvalidParameterException", "p", "p"),
                    thrown<ZyInvalidUseException>("ZyInvalidUseException", "u", "u"),
                    thrown<ZyUndefinedFunctionException>("ZyUndefinedFunctionException", "f", "f"),
                    thrown<ZyInvalidCastException>("ZyInvalidCastException", "Invalid cast from A to B", "A",
                                                   "B"),
                    thrown<ZyInvalidConversionException>("ZyInvalidConversionException", "c", "c"),
                    thrown<ZyInvalidConversionException>("ZyInvalidConversionException",
                                                         "Invalid conversion from A to B", "A", "B")));

INSTANTIATE_TEST_SUITE_P(
    Limits, ZyExceptionWords,
    testing::Values(
        thrown<ZyIndexOutOfBoundsException>("ZyIndexOutOfBoundsException", "Index out of bounds"),
        thrown<ZyIndexOutOfBoundsException>("ZyIndexOutOfBoundsException", "Index out of bounds [-3,2]", -3,
                                            2),
        thrown<ZyIndexOutOfBoundsException>("ZyIndexOutOfBoundsException", "Index out of bounds [3,2]", 3u,
                                            2u),
        thrown<ZyIndexOutOfBoundsException>("ZyIndexOutOfBoundsException",
                                            "Index out of bounds [0,4294967295]", 0u, 4294967295u),
        thrown<ZyIndexOutOfBoundsException>("ZyIndexOutOfBoundsException", "row [-1,4]", "row", -1, 4),
        thrown<ZyIndexOutOfBoundsException>("ZyIndexOutOfBoundsException", "row [5,4]", "row", 5u, 4u),
        thrown<ZyBadAllocException>("ZyBadAllocException", "Bad memory allocation", ""),
        thrown<ZyBadAllocException>("ZyBadAllocException", "Bad memory allocation: table", "table"),
        thrown<ZyStackLimitException>("ZyStackLimitException", "Stack limit reached"),
        thrown<ZyUserCancelledException>("ZyUserCancelledException", "User cancelled"),
        thrown<ZyUserCancelledException>("ZyUserCancelledException", "stop", "stop"),
        thrown<ZyNoClipboardException>("ZyNoClipboardException", "No clipboard available"),
        thrown<ZyNoClipboardException>("ZyNoClipboardException", "none", "none"),
        thrown<ZyInvalidMimeDataException>("ZyInvalidMimeDataException",
                                           "No MIME data of given type available: text/csv", "text/csv"),
        thrown<ZyIOException>("ZyIOException", ""), thrown<ZyIOException>("ZyIOException", "io", "io"),
        thrown<ZyIOInvalidReadException>("ZyIOInvalidReadException", ""),
        thrown<ZyIOInvalidReadException>("ZyIOInvalidReadException", "r", "r"),
        thrown<ZyIOInvalidWriteException>("ZyIOInvalidWriteException", ""),
        thrown<ZyIOInvalidWriteException>("ZyIOInvalidWriteException", "w", "w")));

INSTANTIATE_TEST_SUITE_P(
    Maths, ZyExceptionWords,
    testing::Values(
        thrown<ZyMathsException>("ZyMathsException", "Maths error"),
        thrown<ZyMathsException>("ZyMathsException", "m", "m"),
        thrown<ZyDomainException>("ZyDomainException", "d", "d"),
        thrown<ZyDomainException>("ZyDomainException", "Value (1.5) is outside range [0, 1]", 1.5, 0.0, 1.0),
        thrown<ZyDomainException>("ZyDomainException", "Value (1.23457e+06) is outside range [-1e-09, inf]",
                                  1234567.0, -1e-9, std::numeric_limits<double>::infinity()),
        thrown<ZyDivideByZeroException>("ZyDivideByZeroException", "Divide by zero"),
        thrown<ZyInvalidOperationMathsException>("ZyInvalidOperationMathsException", "Invalid operation"),
        thrown<ZyInvalidOperationMathsException>("ZyInvalidOperationMathsException", "i", "i"),
        thrown<ZyOverflowException>("ZyOverflowException", "Overflow - result too large"),
        thrown<ZyOverflowException>("ZyOverflowException", "o", "o"),
        thrown<ZyUnderflowException>("ZyUnderflowException", "Underflow - result too small"),
        thrown<ZyUnderflowException>("ZyUnderflowException", "u", "u")));

INSTANTIATE_TEST_SUITE_P(
    Xml, ZyExceptionWords,
    testing::Values(
        thrown<ZyXMLException>("ZyXMLException", "x", "x"),
        thrown<ZyInvalidXMLException>("ZyInvalidXMLException", "Invalid XML: r", "r"),
        thrown<ZyInvalidXMLException>("ZyInvalidXMLException", "Invalid XML: r, for schema: s", "r", "s"),
        thrown<ZyInvalidXMLSchemaException>("ZyInvalidXMLSchemaException", "Invalid XML schema: [s] r", "s",
                                            "r"),
        thrown<ZyInvalidXMLOperation>("ZyInvalidXMLOperation", "o", "o"),
        thrown<ZyInvalidXMLAttributeName>("ZyInvalidXMLAttributeName", "Invalid attribute name: a b", "a b"),
        thrown<ZyUnknownXMLAttributeException>("ZyUnknownXMLAttributeException", "Unknown attribute: a", "a"),
        thrown<ZyUnknownXMLElementException>("ZyUnknownXMLElementException", "Unknown element: e", "e"),
        thrown<ZyNullDomElementException>("ZyNullDomElementException", "Null dom element"),
        thrown<ZyNullXMLStreamElementException>("ZyNullXMLStreamElementException", "Null XML stream element"),
        thrown<ZyXMLDuplicateRuleException>("ZyXMLDuplicateRuleException", "Duplicate rule for XML path")));

TEST(ZyException, Deliberate_mime_data_doubled_word)
{
    EXPECT_STREQ(ZyInvalidMimeDataException().what(), "No MIME data available available");
}

TEST(ZyException, Deliberate_domain_default_words)
{
    EXPECT_STREQ(ZyDomainException().what(), "Invalid operation");
}

TEST(ZyException, Deliberate_invalid_read_is_no_io_exception)
{
    EXPECT_FALSE((std::is_base_of_v<ZyIOException, ZyIOInvalidReadException>));
    EXPECT_THROW(
        {
            try {
                throw ZyIOInvalidReadException();
            } catch (ZyIOException const &) {
                FAIL() << "a misuse was taken for a failure of the device";
            }
        },
        ZyIOInvalidReadException);
}

TEST(ZyException, Deliberate_invalid_write_is_no_io_exception)
{
    EXPECT_FALSE((std::is_base_of_v<ZyIOException, ZyIOInvalidWriteException>));
}

TEST(ZyException, TakesTheWordsOfTheStandardAllocationFailure)
{
    std::bad_alloc const failure;
    EXPECT_EQ(std::string(ZyBadAllocException(failure).what()),
              std::string("Bad memory allocation: ") + failure.what());
}

TEST(ZyException, HandlersOfTheFamiliesCatchTheirMembers)
{
    EXPECT_THROW(throw ZyOverflowException(), ZyMathsException);
    EXPECT_THROW(throw ZyDomainException(), ZyMathsException);
    EXPECT_THROW(throw ZyNullDomElementException(), ZyXMLException);
    EXPECT_THROW(throw ZyIOException(), ZyExceptionInterface);
}

TEST(ZyException, CopiesShareNothing)
{
    ZyInvalidCallException const first("first");
    ZyInvalidCallException copy(first);
    EXPECT_STREQ(copy.what(), "first");
    EXPECT_NE(static_cast<void const *>(copy.what()), static_cast<void const *>(first.what()));
    copy = ZyInvalidCallException("second");
    EXPECT_STREQ(copy.what(), "second");
    EXPECT_STREQ(first.what(), "first");
    ZyInvalidCallException const & same = copy;
    copy = same;
    EXPECT_STREQ(copy.what(), "second");
}

TEST(ZyException, ConvertsToItsMessage)
{
    ZyIOException const failure("gone");
    ZyString const & text = failure;
    EXPECT_EQ(&text, &failure.message());
}

TEST(ZyException, IsAnswerableThroughTheInterface)
{
    ZyNotFoundException const failure("x");
    ZyExceptionInterface const & asked = failure;
    EXPECT_STREQ(asked.name(), "ZyNotFoundException");
    EXPECT_STREQ(asked.what(), "Item not found: x");
}
