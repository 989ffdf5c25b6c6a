// SPDX-License-Identifier: BSD-3-Clause
// Globally unique identifiers.
#include "KbReplaceable_p.h"

#include <keelbase/KbHost.h>
#include <keelbase/KbSystem.h>

#include <array>
#include <string>

#ifdef _WIN32
#include <random>
#else
#include <cerrno>
#include <stdexcept>

#include <sys/random.h>
#endif

namespace
{

using Bytes = std::array<unsigned char, 16>;

KbReplaceable<std::string> & guidSource()
{
    static KbReplaceable<std::string> source;
    return source;
}

// From the system and not from an engine of the process, which would need a lock and which a forked child
// would share with its parent.
Bytes randomBytes()
{
    Bytes bytes;
#ifdef _WIN32
    std::random_device source; // the system's own generator there
    for (unsigned char & byte : bytes) {
        byte = static_cast<unsigned char>(source());
    }
#else
    std::size_t filled = 0;
    while (filled < bytes.size()) {
        ssize_t const count = ::getrandom(bytes.data() + filled, bytes.size() - filled, 0);
        if (count < 0 && errno != EINTR) {
            throw std::runtime_error("no random bytes");
        }
        filled += count > 0 ? static_cast<std::size_t>(count) : 0;
    }
#endif
    return bytes;
}

} // namespace

void kb::SetGuidSource(std::function<std::string()> source)
{
    guidSource().replace(std::move(source));
}

YString sp_GetGUID()
{
    if (auto const replacement = guidSource().replacement()) {
        return replacement();
    }
    Bytes bytes = randomBytes();
    bytes[6] = static_cast<unsigned char>((bytes[6] & 0x0F) | 0x40); // version 4: random
    bytes[8] = static_cast<unsigned char>((bytes[8] & 0x3F) | 0x80); // the variant of RFC 4122
    std::string text;
    text.reserve(36);
    for (std::size_t i = 0; i < bytes.size(); ++i) {
        if (i == 4 || i == 6 || i == 8 || i == 10) {
            text += '-';
        }
        text += "0123456789abcdef"[bytes[i] >> 4];
        text += "0123456789abcdef"[bytes[i] & 0x0F];
    }
    return text;
}
