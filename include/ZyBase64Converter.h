// SPDX-License-Identifier: BSD-3-Clause
// Base64, for values that must keep every bit: the codec of byte arrays and the typed converters around it.
#pragma once

#include <ZyByteArray.h>
#include <ZyExport.h>
#include <ZyPrivateObject.h>
#include <ZyStringConverter.h>
#include <ZyTypes.h>

#include <keelbase/YString.h>

#include <memory>

/** Base64 of byte arrays, with the standard alphabet and padding, made for small values. */
class ZYCORE_EXPORT ZyBase64ConverterCore
{
public:
    ZyBase64ConverterCore();
    ZyBase64ConverterCore(ZyBase64ConverterCore const &) = delete;
    ZyBase64ConverterCore & operator=(ZyBase64ConverterCore const &) = delete;
    virtual ~ZyBase64ConverterCore();

    /** Four characters for every three bytes begun; the empty text for an empty array. */
    YString encode(ZyByteArray const & bytes) const;
    /**
     * Three bytes for every four characters.
     *
     * \deliberate{decode-keeps-padding-bytes} Padding does not shorten the result: twelve characters with one "=" still give
     * nine bytes. The caller knows how many it wants.
     *
     * \deliberate{decode-takes-anything} A character outside the alphabet is no error and acts as padding. Where the
     * third character of a group is padding, the second byte is 0 and the third keeps its value from the
     * group before.
     *
     * \throws ZyInvalidParameterException the length is 0 or no multiple of 4: "Invalid string length"
     */
    std::shared_ptr<ZyByteArray> decode(ZyString const & text) const;

private:
    class ZYCORE_PRIVATE Private;
    ZyPrivatePtr<Private> & d() { return m_d; }
    ZyPrivatePtr<Private> const & d() const { return m_d; }

    ZyPrivatePtr<Private> m_d;
};

/**
 * Base64 of single values.
 *
 * Numbers are coded as their bytes in little-endian order, on every machine.
 *
 * \throws ZyInvalidParameterException from every decoder: the length of the text is 0 or no multiple of 4, "Invalid string
 *         length". Characters outside the alphabet are no error.
 */
class ZYCORE_EXPORT ZyBase64Converter
{
public:
    ZyBase64Converter();
    ZyBase64Converter(ZyBase64Converter const &);
    ZyBase64Converter & operator=(ZyBase64Converter const &);
    virtual ~ZyBase64Converter();

    /** Twelve characters, the last one "=". Every bit is kept, also of NaN and negative zero. */
    virtual YString encodeDouble(double const & number) const;
    /** Twelve characters, the last one "=". */
    virtual YString encodeInteger(__int64 const & number) const;
    /** Eight characters, the last two "=". */
    virtual YString encodeInteger(int const & number) const;
    /** The empty text gives the empty text, which does not decode. */
    virtual YString encodeString(ZyString const & text) const;
    /** The number of the first eight decoded bytes; missing ones are 0. */
    virtual double decodeDouble(ZyString const & text) const;
    /** The number of the first four decoded bytes; missing ones are 0. */
    virtual int decodeInteger(ZyString const & text) const;
    /** The decoded bytes up to the first NUL. */
    virtual YString decodeString(ZyString const & text) const;
};

/** A double as Base64 of its bytes, which keeps every bit. */
class ZYCORE_EXPORT ZyStringDoubleBase64Converter : public ZyStringConverter<double>
{
public:
    ~ZyStringDoubleBase64Converter() override;

    /** Twelve characters. */
    ZyString convert(double const & number) const override;
    /** \throws ZyInvalidParameterException "Invalid string length", as ZyBase64Converter::decodeDouble */
    double convert(ZyString const & text) const override;
};

/**
 * A 64-bit integer as decimal text.
 *
 * \deliberate{long-long-is-decimal} Unlike its neighbours it writes no Base64: documents hold such numbers so.
 */
class ZYCORE_EXPORT ZyStringLongLongConverter : public ZyStringConverter<__int64>
{
public:
    ~ZyStringLongLongConverter() override;

    ZyString convert(__int64 const & number) const override;
    /**
     * Reads decimal digits behind blanks and a sign; what follows them is ignored.
     *
     * \deliberate{long-long-throws-standard-errors} Failures are told by the standard library's exceptions, which no
     * handler of a ZyException catches.
     *
     * \throws std::invalid_argument there are no digits: "invalid stoll argument"
     * \throws std::out_of_range the number does not fit: "stoll argument out of range"
     */
    __int64 convert(ZyString const & text) const override;
};
