// SPDX-License-Identifier: BSD-3-Clause
// The file device on a file that fails while it is read, which is the memory of the process.
#include "ThrowsMessage.h"

#include <ZyFile.h>

#include <gtest/gtest.h>

#include <cstdint>
#include <cstring>
#include <filesystem>

#include <sys/mman.h>

#ifndef MAP_32BIT
#define MAP_32BIT 0
#endif

TEST(ZyFileDeviceMemory, BadStreamOnReading)
{
    // The memory of this process as a file: behind a page that is there comes one that is not.
    // It must lie where a 32-bit position reaches it.
    constexpr std::size_t size = 1 << 16;
    constexpr int kind = MAP_PRIVATE | MAP_ANONYMOUS | MAP_32BIT;
    void * const page = ::mmap(nullptr, 2 * size, PROT_READ | PROT_WRITE, kind, -1, 0);
    auto const address = reinterpret_cast<std::uintptr_t>(page);
    if (address > 0xFFFF0000u - size || !std::filesystem::exists("/proc/self/mem")) {
        GTEST_SKIP() << "no readable memory file here";
    }
    std::memset(page, 'x', size);
    ::munmap(static_cast<char *>(page) + size, size);
    ZyFile device("/proc/self/mem");
    device.open(ZyIODevice::Read);
    auto const start = static_cast<unsigned int>(address + size - 1000);
    device.seek_read(start);
    EXPECT_EQ(device.read(10).toStdString(), "xxxxxxxxxx");
    EXPECT_ZY_THROW(device.read(2000), ZyIOException, "Error occurred on reading from file");
    device.seek_read(start);
    EXPECT_ZY_THROW(device.readRemaining(), ZyIOException, "Error occurred on reading from file");
    // Between two pieces, or in a line, a failure looks like the end.
    device.seek_read(start + 1000 - 256);
    EXPECT_EQ(device.readRemaining().size(), 256u);
    device.seek_read(start);
    EXPECT_EQ(device.readLine(0).size(), 1000u);
    ::munmap(page, size);
}
