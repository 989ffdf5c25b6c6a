// SPDX-License-Identifier: BSD-3-Clause
// Tests of the door to the configuration.
#include <ZyApplicationProperties.h>
#include <ZyDeque.h>
#include <ZyException.h>
#include <ZyProperties.h>
#include <ZyString.h>
#include <ZyVariant.h>

#include <ScratchDirectory.h>
#include <ThrowsMessage.h>

#include <keelbase/KbHost.h>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cstddef>
#include <filesystem>
#include <string>
#include <type_traits>
#include <vector>

static_assert(std::is_empty_v<ZyApplicationProperties> &&
              std::is_copy_assignable_v<ZyApplicationProperties> &&
              std::is_move_assignable_v<ZyApplicationProperties>);

namespace
{
/** Every test finds an empty configuration in memory and leaves one. */
class ZyApplicationPropertiesTest : public testing::Test
{
protected:
    ZyApplicationPropertiesTest() { reset(); }
    ~ZyApplicationPropertiesTest() override { reset(); }

private:
    static void reset()
    {
        kb::UseMemoryConfig();
        kb::ClearConfig();
    }
};

/** The characters of a literal, NUL included. */
template <std::size_t N>
std::string bytes(char const (&literal)[N])
{
    return std::string(literal, N - 1);
}

std::vector<std::string> names(char const * section)
{
    std::vector<std::string> result;
    ZyDeque<ZyString> const found = ZyApplicationProperties::PropertyNames(section);
    for (ZyString const & name : found.std_deque()) {
        result.push_back(name.toStdString());
    }
    return result;
}

/** "name=value" for each property. */
std::vector<std::string> texts(ZyProperties const & properties)
{
    std::vector<std::string> result;
    properties.forEach([&](ZyProperty const & property) {
        EXPECT_EQ(property.value().type(), ZyVariant::String);
        result.push_back(property.name().toStdString() + '=' + property.value().asString().toStdString());
    });
    return result;
}
} // namespace

TEST_F(ZyApplicationPropertiesTest, ReadGivesWhatWriteStored)
{
    ZyApplicationProperties::Write("Window", "Width", "800");
    EXPECT_EQ(ZyApplicationProperties::Read("Window", "Width").toStdString(), "800");
    ZyApplicationProperties::Write("Window", "Width", " =[x]\r\n\\ \xC3\xA4\xFF");
    EXPECT_EQ(ZyApplicationProperties::Read("Window", "Width").toStdString(), " =[x]\r\n\\ \xC3\xA4\xFF");
    ZyApplicationProperties::Write("Window", "Width", "");
    EXPECT_EQ(ZyApplicationProperties::Read("Window", "Width").toStdString(), "");
}

TEST_F(ZyApplicationPropertiesTest, ReadOfAMissingKeyNamesSectionAndKey)
{
    ZyApplicationProperties::Write("Window", "Width", "800");
    EXPECT_ZY_THROW(ZyApplicationProperties::Read("Window", "Height"), ZyNotFoundException,
                    "Item not found: Application property: [Window, Height]");
    EXPECT_ZY_THROW(ZyApplicationProperties::Read("Window", "width"), ZyNotFoundException,
                    "Item not found: Application property: [Window, width]");
    EXPECT_ZY_THROW(ZyApplicationProperties::Read("", ""), ZyNotFoundException,
                    "Item not found: Application property: [, ]");
}

TEST_F(ZyApplicationPropertiesTest, Deliberate_missing_section_names_key)
{
    EXPECT_ZY_THROW(ZyApplicationProperties::Read("None", "Width"), ZyNotFoundException,
                    "Item not found: Application property: [None, Width]");
}

TEST_F(ZyApplicationPropertiesTest, PropertyNamesComeInTheOrderOfTheConfiguration)
{
    for (char const * const key : {"z", "a", "m", "", "Z"}) {
        ZyApplicationProperties::Write("S", key, "1");
    }
    ZyApplicationProperties::Write("S", "a", "2");
    EXPECT_THAT(names("S"), testing::ElementsAre("z", "a", "m", "", "Z"));
}

TEST_F(ZyApplicationPropertiesTest, AMissingSectionIsNamed)
{
    ZyApplicationProperties::Write("S", "a", "1");
    EXPECT_ZY_THROW(ZyApplicationProperties::PropertyNames("None"), ZyNotFoundException,
                    "Item not found: Application properties not found in section: None");
    EXPECT_ZY_THROW(ZyApplicationProperties::ReadAll("None"), ZyNotFoundException,
                    "Item not found: Application properties not found in section: None");
    EXPECT_ZY_THROW(ZyApplicationProperties::ReadAll("s"), ZyNotFoundException,
                    "Item not found: Application properties not found in section: s");
}

TEST_F(ZyApplicationPropertiesTest, ASectionWithoutKeysIsAnEmptySet)
{
    kb::AddConfigSection("Empty");
    EXPECT_THAT(names("Empty"), testing::IsEmpty());
    EXPECT_EQ(ZyApplicationProperties::ReadAll("Empty").size(), 0u);
}

TEST_F(ZyApplicationPropertiesTest, ReadAllGivesStringsWhateverTheyLookLike)
{
    ZyApplicationProperties::Write("S", "number", "12");
    ZyApplicationProperties::Write("S", "real", "2.5");
    ZyApplicationProperties::Write("S", "yes", "true");
    ZyApplicationProperties::Write("S", "empty", "");
    EXPECT_THAT(texts(ZyApplicationProperties::ReadAll("S")),
                testing::ElementsAre("number=12", "real=2.5", "yes=true", "empty="));
}

TEST_F(ZyApplicationPropertiesTest, Deliberate_keys_fall_together)
{
    ZyApplicationProperties::Write("S", "Key", "first");
    ZyApplicationProperties::Write("S", "other", "1");
    ZyApplicationProperties::Write("S", "KEY", "last");
    EXPECT_THAT(texts(ZyApplicationProperties::ReadAll("S")), testing::ElementsAre("KEY=last", "other=1"));
}

TEST_F(ZyApplicationPropertiesTest, TextsEndAtTheirFirstNul)
{
    ZyString const cut(std::string("a\0b", 3));
    ZyApplicationProperties::Write(cut, cut, cut);
    EXPECT_EQ(ZyApplicationProperties::Read("a", "a").toStdString(), "a");
    EXPECT_EQ(ZyApplicationProperties::ReadAll(cut).size(), 1u);
}

TEST_F(ZyApplicationPropertiesTest, IsKeptInAFileWhereTheHostSaysSo)
{
    ScratchDirectory const directory;
    kb::UseConfigFile((directory / "suite.cfg").c_str());
    ZyApplicationProperties::Write("Window", "Width", "800");
    EXPECT_EQ(directory.read("suite.cfg"), "[Window]\nWidth=800\n");
    directory.write("suite.cfg", "[Window]\nWidth=900\nHeight=600\n");
    EXPECT_THAT(texts(ZyApplicationProperties::ReadAll("Window")),
                testing::ElementsAre("Width=900", "Height=600"));
}

TEST_F(ZyApplicationPropertiesTest, Deliberate_write_tells_nothing)
{
    ScratchDirectory const directory;
    directory.write("suite.cfg", "[Window]\nWidth=800\n");
    std::filesystem::permissions(directory.path() / "suite.cfg", std::filesystem::perms::owner_read);
    kb::UseConfigFile((directory / "suite.cfg").c_str());
    EXPECT_NO_THROW(ZyApplicationProperties::Write("Window", "Width", "900"));
    EXPECT_EQ(ZyApplicationProperties::Read("Window", "Width"), "800");
    kb::UseConfigFile((directory / "none/suite.cfg").c_str());
    EXPECT_NO_THROW(ZyApplicationProperties::Write("Window", "Width", "900"));
    EXPECT_ZY_THROW(ZyApplicationProperties::Read("Window", "Width"), ZyNotFoundException,
                    "Item not found: Application property: [Window, Width]");
}

TEST_F(ZyApplicationPropertiesTest, ADamagedFileGivesWhatCanBeReadAndKeepsTheRest)
{
    ScratchDirectory const directory;
    directory.write("suite.cfg", bytes("\xFF\0garbage\n[Window]\r\nWidth=8"));
    kb::UseConfigFile((directory / "suite.cfg").c_str());
    EXPECT_THAT(texts(ZyApplicationProperties::ReadAll("Window")), testing::ElementsAre("Width=8"));
    ZyApplicationProperties::Write("Window", "Height", "6");
    EXPECT_EQ(directory.read("suite.cfg"), bytes("\xFF\0garbage\n[Window]\nWidth=8\nHeight=6\n"));
}

TEST_F(ZyApplicationPropertiesTest, ReadAllGivesManyKeysInTheirOrder)
{
    ScratchDirectory const directory;
    std::string many = "[S]\n";
    for (int i = 0; i < 2000; ++i) {
        many += 'k' + std::to_string(i) + "=v" + std::to_string(i) + '\n';
    }
    directory.write("suite.cfg", many);
    kb::UseConfigFile((directory / "suite.cfg").c_str());
    ZyDeque<ZyString> const names = ZyApplicationProperties::PropertyNames("S");
    ZyProperties const all = ZyApplicationProperties::ReadAll("S");
    ASSERT_EQ(names.size(), 2000u);
    ASSERT_EQ(all.size(), 2000u);
    for (int i = 0; i < 2000; ++i) {
        std::string const number = std::to_string(i);
        EXPECT_EQ(names.at(static_cast<unsigned int>(i)).toStdString(), 'k' + number);
        EXPECT_EQ(all.value(ZyString('k' + number)).asString().toStdString(), 'v' + number);
    }
}
