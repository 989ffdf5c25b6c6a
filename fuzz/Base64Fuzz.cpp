// SPDX-License-Identifier: BSD-3-Clause
// Base64: the input as bytes to encode and as text to decode, beside a decoder that looks at one character at
// a time.
#include <ZyBase64Converter.h>
#include <ZyByteArray.h>
#include <ZyString.h>

#include "Fuzz.h"

#include <cstring>
#include <stdexcept>

namespace
{
constexpr std::string_view alphabet = "ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz0123456789+/";

std::string bytesOf(ZyByteArray const & array)
{
    return std::string(array.data(), static_cast<std::size_t>(array.length()));
}

unsigned int indexOf(char c)
{
    std::size_t const at = alphabet.find(c);
    return at == std::string_view::npos ? (c == '=' ? 64u : 65u) : static_cast<unsigned int>(at);
}

// What padding leaves, and a character outside the alphabet, is told at ZyBase64ConverterCore::decode.
std::string decoded(std::string_view text)
{
    std::string bytes;
    char third = 0;
    for (std::size_t at = 0; at < text.size(); at += 4) {
        unsigned int const i2 = indexOf(text[at + 2]);
        unsigned int const i3 = indexOf(text[at + 3]);
        unsigned int const i1 = indexOf(text[at + 1]);
        bytes += static_cast<char>(indexOf(text[at]) << 2 | i1 >> 4);
        bytes += i2 < 64 ? static_cast<char>(i1 << 4 | i2 >> 2) : '\0';
        if (i2 < 64) {
            third = i3 < 64 ? static_cast<char>(i2 << 6 | i3) : '\0';
        }
        bytes += third;
    }
    return bytes;
}

template <class Number>
Number numberOf(std::string_view bytes)
{
    Number number{};
    if (!bytes.empty()) {
        std::memcpy(&number, bytes.data(), std::min(sizeof number, bytes.size()));
    }
    return number;
}

bool sameBits(double a, double b)
{
    return std::memcmp(&a, &b, sizeof a) == 0;
}

void encode(std::string_view bytes)
{
    ZyByteArray const array(static_cast<int>(bytes.size()), bytes.data());
    std::string const text = ZyBase64ConverterCore().encode(array).c_str();
    Fuzz::require(text.size() == (bytes.size() + 2) / 3 * 4, "four characters for three bytes");
    Fuzz::require(text.find_first_not_of(std::string(alphabet) + "=") == std::string::npos,
                  "nothing but the alphabet and padding");
    if (!bytes.empty()) {
        std::string const back = bytesOf(*ZyBase64ConverterCore().decode(text));
        Fuzz::require(back.substr(0, bytes.size()) == bytes, "what is encoded decodes to itself");
    }
    double const number = numberOf<double>(bytes);
    ZyBase64Converter const converter;
    Fuzz::require(sameBits(converter.decodeDouble(converter.encodeDouble(number)), number),
                  "every bit of a double");
    int const integer = numberOf<int>(bytes);
    Fuzz::require(converter.decodeInteger(converter.encodeInteger(integer)) == integer, "every integer");
    __int64 const large = numberOf<__int64>(bytes);
    ZyStringLongLongConverter const decimal;
    Fuzz::require(decimal.convert(decimal.convert(large)) == large, "every large integer");
}

void decode(std::string_view bytes)
{
    ZyString const text{std::string(bytes)};
    ZyBase64Converter const converter;
    std::string result;
    std::string const failure =
        Fuzz::failureOf([&] { result = bytesOf(*ZyBase64ConverterCore().decode(text)); });
    if (bytes.empty() || bytes.size() % 4 != 0) {
        std::string const expected = "ZyInvalidParameterException: Invalid string length";
        Fuzz::require(failure == expected, "decode refuses by the length");
        Fuzz::require(Fuzz::failureOf([&] { converter.decodeDouble(text); }) == expected,
                      "decodeDouble refuses");
        Fuzz::require(Fuzz::failureOf([&] { converter.decodeInteger(text); }) == expected,
                      "decodeInteger refuses");
        Fuzz::require(Fuzz::failureOf([&] { converter.decodeString(text); }) == expected,
                      "decodeString refuses");
        return;
    }
    Fuzz::require(failure.empty(), "every other text decodes");
    Fuzz::require(result == decoded(bytes), "one character at a time gives the same");
    Fuzz::require(sameBits(converter.decodeDouble(text), numberOf<double>(result)), "the first eight bytes");
    Fuzz::require(converter.decodeInteger(text) == numberOf<int>(result), "the first four bytes");
    Fuzz::require(std::string(converter.decodeString(text).c_str()) == result.c_str(), "up to the first NUL");
}

void convertLarge(std::string_view bytes)
{
    ZyString const text{std::string(bytes)};
    try {
        __int64 const number = ZyStringLongLongConverter().convert(text);
        Fuzz::require(std::stoll(text.c_str()) == number, "as the standard library reads it");
    } catch (std::invalid_argument const & failure) {
        Fuzz::require(std::strcmp(failure.what(), "invalid stoll argument") == 0, "words for no digits");
    } catch (std::out_of_range const & failure) {
        Fuzz::require(std::strcmp(failure.what(), "stoll argument out of range") == 0, "words for too large");
    }
}
} // namespace

extern "C" int LLVMFuzzerTestOneInput(std::uint8_t const * data, std::size_t size)
{
    std::string_view const bytes = Fuzz::Input(data, size).rest();
    encode(bytes);
    decode(bytes);
    convertLarge(bytes);
    return 0;
}
