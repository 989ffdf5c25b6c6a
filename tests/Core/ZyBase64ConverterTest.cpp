// SPDX-License-Identifier: BSD-3-Clause
// Tests of the codec and of the typed converters around it.
#include <ZyBase64Converter.h>

#include <Core/ZyBase64_p.h>
#include <ThrowsMessage.h>

#include <QByteArray>
#include <gtest/gtest.h>

#include <climits>
#include <cstdint>
#include <cstring>
#include <limits>
#include <random>
#include <stdexcept>
#include <string>
#include <vector>

static_assert(sizeof(ZyBase64ConverterCore) == 2 * sizeof(void *), "a table pointer and the state");
static_assert(sizeof(ZyBase64Converter) == sizeof(void *), "no data");
static_assert(sizeof(ZyStringDoubleBase64Converter) == sizeof(void *), "no data");
static_assert(sizeof(ZyStringLongLongConverter) == sizeof(void *), "no data");

namespace
{
using Bytes = std::vector<unsigned>;

Bytes decoded(ZyString const & text)
{
    std::shared_ptr<ZyByteArray> const bytes = ZyBase64ConverterCore().decode(text);
    Bytes result;
    for (int i = 0; i < bytes->length(); ++i) {
        result.push_back(static_cast<unsigned char>((*bytes)[i]));
    }
    return result;
}

std::string encoded(std::string const & bytes)
{
    return ZyBase64ConverterCore().encode(ZyByteArray(static_cast<int>(bytes.size()), bytes.data())).c_str();
}

std::uint64_t bitsOf(double number)
{
    std::uint64_t bits = 0;
    std::memcpy(&bits, &number, sizeof bits);
    return bits;
}

double numberOf(std::uint64_t bits)
{
    double number = 0;
    std::memcpy(&number, &bits, sizeof number);
    return number;
}
} // namespace

TEST(ZyBase64ConverterCore, EncodesThePaddingForms)
{
    EXPECT_EQ(encoded(""), "");
    EXPECT_EQ(encoded("f"), "Zg==");
    EXPECT_EQ(encoded("fo"), "Zm8=");
    EXPECT_EQ(encoded("foo"), "Zm9v");
    EXPECT_EQ(encoded("foob"), "Zm9vYg==");
    EXPECT_EQ(encoded("fooba"), "Zm9vYmE=");
    EXPECT_EQ(encoded("foobar"), "Zm9vYmFy");
}

TEST(ZyBase64ConverterCore, EncodesEveryCharacterOfTheAlphabet)
{
    EXPECT_EQ(
        encoded(std::string("\x00\x10\x83\x10\x51\x87\x20\x92\x8B\x30\xD3\x8F\x41\x14\x93\x51\x55\x97\x61\x96"
                            "\x9B\x71\xD7\x9F\x82\x18\xA3\x92\x59\xA7\xA2\x9A\xAB\xB2\xDB\xAF\xC3\x1C\xB3\xD3"
                            "\x5D\xB7\xE3\x9E\xBB\xF3\xDF\xBF",
                            48)),
        "ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz0123456789+/");
}

TEST(ZyBase64ConverterCore, EncodesWhatOthersEncode)
{
    std::mt19937 engine(7);
    for (std::size_t size = 0; size < 200; ++size) {
        std::string bytes;
        for (std::size_t i = 0; i < size; ++i) {
            bytes += static_cast<char>(engine());
        }
        QByteArray const theirs = QByteArray(bytes.data(), static_cast<int>(size)).toBase64();
        EXPECT_EQ(encoded(bytes), theirs.toStdString());
    }
}

TEST(ZyBase64ConverterCore, DecodesWhatItEncodes)
{
    std::mt19937 engine(8);
    for (std::size_t size = 1; size < 200; ++size) {
        Bytes bytes;
        std::string text;
        for (std::size_t i = 0; i < size; ++i) {
            bytes.push_back(engine() & 255u);
            text += static_cast<char>(bytes.back());
        }
        Bytes back = decoded(encoded(text).c_str());
        ASSERT_EQ(back.size(), (size + 2) / 3 * 3);
        back.resize(size);
        EXPECT_EQ(back, bytes);
    }
}

TEST(ZyBase64ConverterCore, DecodeRefusesTheEmptyText)
{
    EXPECT_ZY_THROW(ZyBase64ConverterCore().decode(""), ZyInvalidParameterException, "Invalid string length");
}

TEST(ZyBase64ConverterCore, DecodeRefusesALengthThatIsNoMultipleOfFour)
{
    for (char const * text : {"A", "AA", "AAA", "AAAAA", "QUJDQQ=", "AAAAAAAAAAA"}) {
        EXPECT_ZY_THROW(ZyBase64ConverterCore().decode(text), ZyInvalidParameterException,
                        "Invalid string length");
    }
}

TEST(ZyBase64ConverterCore, Deliberate_decode_keeps_padding_bytes)
{
    EXPECT_EQ(decoded("QQ=="), (Bytes{0x41, 0, 0}));
    EXPECT_EQ(decoded("QUI="), (Bytes{0x41, 0x42, 0}));
    EXPECT_EQ(decoded("QUJDQUI="), (Bytes{0x41, 0x42, 0x43, 0x41, 0x42, 0}));
    EXPECT_EQ(decoded("AAAAAAAAAAA=").size(), 9u);
}

TEST(ZyBase64ConverterCore, Deliberate_decode_takes_anything)
{
    EXPECT_EQ(decoded("QUJDQQ=="), (Bytes{0x41, 0x42, 0x43, 0x41, 0, 0x43}));
    EXPECT_EQ(decoded("QUJDQQ==RA=="), (Bytes{0x41, 0x42, 0x43, 0x41, 0, 0x43, 0x44, 0, 0x43}));
    EXPECT_EQ(decoded("!!!!"), (Bytes{4, 0, 0}));
    EXPECT_EQ(decoded("===="), (Bytes{4, 0, 0}));
    EXPECT_EQ(decoded("A==="), (Bytes{4, 0, 0}));
    EXPECT_EQ(decoded("=AAA"), (Bytes{0, 0, 0}));
    EXPECT_EQ(decoded("Q Q="), (Bytes{0x44, 0x14, 0}));
    EXPECT_EQ(decoded(ZyString(std::string(4, '\0'))), (Bytes{4, 0, 0}));
    EXPECT_EQ(decoded("\xC3\xA4\xC3\xB6"), (Bytes{4, 0, 0}));
}

TEST(ZyBase64ConverterCore, ThirdByteIsZeroBehindAnUnpaddedThirdCharacter)
{
    EXPECT_EQ(decoded("////AAA=AA=="), (Bytes{255, 255, 255, 0, 0, 0, 0, 0, 0}));
}

TEST(ZyBase64ConverterCore, DecodedArrayIsTerminated)
{
    std::shared_ptr<ZyByteArray> const bytes = ZyBase64ConverterCore().decode("////");
    EXPECT_EQ(bytes->data()[3], '\0');
}

TEST(ZyBase64Converter, EncodesDoublesAsLittleEndianBytes)
{
    ZyBase64Converter const converter;
    EXPECT_STREQ(converter.encodeDouble(0.0).c_str(), "AAAAAAAAAAA=");
    EXPECT_STREQ(converter.encodeDouble(-0.0).c_str(), "AAAAAAAAAIA=");
    EXPECT_STREQ(converter.encodeDouble(1.0).c_str(), "AAAAAAAA8D8=");
    EXPECT_STREQ(converter.encodeDouble(0.1).c_str(), "mpmZmZmZuT8=");
    EXPECT_STREQ(converter.encodeDouble(std::numeric_limits<double>::infinity()).c_str(), "AAAAAAAA8H8=");
}

TEST(ZyBase64Converter, DoublesKeepEveryBit)
{
    ZyBase64Converter const converter;
    std::vector<std::uint64_t> patterns = {bitsOf(0.0),         bitsOf(-0.0),        bitsOf(1.0),
                                           0x7FF0000000000000u, 0xFFF0000000000000u, 0x7FF8000000000001u,
                                           0xFFF8000000ABCDEFu, 0x7FF0000000000001u, 1u,
                                           0xFFFFFFFFFFFFFFFFu, 0x0123456789ABCDEFu};
    std::mt19937_64 engine(9);
    for (int i = 0; i < 1000; ++i) {
        patterns.push_back(engine());
    }
    for (std::uint64_t const bits : patterns) {
        YString const text = converter.encodeDouble(numberOf(bits));
        EXPECT_EQ(text.length(), 12);
        EXPECT_EQ(text.c_str()[11], '=');
        EXPECT_EQ(bitsOf(converter.decodeDouble(text)), bits);
    }
}

TEST(ZyBase64Converter, EncodesDoublesLikeTheirByteArrays)
{
    std::mt19937_64 engine(10);
    for (int i = 0; i < 1000; ++i) {
        std::uint64_t const bits = engine();
        std::string bytes;
        for (unsigned byte = 0; byte < 8; ++byte) {
            bytes += static_cast<char>(bits >> 8 * byte);
        }
        EXPECT_STREQ(ZyBase64Converter().encodeDouble(numberOf(bits)).c_str(), encoded(bytes).c_str());
    }
}

TEST(ZyBase64Converter, DecodesAnyTextAsItsFirstEightBytes)
{
    // Texts with padding and foreign characters at random places: the quick way and the byte array must
    // agree.
    std::string const characters = "AZaz09+/AZaz09+/QRSTUVuvwxyz12345678=! ";
    std::mt19937 engine(11);
    for (int i = 0; i < 20000; ++i) {
        std::string text((engine() % 4 + 1) * 4, ' ');
        for (char & character : text) {
            character = characters[engine() % characters.size()];
        }
        Bytes const bytes = decoded(text);
        std::uint64_t bits = 0;
        for (unsigned byte = 0; byte < 8 && byte < bytes.size(); ++byte) {
            bits |= static_cast<std::uint64_t>(bytes[byte]) << 8 * byte;
        }
        ASSERT_EQ(bitsOf(ZyBase64Converter().decodeDouble(text)), bits) << text;
        ASSERT_EQ(bitsOf(ZyStringDoubleBase64Converter().convert(ZyString(text))), bits) << text;
        ASSERT_EQ(static_cast<unsigned>(ZyBase64Converter().decodeInteger(text)),
                  static_cast<std::uint32_t>(bits));
    }
}

TEST(ZyBase64Converter, ShortTextsLeaveTheOtherBytesZero)
{
    ZyBase64Converter const converter;
    EXPECT_EQ(bitsOf(converter.decodeDouble("////")), 0xFFFFFFu);
    EXPECT_EQ(bitsOf(converter.decodeDouble("////////")), 0xFFFFFFFFFFFFu);
    EXPECT_EQ(converter.decodeInteger("////"), 0xFFFFFF);
}

TEST(ZyBase64Converter, LongTextsGiveTheirFirstBytes)
{
    ZyBase64Converter const converter;
    EXPECT_EQ(converter.decodeDouble("AAAAAAAA8D8=////"), 1.0);
    EXPECT_EQ(converter.decodeInteger("AQAAAAAAAAA="), 1);
}

TEST(ZyBase64Converter, EncodesIntegers)
{
    ZyBase64Converter const converter;
    EXPECT_STREQ(converter.encodeInteger(-1).c_str(), "/////w==");
    EXPECT_STREQ(converter.encodeInteger(static_cast<__int64>(-1)).c_str(), "//////////8=");
    EXPECT_STREQ(converter.encodeInteger(0).c_str(), "AAAAAA==");
    EXPECT_STREQ(converter.encodeInteger(1).c_str(), "AQAAAA==");
    EXPECT_STREQ(converter.encodeInteger(static_cast<__int64>(258)).c_str(), "AgEAAAAAAAA=");
}

TEST(ZyBase64Converter, IntegersMakeTheRoundTrip)
{
    ZyBase64Converter const converter;
    for (int const number : {0, 1, -1, 42, -42, INT_MAX, INT_MIN}) {
        EXPECT_EQ(converter.decodeInteger(converter.encodeInteger(number)), number);
    }
}

TEST(ZyBase64Converter, StringsMakeTheRoundTrip)
{
    ZyBase64Converter const converter;
    EXPECT_STREQ(converter.encodeString("Abc\xC3\xA4").c_str(), "QWJjw6Q=");
    for (char const * text : {"a", "ab", "abc", "abcd", "A text\nof two lines \xC3\xA4"}) {
        EXPECT_STREQ(converter.decodeString(converter.encodeString(text)).c_str(), text);
    }
}

TEST(ZyBase64Converter, EmptyTextDoesNotComeBack)
{
    ZyBase64Converter const converter;
    EXPECT_STREQ(converter.encodeString("").c_str(), "");
    EXPECT_ZY_THROW(converter.decodeString(converter.encodeString("")), ZyInvalidParameterException,
                    "Invalid string length");
}

TEST(ZyBase64Converter, StringsWithNulAreEncodedWholeAndDecodedUpToIt)
{
    ZyBase64Converter const converter;
    YString const text = converter.encodeString(ZyString(std::string("a\0b", 3)));
    EXPECT_STREQ(text.c_str(), "YQBi");
    EXPECT_STREQ(converter.decodeString(text).c_str(), "a");
}

TEST(ZyBase64Converter, EveryDecoderRefusesAWrongLength)
{
    ZyBase64Converter const converter;
    ZyStringDoubleBase64Converter const reals;
    for (char const * text : {"", "AAAAA", "AAAAAAAAAAA"}) {
        EXPECT_ZY_THROW(converter.decodeDouble(text), ZyInvalidParameterException, "Invalid string length");
        EXPECT_ZY_THROW(converter.decodeInteger(text), ZyInvalidParameterException, "Invalid string length");
        EXPECT_ZY_THROW(converter.decodeString(text), ZyInvalidParameterException, "Invalid string length");
        EXPECT_ZY_THROW(reals.convert(ZyString(text)), ZyInvalidParameterException, "Invalid string length");
    }
}

TEST(ZyBase64, BytesOfNumbersHaveOneOrderOnEveryMachine)
{
    unsigned char bytes[8];
    ZyBase64::StoreLittle(0x0807060504030201u, 8, bytes);
    for (unsigned i = 0; i < 8; ++i) {
        EXPECT_EQ(bytes[i], i + 1);
    }
    EXPECT_EQ(ZyBase64::LoadLittle(bytes, 8), 0x0807060504030201u);
    EXPECT_EQ(ZyBase64::LoadLittle(bytes, 4), 0x04030201u);
}

TEST(ZyStringDoubleBase64Converter, ConvertsBothWays)
{
    ZyStringDoubleBase64Converter const converter;
    EXPECT_STREQ(converter.convert(0.1).c_str(), "mpmZmZmZuT8=");
    EXPECT_EQ(converter.convert(ZyString("mpmZmZmZuT8=")), 0.1);
    ZyStringConverter<double> const & interface = converter;
    EXPECT_EQ(interface.convert(interface.convert(-1234.5e-67)), -1234.5e-67);
}

TEST(ZyStringBase64, IsTheExactFormOfADouble)
{
    EXPECT_STREQ(ZyString::Base64(1.0).c_str(), "AAAAAAAA8D8=");
    EXPECT_STREQ(ZyString::Base64(-0.0).c_str(), "AAAAAAAAAIA=");
    EXPECT_EQ(ZyString::Base64(3.14).size(), 12u);
    EXPECT_EQ(ZyStringDoubleBase64Converter().convert(ZyString::Base64(0.1 + 0.2)), 0.1 + 0.2);
}

TEST(ZyStringLongLongConverter, Deliberate_long_long_is_decimal)
{
    ZyStringLongLongConverter const converter;
    EXPECT_STREQ(converter.convert(static_cast<__int64>(0)).c_str(), "0");
    EXPECT_STREQ(converter.convert(static_cast<__int64>(-42)).c_str(), "-42");
    EXPECT_STREQ(converter.convert(static_cast<__int64>(LLONG_MAX)).c_str(), "9223372036854775807");
    EXPECT_STREQ(converter.convert(static_cast<__int64>(LLONG_MIN)).c_str(), "-9223372036854775808");
}

TEST(ZyStringLongLongConverter, SkipsLeadingBlanksAndIgnoresTrailingText)
{
    ZyStringLongLongConverter const converter;
    EXPECT_EQ(converter.convert(ZyString("  42abc")), 42);
    EXPECT_EQ(converter.convert(ZyString(" \t\n\v\f\r-7 8")), -7);
    EXPECT_EQ(converter.convert(ZyString("+5")), 5);
    EXPECT_EQ(converter.convert(ZyString("007")), 7);
    EXPECT_EQ(converter.convert(ZyString("0x10")), 0);
    EXPECT_EQ(converter.convert(ZyString("1,000")), 1);
    EXPECT_EQ(converter.convert(ZyString(std::string("1\0002", 3))), 1);
}

TEST(ZyStringLongLongConverter, KeepsTheWholeRange)
{
    ZyStringLongLongConverter const converter;
    EXPECT_EQ(converter.convert(ZyString("9223372036854775807")), LLONG_MAX);
    EXPECT_EQ(converter.convert(ZyString("-9223372036854775808")), LLONG_MIN);
}

TEST(ZyStringLongLongConverter, Deliberate_long_long_throws_standard_errors_without_digits)
{
    ZyStringLongLongConverter const converter;
    for (char const * text : {"abc", "", "  ", "-", "+", "+-5", "-+5", "+ 5", "- 5", "--5", "++5",
                              "\xA0"
                              "5"}) {
        EXPECT_STD_THROW(converter.convert(ZyString(text)), std::invalid_argument, "invalid stoll argument");
    }
}

TEST(ZyStringLongLongConverter, Deliberate_long_long_throws_standard_errors_beyond_the_range)
{
    ZyStringLongLongConverter const converter;
    for (char const * text : {"9223372036854775808", "-9223372036854775809", "99999999999999999999999"}) {
        EXPECT_STD_THROW(converter.convert(ZyString(text)), std::out_of_range, "stoll argument out of range");
    }
}
