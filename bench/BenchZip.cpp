// SPDX-License-Identifier: BSD-3-Clause
// Packing and unpacking a tree of many small files and one of a GiB: against minizip alone and the Info-ZIP
// programs. The environment variable ZYCORE_BENCH_MIB sets another size of the large tree.
#include "Measure.h"
#include "peers/Workload.h"
#include "peers/ZipTool.h"

#include <ZyFilePath.h>
#include <ZyZipArchive.h>
#include <ZyZipper.h>

#include <cstdlib>
#include <filesystem>
#include <functional>
#include <string>
#include <vector>

namespace fs = std::filesystem;

namespace bench
{

namespace
{

constexpr std::size_t block = 16384;

ZyFilePath directoryPath(std::string const & path)
{
    return ZyFilePath((path + "/").c_str());
}

ZyFilePath filePath(std::string const & path)
{
    return ZyFilePath(path.c_str());
}

std::string quoted(std::string const & path)
{
    return "'" + path + "'";
}

/** A tree of files, made when it is first needed. */
struct Tree
{
    std::string kind;
    std::function<std::string()> make; ///< gives its root
};

void registerPack(Tree const & tree)
{
    std::string const archive = dataFile("packed.zip");
    std::string const family = "zip-pack/" + tree.kind + "/";
    auto prepare = [=] {
        tree.make();
        fs::remove(archive);
    };
    auto verify = [=] { check(fs::file_size(archive) > 100000, "the archive is too small"); };
    addJob(
        family + "ours", [=] { ZyZipper::Zip(filePath(archive), directoryPath(tree.make())); }, prepare,
        verify);
    addJob(
        family + "minizip", [=] { minizipPack(archive, tree.make(), block); }, prepare, verify);
    if (hasProgram("zip")) {
        auto pack = [=] {
            runCommand("cd " + quoted(tree.make()) + " && zip -q -r -D " + quoted(archive) + " .");
        };
        addJob(family + "Info-ZIP", pack, prepare, verify);
    }
}

/** The two archives of a tree: ours with backslashes in the entry names, the common one with slashes. */
std::string ownArchive(std::string const & root)
{
    std::string const archive = root + ".own.zip";
    if (!fs::exists(archive)) {
        ZyZipper::Zip(filePath(archive), directoryPath(root));
    }
    return archive;
}

std::string commonArchive(std::string const & root)
{
    std::string const archive = root + ".zip";
    if (!fs::exists(archive)) {
        minizipPack(archive, root, block);
    }
    return archive;
}

/** Calls \a unpack with the root of the tree, and holds what it unpacks against the tree. */
void addUnpack(std::string const & name, Tree const & tree,
               std::function<void(std::string const & root)> unpack)
{
    std::string const target = dataFile("unpacked");
    auto prepare = [=] {
        ownArchive(tree.make());
        commonArchive(tree.make());
        fs::remove_all(target);
        fs::create_directories(target);
    };
    auto verify = [=] {
        TreeSize const wanted = sizeOfTree(tree.make());
        TreeSize const got = sizeOfTree(target);
        check(got.files == wanted.files && got.bytes == wanted.bytes, "the tree differs");
    };
    addJob(
        name, [=] { unpack(tree.make()); }, prepare, verify);
}

void registerUnpack(Tree const & tree)
{
    std::string const target = dataFile("unpacked");
    std::string const family = "zip-unpack/" + tree.kind + "/";
    addUnpack(family + "ours", tree, [=](std::string const & root) {
        ZyZipper::Unzip(filePath(ownArchive(root)), directoryPath(target));
    });
    addUnpack(family + "minizip", tree,
              [=](std::string const & root) { minizipUnpack(commonArchive(root), target, block); });
    if (hasProgram("unzip")) {
        addUnpack(family + "Info-ZIP", tree, [=](std::string const & root) {
            runCommand("unzip -q " + quoted(commonArchive(root)) + " -d " + quoted(target));
        });
    }
}

std::uint64_t largeBytes()
{
    char const * const mebibytes = std::getenv("ZYCORE_BENCH_MIB");
    return std::uint64_t(mebibytes != nullptr ? std::atoi(mebibytes) : 1024) << 20;
}

} // namespace

void registerBenchmarks()
{
    std::vector<Tree> trees;
    for (unsigned files : {1000u, 10000u}) {
        trees.push_back(Tree{std::to_string(files), [files] { return smallTree(files); }});
    }
    trees.push_back(Tree{"large", [] { return mixedTree(largeBytes()); }});
    for (Tree const & tree : trees) {
        registerPack(tree);
        registerUnpack(tree);
    }
}

} // namespace bench
