// SPDX-License-Identifier: BSD-3-Clause
// The string types of the support library: 8-bit text, temporary text, and UTF-8 text seen as wide
// characters.
#pragma once

#include <keelbase/KbExport.h>
#include <keelbase/KbTypes.h>

#include <string>

/**
 * 8-bit text of any encoding, read as C text: it ends at the first NUL byte it is given.
 *
 * There is no conversion to `char const *` on purpose: beside the comparison operators it would make
 * `text == "a"` ambiguous. The integer constructors are explicit, so that no number slips into a text
 * parameter. A moved-from text is empty or unchanged; it may be read, assigned and destroyed.
 *
 * \threads as the standard string: concurrent reads only
 */
class KB_API YString
{
public:
    YString() = default;               ///< the empty text
    YString(char const * text);        ///< copies; a null pointer gives the empty text
    YString(std::string text);         ///< takes the bytes before the first NUL
    explicit YString(int number);      ///< decimal text: "0", "-7"
    explicit YString(unsigned number); ///< decimal text
    explicit YString(kb_int64 number); ///< decimal text

    /** The text, terminated; valid until this object changes or dies. Never null. */
    char const * c_str() const { return m_text.c_str(); }

    /** Length in bytes, without the terminator. */
    int length() const { return static_cast<int>(m_text.size()); }

    bool isEmpty() const { return m_text.empty(); }

    YString & operator+=(YString const & tail);

    /** Negative, 0 or positive, as this text sorts before, with or behind \a other; ASCII letters without
     * case. */
    int compareNoCase(YString const & other) const;

    friend YString operator+(YString head, YString const & tail) { return head += tail; }

    friend bool operator==(YString const & a, YString const & b)
    {
        return a.m_text == b.m_text;
    } ///< by bytes
    friend bool operator!=(YString const & a, YString const & b)
    {
        return a.m_text != b.m_text;
    }                                                                                           ///< by bytes
    friend bool operator<(YString const & a, YString const & b) { return a.m_text < b.m_text; } ///< by bytes

private:
    std::string m_text; // holds no NUL
};

/** A text that is about to go away; in everything but its type a YString. */
class KB_API TempString : public YString
{
public:
    using YString::YString;
    TempString() = default;
    TempString(YString text);
};

/** UTF-8 text seen as wide characters. */
class KB_API UTFString
{
public:
    /** Decodes \a utf8; a null pointer gives the empty text, every byte outside a valid sequence U+FFFD. */
    UTFString(char const * utf8);

    /**
     * The wide text, terminated; valid as long as this object.
     * UTF-16 where `wchar_t` has 16 bits, one unit a code point where it has 32.
     */
    wchar_t const * getWide() const { return m_wide.c_str(); }

private:
    std::wstring m_wide;
};
