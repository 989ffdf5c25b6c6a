// SPDX-License-Identifier: BSD-3-Clause
// A text in memory that comes in small pieces.
#pragma once

#include <ZyStringDevice.h>

#include <algorithm>
#include <cstddef>
#include <string>
#include <string_view>

/** Gives at most as many bytes at a time as the sizes tell, one after the other; the first piece holds four
 * at least. */
class ShortReads : public ZyStringDevice
{
public:
    ShortReads(std::string const & text, std::string_view sizes)
        : ZyStringDevice(ZyString(text)), m_sizes(sizes)
    {}

protected:
    ZyString onRead(unsigned int count) override
    {
        auto const told = m_sizes.empty() ? '\0' : m_sizes[m_reads % m_sizes.size()];
        ++m_reads;
        return ZyStringDevice::onRead(std::min(count, 1u + static_cast<unsigned char>(told) % 16));
    }

private:
    std::string m_sizes;
    std::size_t m_reads = 0;
};
