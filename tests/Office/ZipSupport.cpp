// SPDX-License-Identifier: BSD-3-Clause
#include "ZipSupport.h"

#include <QProcess>
#include <QString>

#include <minizip/zip.h>

#include <algorithm>
#include <fstream>
#include <iterator>
#include <random>

namespace fs = std::filesystem;

ZipTest::ZipTest()
{
    std::random_device random;
    std::string name = "zyzip-";
    for (int i = 0; i < 4; ++i) {
        name += std::to_string(random());
    }
    m_directory = fs::temp_directory_path() / name;
    fs::create_directory(m_directory);
}

ZipTest::~ZipTest()
{
    std::error_code ignored;
    fs::remove_all(m_directory, ignored);
}

ZyFilePath ZipTest::path(std::string const & name) const
{
    return ZyFilePath((m_directory / name).string());
}

std::string ZipTest::text(std::string const & name) const
{
    std::ifstream file(m_directory / name, std::ios::binary);
    EXPECT_TRUE(file.is_open()) << name;
    return std::string(std::istreambuf_iterator<char>(file), {});
}

void ZipTest::setText(std::string const & name, std::string const & bytes) const
{
    fs::create_directories((m_directory / name).parent_path());
    std::ofstream file(m_directory / name, std::ios::binary);
    file << bytes;
    ASSERT_TRUE(file.flush()) << name;
}

bool ZipTest::exists(std::string const & name) const
{
    return fs::exists(fs::symlink_status(m_directory / name));
}

std::vector<std::string> ZipTest::files(std::string const & name) const
{
    std::vector<std::string> result;
    for (auto const & entry : fs::recursive_directory_iterator(m_directory / name)) {
        if (!entry.is_directory()) {
            result.push_back(entry.path().lexically_relative(m_directory / name).generic_string());
        }
    }
    std::sort(result.begin(), result.end());
    return result;
}

void ZipTest::makeArchive(std::string const & name, Entries const & entries) const
{
    zipFile const zip = zipOpen((m_directory / name).string().c_str(), APPEND_STATUS_CREATE);
    ASSERT_NE(zip, nullptr);
    for (auto const & entry : entries) {
        zip_fileinfo const info = {};
        ASSERT_EQ(zipOpenNewFileInZip(zip, entry.first.c_str(), &info, nullptr, 0, nullptr, 0, nullptr,
                                      Z_DEFLATED, -1),
                  ZIP_OK);
        ASSERT_EQ(
            zipWriteInFileInZip(zip, entry.second.data(), static_cast<unsigned int>(entry.second.size())),
            ZIP_OK);
    }
    ASSERT_EQ(zipClose(zip, nullptr), ZIP_OK);
}

std::string ZipTest::python(std::string const & script, std::string const & archive) const
{
    QProcess process;
    process.start(QStringLiteral(ZYTEST_PYTHON),
                  {QStringLiteral("-I"), QStringLiteral("-X"), QStringLiteral("utf8"), QStringLiteral("-c"),
                   QString::fromStdString("import sys, zipfile\npath = sys.argv[1]\n" + script),
                   QString::fromStdString((m_directory / archive).string())});
    EXPECT_TRUE(process.waitForFinished(60000));
    EXPECT_EQ(process.exitCode(), 0) << process.readAllStandardError().toStdString();
    return process.readAllStandardOutput().toStdString();
}

std::string patched(std::string bytes, std::string const & from, std::string const & to)
{
    std::size_t const at = bytes.find(from);
    EXPECT_NE(at, std::string::npos);
    EXPECT_EQ(bytes.find(from, at + 1), std::string::npos);
    EXPECT_EQ(from.size(), to.size());
    return at == std::string::npos ? bytes : bytes.replace(at, from.size(), to);
}
