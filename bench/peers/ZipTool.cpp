// SPDX-License-Identifier: BSD-3-Clause
// Packing and unpacking a directory tree with minizip and nothing in between.
#include "ZipTool.h"

#include "../Measure.h"

#include <minizip/unzip.h>
#include <minizip/zip.h>

#include <cstdlib>
#include <filesystem>
#include <stdexcept>

#include <fcntl.h>
#include <unistd.h>

namespace fs = std::filesystem;

namespace bench
{

namespace
{

void packFile(zipFile zip, fs::path const & path, char const * name, std::string & block)
{
    zip_fileinfo const info{};
    zipOpenNewFileInZip(zip, name, &info, nullptr, 0, nullptr, 0, nullptr, Z_DEFLATED, Z_DEFAULT_COMPRESSION);
    int const file = open(path.c_str(), O_RDONLY);
    for (ssize_t size; (size = read(file, block.data(), block.size())) > 0;) {
        check(zipWriteInFileInZip(zip, block.data(), unsigned(size)) == ZIP_OK, "zipWriteInFileInZip");
    }
    close(file);
    zipCloseFileInZip(zip);
}

void unpackFile(unzFile zip, fs::path const & path, std::string & block)
{
    unzOpenCurrentFile(zip);
    int const file = open(path.c_str(), O_WRONLY | O_CREAT | O_TRUNC, 0666);
    for (int size; (size = unzReadCurrentFile(zip, block.data(), unsigned(block.size()))) > 0;) {
        check(write(file, block.data(), std::size_t(size)) == size, "write");
    }
    close(file);
    unzCloseCurrentFile(zip);
}

} // namespace

void minizipPack(std::string const & archive, std::string const & root, std::size_t block)
{
    zipFile const zip = zipOpen(archive.c_str(), APPEND_STATUS_CREATE);
    check(zip != nullptr, "zipOpen");
    std::string buffer(block, 0);
    for (auto const & entry : fs::recursive_directory_iterator(root)) {
        if (entry.is_regular_file()) {
            packFile(zip, entry.path(), entry.path().c_str() + root.size() + 1, buffer);
        }
    }
    zipClose(zip, nullptr);
}

void minizipUnpack(std::string const & archive, std::string const & target, std::size_t block)
{
    unzFile const zip = unzOpen(archive.c_str());
    check(zip != nullptr, "unzOpen");
    std::string buffer(block, 0);
    fs::path parent;
    char name[4096];
    for (int result = unzGoToFirstFile(zip); result == UNZ_OK; result = unzGoToNextFile(zip)) {
        unz_file_info info; // minizip does not take a null pointer here
        unzGetCurrentFileInfo(zip, &info, name, sizeof name, nullptr, 0, nullptr, 0);
        fs::path const out = fs::path(target) / name;
        if (out.parent_path() != parent) {
            parent = out.parent_path();
            fs::create_directories(parent);
        }
        unpackFile(zip, out, buffer);
    }
    unzClose(zip);
}

bool hasProgram(std::string const & name)
{
    return std::system(("command -v " + name + " >/dev/null 2>&1").c_str()) == 0;
}

void runCommand(std::string const & command)
{
    check(std::system(command.c_str()) == 0, command.c_str());
}

TreeSize sizeOfTree(std::string const & root)
{
    TreeSize size;
    for (auto const & entry : fs::recursive_directory_iterator(root)) {
        if (entry.is_regular_file()) {
            ++size.files;
            size.bytes += entry.file_size();
        }
    }
    return size;
}

} // namespace bench
