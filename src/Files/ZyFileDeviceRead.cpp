// SPDX-License-Identifier: BSD-3-Clause
// Reading from a file device. What counts is the result of the told pieces: a single byte for lines, 128 for
// remainders, each cut at its first NUL. Our own classes reach it without making the pieces.
#include <ZyFileDevice.h>

#include "Files/ZyFileDevice_p.h"

#include <algorithm>
#include <exception>
#include <string>
#include <string_view>
#include <utility>

namespace
{
constexpr std::size_t pieceSize = 128; // as that of ZyIODevice::onReadRemaining()

[[noreturn]] void throwReadFailure()
{
    throw ZyIOException("Error occurred on reading from file");
}

// Cuts every piece at its first NUL.
void cutPieces(std::string & text)
{
    std::size_t to = std::min(text.find('\0'), text.size());
    to -= to % pieceSize;
    for (std::size_t from = to; from < text.size(); from += pieceSize) {
        std::string_view const piece = std::string_view(text).substr(from, pieceSize);
        std::size_t const kept = std::min(piece.find('\0'), piece.size());
        std::copy_n(piece.data(), kept, text.data() + to);
        to += kept;
    }
    text.resize(to);
}

// Appends the bytes of `piece` but its NULs until the line has its maximum; returns how many were used up.
std::size_t appendToLine(std::string & line, std::string_view piece, std::size_t maximum)
{
    if (maximum == 0 || line.size() + piece.size() <= maximum) {
        if (piece.find('\0') == std::string_view::npos) {
            line.append(piece);
            return piece.size();
        }
    }
    std::size_t used = 0;
    while (used < piece.size() && (maximum == 0 || line.size() < maximum)) {
        char const c = piece[used++];
        if (c != '\0') {
            line += c;
        }
    }
    return used;
}
} // namespace

bool ZyFileDevice::Private::more()
{
    if (!stream.good()) {
        return false;
    }
    if (direction == Reading && !buffer.available().empty()) {
        return true;
    }
    turn(Reading);
    return stream.peek() != std::iostream::traits_type::eof();
}

std::string ZyFileDevice::Private::take(std::size_t count)
{
    std::string text;
    while (text.size() < count && more()) {
        std::string_view const piece = buffer.available().substr(0, count - text.size());
        text.append(piece);
        buffer.skip(piece.size());
        if (text.size() == piece.size() && count - text.size() > piece.size()) {
            // Much is wanted: with what the file still has known, the text need not grow step by step.
            std::size_t const rest =
                static_cast<std::size_t>(std::max<std::streamsize>(buffer.in_avail(), 0));
            text.reserve(text.size() + std::min(rest, count - text.size()));
        }
    }
    return text;
}

bool ZyFileDevice::atEnd() const
{
    return (mode() != Read && mode() != ReadWrite) || !d()->more();
}

ZyString ZyFileDevice::onRead(unsigned int count)
{
    std::iostream & stream = d()->stream;
    stream.clear();
    if (atEnd()) {
        return ZyString();
    }
    std::string text = d()->take(count);
    if (stream.bad()) {
        throwReadFailure();
    }
    text.resize(std::min(text.find('\0'), text.size()));
    text.shrink_to_fit();
    return ZyString(std::move(text));
}

ZyString ZyFileDevice::onReadRemaining()
{
    if (!d()->direct) {
        return ZyIODevice::onReadRemaining();
    }
    d()->stream.clear();
    std::string text = d()->take(std::string::npos);
    // A failure between two pieces looks like the end.
    if (d()->stream.bad() && text.size() % pieceSize != 0) {
        throwReadFailure();
    }
    cutPieces(text);
    text.shrink_to_fit();
    return ZyString(std::move(text));
}

ZyString ZyFileDevice::onReadLine(unsigned int maximum)
{
    if (!d()->direct) {
        return ZyIODevice::onReadLine(maximum);
    }
    std::string line;
    bool ended = false;
    while (!ended && d()->more()) {
        std::string_view const ahead = d()->buffer.available();
        std::string_view const piece = ahead.substr(0, ahead.find('\n') + 1); // none: npos + 1 is 0
        std::size_t const used = appendToLine(line, piece.empty() ? ahead : piece, maximum);
        d()->buffer.skip(used);
        ended = (!line.empty() && line.back() == '\n') || (maximum != 0 && line.size() >= maximum);
    }
    return ZyString(std::move(line));
}
