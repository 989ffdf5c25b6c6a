// SPDX-License-Identifier: BSD-3-Clause
// A target without the fuzzer: runs the inputs of the files and folders that it is given, with any compiler.
#include "Fuzz.h"

#include <filesystem>
#include <fstream>
#include <iterator>
#include <vector>

namespace
{
std::string contentOf(std::filesystem::path const & file)
{
    std::ifstream stream(file, std::ios::binary);
    Fuzz::require(stream.is_open(), "the input opens");
    return std::string(std::istreambuf_iterator<char>(stream), std::istreambuf_iterator<char>());
}

std::vector<std::filesystem::path> filesOf(std::filesystem::path const & given)
{
    std::vector<std::filesystem::path> files;
    if (!std::filesystem::is_directory(given)) {
        return {given};
    }
    for (auto const & entry : std::filesystem::recursive_directory_iterator(given)) {
        if (entry.is_regular_file()) {
            files.push_back(entry.path());
        }
    }
    std::sort(files.begin(), files.end());
    return files;
}
} // namespace

int main(int count, char ** arguments)
{
    std::size_t runs = 0;
    for (int i = 1; i < count; ++i) {
        for (std::filesystem::path const & file : filesOf(arguments[i])) {
            std::string const input = contentOf(file);
            std::printf("%s, %zu bytes\n", file.filename().string().c_str(), input.size());
            std::fflush(stdout); // so that the last line names the input that ends the program
            LLVMFuzzerTestOneInput(reinterpret_cast<std::uint8_t const *>(input.data()), input.size());
            ++runs;
        }
    }
    Fuzz::require(runs > 0, "there is an input");
}
