// SPDX-License-Identifier: BSD-3-Clause
// Operations on the texts of paths do what the home platform itself does with the same texts.
#include <ZyFile.h>
#include <ZyFilePath.h>
#include <ZyFileSystem.h>
#include <ZyString.h>

#include <gtest/gtest.h>

#include <windows.h>

#include <filesystem>
#include <string>

namespace
{
constexpr char const * onDrives[] = {"C:\\work\\runs\\", "c:\\work\\", "C:\\"};
constexpr char const * everywhere[] = {"C:\\work\\runs\\", "c:\\work\\", "C:\\", "\\\\server\\share\\runs\\"};

std::string text(ZyStringView const & view)
{
    return view.toString().toStdString();
}

std::string fullName(std::string const & path)
{
    wchar_t full[1024] = {};
    GetFullPathNameW(std::filesystem::u8path(path).c_str(), DWORD(std::size(full)), full, nullptr);
    return std::filesystem::path(full).u8string();
}

bool systemTakesForEqual(std::wstring const & a, std::wstring const & b)
{
    return CompareStringOrdinal(a.c_str(), -1, b.c_str(), -1, TRUE) == CSTR_EQUAL;
}
} // namespace

TEST(NativeRules, AbsolutePathsAreTheSystemsFullNames)
{
    for (std::string const directory : everywhere) {
        for (std::string const path : {"gain.csv", ".\\gain.csv", "a\\gain.csv", "a/b/gain.csv",
                                       "a\\..\\gain.csv", "a\\.\\b\\..\\..\\gain.csv", "a\\\\b\\gain.csv"}) {
            EXPECT_EQ(ZyFilePath(directory).absolute(ZyFilePath(path)).path().toStdString(),
                      fullName(directory + path))
                << directory << " " << path;
        }
    }
    EXPECT_EQ(ZyFilePath("C:\\work\\runs\\").absolute(ZyFilePath("..\\..\\gain.csv")).path().toStdString(),
              fullName("C:\\work\\runs\\..\\..\\gain.csv"));
}

TEST(NativeRules, RootsComeBackAsTheyAreFromAnyDirectory)
{
    for (std::string const directory : everywhere) {
        for (std::string const path : {"D:\\gain.csv", "\\\\other\\share\\gain.csv"}) {
            EXPECT_EQ(ZyFilePath(directory).absolute(ZyFilePath(path)).path().toStdString(), fullName(path));
        }
    }
}

TEST(NativeRules, PartsOfPathsAreThoseOfTheStandardLibrary)
{
    // Not of servers, which some standard libraries do not know.
    for (std::string const directory : onDrives) {
        for (std::string const name : {"gain.csv", "gain.old.csv", "gain", "µ.txt"}) {
            ZyFilePath const path(directory + name);
            std::filesystem::path const standard = std::filesystem::u8path(directory + name);
            EXPECT_EQ(text(path.rootName()), standard.root_name().u8string());
            EXPECT_EQ(text(path.filename()), standard.filename().u8string());
            EXPECT_EQ(text(path.stem()), standard.stem().u8string());
            EXPECT_EQ(path.isAbsolute(), standard.is_absolute());
            EXPECT_EQ(text(path.parentPath()), directory);
        }
    }
}

TEST(NativeRules, RelativePathsLeadBackToTheSameFile)
{
    for (std::string const directory : everywhere) {
        for (std::string const path : {"gain.csv", "new\\gain.csv", "a\\..\\b\\.\\gain.csv"}) {
            std::string const file = directory + path;
            std::string const relative =
                ZyFilePath(directory + "c\\..\\").relative(ZyFilePath(file)).path().toStdString();
            EXPECT_EQ(relative.find(".."), std::string::npos);
            EXPECT_EQ(fullName(directory + relative), fullName(file)) << relative;
        }
    }
}

TEST(NativeRules, LettersOfEitherCaseAreTheSameWhereTheyAreToTheSystem)
{
    for (char letter = '!'; letter <= '~'; ++letter) {
        for (char other = '!'; other <= '~'; ++other) {
            if (letter == '/' || other == '/') {
                continue; // becomes the other separator
            }
            std::string const one = std::string("x") + letter + "y";
            std::string const two = std::string("x") + other + "y";
            EXPECT_EQ(ZyFilePath(one) == ZyFilePath(two),
                      systemTakesForEqual(std::filesystem::u8path(one), std::filesystem::u8path(two)))
                << one << " " << two;
        }
    }
}

TEST(NativeRules, NamesOfDevicesAreThere)
{
    ZyFile file(ZyFilePath("NUL"));
    file.open(ZyIODevice::Write);
    file.write("swallowed");
    file.close();
    EXPECT_FALSE(std::filesystem::is_regular_file(std::filesystem::current_path() / "NUL"));
    EXPECT_FALSE(ZyFileSystem::IsDirectory(ZyFilePath("CON")));
}
