// SPDX-License-Identifier: BSD-3-Clause
// Tells well-formed UTF-8 from anything else, byte by byte.
#pragma once

/** Follows a text; the pieces may be cut anywhere. */
class Utf8Check
{
public:
    /** Takes the next byte. \return false when the text cannot be UTF-8 any more */
    bool accept(unsigned char byte)
    {
        if (m_missing == 0) {
            return byte < 0x80 || begin(byte);
        }
        bool const fits = byte >= m_low && byte <= m_high;
        m_low = 0x80;
        m_high = 0xBF;
        --m_missing;
        return fits;
    }
    /** Whether no character is left unfinished. */
    bool complete() const { return m_missing == 0; }

private:
    // The second byte's range rules out overlong forms, surrogates and what lies beyond U+10FFFF.
    bool begin(unsigned char byte)
    {
        if (byte < 0xC2 || byte > 0xF4) {
            return false;
        }
        m_missing = byte < 0xE0 ? 1 : byte < 0xF0 ? 2 : 3;
        m_low = byte == 0xE0 ? 0xA0 : byte == 0xF0 ? 0x90 : 0x80;
        m_high = byte == 0xED ? 0x9F : byte == 0xF4 ? 0x8F : 0xBF;
        return true;
    }

    int m_missing = 0;
    unsigned char m_low = 0x80;
    unsigned char m_high = 0xBF;
};
