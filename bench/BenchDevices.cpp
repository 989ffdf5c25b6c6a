// SPDX-License-Identifier: BSD-3-Clause
// Byte devices: many small writes, blocks, lines, safe saves; against stdio, the standard streams and QFile.
#include "Measure.h"
#include "peers/Workload.h"

#include <ZyFileDevice.h>
#include <ZyFilePath.h>
#include <ZyFileWriter.h>
#include <ZyString.h>
#include <ZyStringDevice.h>

#include <QBuffer>
#include <QFile>
#include <QSaveFile>

#include <cstdio>
#include <fstream>
#include <string>

namespace bench
{

namespace
{

constexpr unsigned writes = 10000000;
constexpr char piece[] = "0123456789";
constexpr std::uint64_t csvBytes = 100000000;

void registerSmallWrites()
{
    std::string const path = dataFile("devices.txt");
    addJob("small-writes/file/ours", [path] {
        ZyFileDevice device(path.c_str());
        device.open(ZyIODevice::Write);
        ZyString const text(piece);
        for (unsigned i = 0; i < writes; ++i) {
            device.write(text);
        }
        device.close();
    });
    addJob("small-writes/file/fwrite", [path] {
        std::FILE * const file = std::fopen(path.c_str(), "wb");
        for (unsigned i = 0; i < writes; ++i) {
            std::fwrite(piece, 1, sizeof piece - 1, file);
        }
        std::fclose(file);
    });
    addJob("small-writes/file/ofstream", [path] {
        std::ofstream file(path, std::ios::binary);
        for (unsigned i = 0; i < writes; ++i) {
            file.write(piece, sizeof piece - 1);
        }
    });
    addJob("small-writes/file/QFile", [path] {
        QFile file(QString::fromStdString(path));
        check(file.open(QIODevice::WriteOnly), "open");
        for (unsigned i = 0; i < writes; ++i) {
            file.write(piece, sizeof piece - 1);
        }
    });
    addJob("small-writes/string/ours", [] {
        ZyStringDevice device;
        device.open(ZyIODevice::Write);
        ZyString const text(piece);
        for (unsigned i = 0; i < writes; ++i) {
            device.write(text);
        }
        check(device.content().size() == writes * 10, "size");
    });
    addJob("small-writes/string/QBuffer", [] {
        QBuffer buffer;
        buffer.open(QIODevice::WriteOnly);
        for (unsigned i = 0; i < writes; ++i) {
            buffer.write(piece, sizeof piece - 1);
        }
    });
}

void registerBlocks()
{
    std::string const path = csvFile(csvBytes);
    addJob("blocks/file/ours", [path] {
        ZyFileDevice device(path.c_str());
        device.open(ZyIODevice::Read);
        std::uint64_t total = 0;
        while (!device.atEnd()) {
            total += device.read(16384).size();
        }
        check(total >= csvBytes, "size");
    });
    addJob("blocks/file/fread", [path] {
        std::FILE * const file = std::fopen(path.c_str(), "rb");
        std::string block(16384, 0);
        std::uint64_t total = 0;
        while (std::size_t const size = std::fread(block.data(), 1, block.size(), file)) {
            total += size;
        }
        std::fclose(file);
        check(total >= csvBytes, "size");
    });
    addJob("blocks/file/QFile", [path] {
        QFile file(QString::fromStdString(path));
        check(file.open(QIODevice::ReadOnly), "open");
        std::uint64_t total = 0;
        while (!file.atEnd()) {
            total += std::uint64_t(file.read(16384).size());
        }
        check(total >= csvBytes, "size");
    });
}

void registerLines()
{
    std::string const path = csvFile(csvBytes);
    addJob("lines/file/ours", [path] {
        ZyFileDevice device(path.c_str());
        device.open(ZyIODevice::Read);
        std::uint64_t total = 0;
        while (!device.atEnd()) {
            total += device.readLine(0).size();
        }
        check(total >= csvBytes, "size");
    });
    addJob("lines/file/getline", [path] {
        std::ifstream file(path, std::ios::binary);
        std::string line;
        std::uint64_t total = 0;
        while (std::getline(file, line)) {
            total += line.size() + 1;
        }
        check(total >= csvBytes, "size");
    });
    addJob("lines/file/QFile", [path] {
        QFile file(QString::fromStdString(path));
        check(file.open(QIODevice::ReadOnly), "open");
        std::uint64_t total = 0;
        while (!file.atEnd()) {
            total += std::uint64_t(file.readLine().size());
        }
        check(total >= csvBytes, "size");
    });
}

/** A save of 10 MB that may be cut off at any moment, by the clock since it waits for the disk. */
void registerSafeSave(std::string const & name, std::size_t size)
{
    constexpr std::size_t total = 10000000;
    std::string const path = dataFile("saved.txt");
    std::string const text(size, 'x');
    addClockedLoop("safe-save/" + name + "/ours", 1, [path, text] {
        ZyFileWriter writer(path.c_str());
        ZyString const line(text);
        writer.open();
        for (std::size_t done = 0; done < total; done += text.size()) {
            writer.write(line);
        }
        writer.close();
        return total;
    });
    addClockedLoop("safe-save/" + name + "/QSaveFile", 1, [path, text] {
        QSaveFile file(QString::fromStdString(path));
        check(file.open(QIODevice::WriteOnly), "open");
        for (std::size_t done = 0; done < total; done += text.size()) {
            file.write(text.data(), qint64(text.size()));
        }
        check(file.commit(), "commit");
        return total;
    });
}

} // namespace

void registerBenchmarks()
{
    registerSmallWrites();
    registerBlocks();
    registerLines();
    registerSafeSave("at-once", 10000000);
    registerSafeSave("lines", 100);
}

} // namespace bench
