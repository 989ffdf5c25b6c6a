// SPDX-License-Identifier: BSD-3-Clause
// The one string type of the public interface.
#pragma once

#include <ZyComparableString.h>
#include <ZyExport.h>
#include <ZyPrivateObject.h>
#include <ZyStringView.h>
#include <ZyTypes.h>

#include <string>

struct PrintfArg;
class QString;
class QStringRef;
class TempString;
class YString;
class ZyUUID;
template <class T>
class ZyDeque;

/**
 * 8-bit text, UTF-8 by convention, compared without regard to case unless the caller asks otherwise.
 *
 * \code
 * ZyString const name("Gain");
 * name == "GAIN";                                          // true
 * name.equal("GAIN", ZyComparableString::CaseSensitive);   // false
 * \endcode
 *
 * Any bytes may be held, NUL included; what reads C text stops at the first one. Positions and sizes count
 * bytes. A null `char const *` counts as the empty text everywhere. Each string keeps the global locale of
 * its construction; classification and folding use it, except in comparisons, which take the global locale of
 * the moment.
 *
 * A value class: copies are deep, a moved-from string is empty and usable. Two threads may read one string.
 */
class ZYCORE_EXPORT ZyString : public ZyComparableString
{
public:
    /** The alphabets of Random; any other value is as LettersAndDigits. */
    enum RandomType : int { LettersAndDigits = 0, Digits = 1, LowerCase = 2, UpperCase = 3, Letters = 4 };

    ZyString();
    ZyString(char const * text);
    ZyString(char character);
    /** Decimal text. */
    ZyString(int number);
    ZyString(unsigned int const & number);
    ZyString(__int64 const & number);
    ZyString(std::string const & text);
    ZyString(std::string && text);
    /** UTF-8; a lone surrogate becomes "?". */
    ZyString(QString const & text);
    ZyString(QStringRef const & text);
    ZyString(ZyStringView const & text);
    /** The characters up to the first NUL. */
    ZyString(YString const & text);
    ZyString(TempString const & text);
    /** A copy of the identifier's text; where no class is named, the identifier converts itself. */
    explicit ZyString(ZyUUID const & id);
    ZyString(ZyString const & other);
    ZyString(ZyString && other);
    ~ZyString() override;

    /**
     * Takes the characters only.
     *
     * \deliberate{assignment-keeps-locale} The target keeps the locale that it was made under.
     */
    ZyString & operator=(ZyString const & other);
    ZyString & operator=(ZyString && other);
    ZyString & operator=(char const * text);

    /** The NUL-terminated characters, valid until the string changes. Four names of one operation. */
    char const * c_str() const;
    /** The same as c_str(). */
    char const * toCString() const;
    /** The same as c_str(). */
    char const * tocs() const;
    /** The same as c_str(). */
    operator char const *() const;
    /** A string is no condition: it would ask for the pointer, which is never null. Use isEmpty(). */
    explicit operator bool() const = delete;
    /** The held string itself. */
    std::string & toStdString();
    std::string const & toStdString() const;
    /** Decoded as UTF-8 up to the first NUL: U+FFFD for a bad byte, a leading byte order mark is dropped. */
    QString toQString() const;
    /** The same as toQString(). */
    operator QString() const;
    /** Up to the first NUL. */
    YString toYString() const;
    /** The same as toYString(). */
    operator YString() const;
    /** An argument that points at c_str(), to be used while this string lives unchanged. */
    operator PrintfArg() const;
    /**
     * Decoded from UTF-8 up to the first NUL: one unit a code point where wchar_t has 32 bits, UTF-16 where
     * it has 16.
     *
     * \deliberate{wide-text-throws-a-standard-error} Malformed text is told by the standard library's exception,
     * which no handler of a ZyException catches.
     *
     * \throws std::range_error "bad conversion": the text is no well-formed UTF-8
     */
    std::wstring toWString() const;
    /** The integer that the text begins with, blanks in front allowed; 0 without digits, clamped to 32 bits.
     */
    int toInt() const;
    /** The number that the text begins with, as strtod in the C locale reads it; 0 without one. */
    double toDouble() const;
    /** The unsigned integer that the text begins with, as a stream reads it; 0 without one. */
    unsigned int toSizeT() const;

    /** The number of bytes. */
    unsigned int size() const override;
    /** Whether there are no characters. */
    bool isEmpty() const;
    /** The byte at a zero-based position, unchecked. */
    char & operator[](unsigned int position);
    char const & operator[](unsigned int position) const override;
    /** The byte at a zero-based position. \throws ZyIndexOutOfBoundsException "Index out of bounds [position,size]" */
    char & at(unsigned int position);
    char const & at(unsigned int position) const;

    /** A new string of both texts. */
    ZyString operator+(ZyString const & text) const;
    ZyString operator+(ZyStringView const & text) const;
    ZyString operator+(char const * text) const;
    /** Adds \a text at the end; it may be this string. */
    ZyString & append(ZyString const & text);
    ZyString & append(char const * text);
    /** The same as append(). */
    ZyString & concat(ZyString const & text);
    /** The same as append(). */
    ZyString & operator+=(ZyString const & text);
    ZyString & operator+=(char const * text);

    /** Equality in this string's locale, or of the bytes. */
    bool equal(ZyString const & other, Comparison comparison) const;
    bool equal(ZyStringView const & other, Comparison comparison) const;
    bool equal(char const * other, Comparison comparison) const;
    /**
     * Order in this string's locale, or of the bytes as signed numbers; a string comes before all that it
     * begins.
     */
    bool lessThan(ZyString const & other, Comparison comparison) const;
    /**
     * Whether \a part occurs, by default without regard to case.
     *
     * \deliberate{empty-contains-empty} The search without regard to case reports a position before the end, so an
     * empty string does not contain the empty string; with CaseSensitive it does.
     */
    bool contains(ZyString const & part) const;
    bool contains(ZyString const & part, Comparison comparison) const;
    /** Whether the text begins with \a part; always true for an empty one. By default without regard to case.
     */
    bool startsWith(ZyString const & part) const;
    bool startsWith(ZyString const & part, Comparison comparison) const;
    /**
     * Whether the text ends with \a part; always true for an empty one. By default without regard to case.
     */
    bool endsWith(ZyString const & part) const;
    bool endsWith(ZyString const & part, Comparison comparison) const;
    /** The first position of a byte from \a position on. \throws ZyNotFoundException "Item not found: String::find" */
    unsigned int find(char character, unsigned int position) const;
    /** The last position of a byte. \throws ZyNotFoundException "Item not found: String::findLastOf" */
    unsigned int findLastOf(char character) const;

    /**
     * Replaces every occurrence from left to right; inserted text is not searched again.
     *
     * \deliberate{replace-inserts-up-to-a-nul} What is inserted ends at the first NUL of \a to.
     */
    ZyString & replace(ZyString const & from, ZyString const & to, Comparison comparison);
    /** A copy in which replace() was done. */
    ZyString replaced(ZyString const & from, ZyString const & to, Comparison comparison) const;
    /** Appends \a fill up to \a size bytes, or cuts. */
    ZyString & resize(unsigned int size, char fill);
    /** Removes white space from both ends. */
    ZyString & trim();
    /** The text without the white space at its ends, as a view into this string. */
    ZyStringView trimmed() const;
    /** Puts a blank before every capital that has no white space before it: "ThisIsIt" becomes "This Is It".
     */
    ZyString & spaceCapitals();
    /** A copy in which spaceCapitals() was done. */
    ZyString spacedCapitals() const;
    /**
     * The bytes from \a position on, as a view into this string; none at the size.
     * \throws ZyIndexOutOfBoundsException \a position is beyond the size: "Index out of bounds [position,size]"
     */
    ZyStringView substring(unsigned int position) const;
    /** At most \a length bytes from \a position on. \throws ZyIndexOutOfBoundsException the same */
    ZyStringView substring(unsigned int position, unsigned int length) const;
    /**
     * Splits at every occurrence of a delimiter, without regard to case unless told otherwise; empty tokens
     * stay. The tokens are views into this string and must not outlive it (nor be taken of a temporary).
     * \throws ZyInvalidParameterException the delimiter is empty: "Delimiter is empty"
     */
    ZyDeque<ZyStringView> tokenize(ZyString const & delimiter) const;
    ZyDeque<ZyStringView> tokenize(ZyString const & delimiter, Comparison comparison) const;

    bool isDouble() const override;
    bool isInteger() const override;
    /** Whether there is a white-space character, in this string's locale. */
    bool containsWhiteSpace() const;

    /** True for the 52 ASCII letters, whatever the locale. */
    static bool IsLetter(char character);
    /** White space in the global locale. */
    static bool IsWhiteSpace(char character);
    /**
     * Carriage return and line feed.
     *
     * \deliberate{new-line-is-the-same-everywhere} On every platform: files that the suite writes have one form.
     */
    static ZyString NewLine();
    /** A display form with six significant digits, as "%g" in the C locale; it loses precision. */
    static ZyString ToString(double const & number);
    /** The exact form: Base64 of the eight bytes, twelve characters. */
    static ZyString Base64(double const & number);
    /** Characters drawn from an alphabet by the generator of the process, which has no lock. */
    static ZyString Random(unsigned int size, RandomType type);

private:
    friend struct ZyTextAccess;

    class ZYCORE_PRIVATE Private;
    ZyPrivatePtr<Private> & d() { return m_d; }
    ZyPrivatePtr<Private> const & d() const { return m_d; }

    ZyPrivatePtr<Private> m_d;
};

ZYCORE_EXPORT ZyString operator+(char const * a, ZyString const & b);

/** Text is equal without regard to case, and the QString that it converts to has another hash: see ZyHash.h.
 */
unsigned int qHash(ZyString const & text) = delete;
