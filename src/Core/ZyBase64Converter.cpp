// SPDX-License-Identifier: BSD-3-Clause
// The typed converters around Base64.
#include <ZyBase64Converter.h>

#include <Core/ZyBase64_p.h>
#include <ZyException.h>

#include <algorithm>
#include <charconv>
#include <cstdint>
#include <limits>
#include <new>
#include <stdexcept>
#include <string>
#include <system_error>

namespace
{
std::string encoded(char const * data, std::size_t count)
{
    unsigned char const * bytes = reinterpret_cast<unsigned char const *>(data);
    std::string text(ZyBase64::EncodedSize(count), '\0');
    ZyBase64::Encode(bytes, count, text.data());
    return text;
}

std::string encodedInteger(std::uint64_t number, std::size_t count)
{
    unsigned char bytes[sizeof number];
    ZyBase64::StoreLittle(number, count, bytes);
    return encoded(reinterpret_cast<char const *>(bytes), count);
}

std::string encodedReal(double number)
{
    char text[ZyBase64::RealSize];
    ZyBase64::EncodeReal(number, text);
    return std::string(text, sizeof text);
}

/** The number of groups of four characters. */
std::size_t checkedGroups(std::string const & text)
{
    if (text.empty() || text.size() % 4 != 0) {
        throw ZyInvalidParameterException("Invalid string length");
    }
    return text.size() / 4;
}

/** A blank of the C locale. */
bool isBlank(char character)
{
    return character == ' ' || (character >= '\t' && character <= '\r');
}

double decodedReal(std::string const & text)
{
    return ZyBase64::DecodeReal(text.data(), checkedGroups(text));
}
} // namespace

class ZyBase64ConverterCore::Private : public ZyPrivateObject
{};

ZyBase64ConverterCore::ZyBase64ConverterCore() : m_d(new Private) {}

ZyBase64ConverterCore::~ZyBase64ConverterCore() = default;

YString ZyBase64ConverterCore::encode(ZyByteArray const & bytes) const
{
    return encoded(bytes.data(), static_cast<std::size_t>(bytes.length()));
}

std::shared_ptr<ZyByteArray> ZyBase64ConverterCore::decode(ZyString const & text) const
{
    std::string const & characters = text.toStdString();
    std::size_t const groups = checkedGroups(characters);
    if (groups > std::numeric_limits<int>::max() / 3) {
        throw std::bad_alloc(); // more bytes than an array can count
    }
    std::shared_ptr<ZyByteArray> bytes = std::make_shared<ZyByteArray>(static_cast<int>(groups * 3));
    ZyBase64::Decode(characters.data(), groups, reinterpret_cast<unsigned char *>(&(*bytes)[0]));
    return bytes;
}

ZyBase64Converter::ZyBase64Converter() = default;

ZyBase64Converter::ZyBase64Converter(ZyBase64Converter const &) = default;

ZyBase64Converter & ZyBase64Converter::operator=(ZyBase64Converter const &) = default;

ZyBase64Converter::~ZyBase64Converter() = default;

YString ZyBase64Converter::encodeDouble(double const & number) const
{
    return encodedReal(number);
}

YString ZyBase64Converter::encodeInteger(__int64 const & number) const
{
    return encodedInteger(static_cast<std::uint64_t>(number), 8);
}

YString ZyBase64Converter::encodeInteger(int const & number) const
{
    return encodedInteger(static_cast<std::uint32_t>(number), 4);
}

YString ZyBase64Converter::encodeString(ZyString const & text) const
{
    return encoded(text.toStdString().data(), text.toStdString().size());
}

double ZyBase64Converter::decodeDouble(ZyString const & text) const
{
    return decodedReal(text.toStdString());
}

int ZyBase64Converter::decodeInteger(ZyString const & text) const
{
    std::string const & characters = text.toStdString();
    unsigned char bytes[6] = {};
    ZyBase64::Decode(characters.data(), std::min<std::size_t>(checkedGroups(characters), 2), bytes);
    return static_cast<int>(static_cast<std::uint32_t>(ZyBase64::LoadLittle(bytes, 4)));
}

YString ZyBase64Converter::decodeString(ZyString const & text) const
{
    return YString(ZyBase64ConverterCore().decode(text)->data());
}

ZyStringDoubleBase64Converter::~ZyStringDoubleBase64Converter() = default;

ZyString ZyStringDoubleBase64Converter::convert(double const & number) const
{
    return ZyString::Base64(number);
}

double ZyStringDoubleBase64Converter::convert(ZyString const & text) const
{
    return decodedReal(text.toStdString());
}

ZyStringLongLongConverter::~ZyStringLongLongConverter() = default;

ZyString ZyStringLongLongConverter::convert(__int64 const & number) const
{
    return ZyString(number);
}

__int64 ZyStringLongLongConverter::convert(ZyString const & text) const
{
    std::string const & characters = text.toStdString();
    char const * const end = characters.data() + characters.size();
    char const * begin = characters.data();
    while (begin != end && isBlank(*begin)) {
        ++begin;
    }
    if (end - begin > 1 && begin[0] == '+' && begin[1] != '-') { // the reader below knows no plus sign
        ++begin;
    }
    __int64 number = 0;
    std::errc const failure = std::from_chars(begin, end, number).ec;
    if (failure == std::errc::invalid_argument) {
        throw std::invalid_argument("invalid stoll argument");
    }
    if (failure == std::errc::result_out_of_range) {
        throw std::out_of_range("stoll argument out of range");
    }
    return number;
}
