// SPDX-License-Identifier: BSD-3-Clause
// The state of a file device: a standard stream over one standard file buffer, and the road past the stream
// for what is read and written in bulk.
#pragma once

#include <ZyFileDevice.h>

#include <cstddef>
#include <cstring>
#include <fstream>
#include <istream>
#include <string>
#include <string_view>
#include <typeinfo>
#include <vector>

/** A file buffer that shows its own content, so that lines are found without a call for every byte. */
class ZyFileBuffer : public std::filebuf
{
public:
    /** What has been read ahead. */
    std::string_view available() const
    {
        return std::string_view(gptr(), static_cast<std::size_t>(egptr() - gptr()));
    }
    /** Moves past \a count available bytes. */
    void skip(std::size_t count) { gbump(static_cast<int>(count)); }
    /** Writes all of it; false when that fails. */
    bool put(std::string_view text)
    {
        if (text.size() > static_cast<std::size_t>(epptr() - pptr())) {
            return sputn(text.data(), static_cast<std::streamsize>(text.size())) ==
                   static_cast<std::streamsize>(text.size());
        }
        if (!text.empty()) {
            std::memcpy(pptr(), text.data(), text.size());
            pbump(static_cast<int>(text.size()));
        }
        return true;
    }
};

class ZyFileDevice::Private : public ZyPrivateObject
{
public:
    /** What the buffer did last; between reading and writing it must be positioned. */
    enum Direction { Neither, Reading, Writing };

    void turn(Direction to);
    void seek(unsigned int position, std::ios_base::openmode which);
    /** As peeking at the next byte: false at the end and after a failure, with the stream's flags set. */
    bool more();
    /** Takes at most \a count bytes from the stream. */
    std::string take(std::size_t count);

    std::vector<char> memory; ///< of the buffer, and therefore in front of it
    ZyFileBuffer buffer;
    std::iostream stream{&buffer}; ///< carries the flags
    Direction direction = Neither;
    std::type_info const * type = &typeid(ZyFileDevice); ///< the class that is known to read as we do
    bool direct =
        false; ///< the object is exactly of that class, so that its reads need not come through onRead()
};
