// SPDX-License-Identifier: BSD-3-Clause
// Tests of hashing.
#include <ZyHash.h>
#include <ZyString.h>
#include <ZyStringView.h>

#include <QHash>
#include <QSet>
#include <gtest/gtest.h>

#include <locale>
#include <string>
#include <type_traits>
#include <unordered_map>
#include <unordered_set>
#include <utility>

static_assert(std::is_default_constructible_v<std::hash<ZyCaseSensitiveString>>);
static_assert(!std::is_default_constructible_v<std::hash<ZyString>>,
              "who wants it without case names the functors");

namespace
{
template <class T, class = void>
struct HasQHash : std::false_type
{};
template <class T>
struct HasQHash<T, std::void_t<decltype(qHash(std::declval<T const &>()))>> : std::true_type
{};
static_assert(HasQHash<ZyCaseSensitiveString>::value);
static_assert(!HasQHash<ZyString>::value && !HasQHash<ZyStringView>::value, "it would be that of a QString");

/** Text of a host's own class. */
class Repeated : public ZyComparableString
{
public:
    Repeated(char character, unsigned int size) : m_character(character), m_size(size) {}
    char const & operator[](unsigned int) const override { return m_character; }
    unsigned int size() const override { return m_size; }

private:
    char m_character;
    unsigned int m_size;
};

/** Folds "o" to "0". */
class Digits : public std::ctype<char>
{
protected:
    char do_tolower(char c) const override
    {
        return c == 'o' || c == 'O' ? '0' : std::ctype<char>::do_tolower(c);
    }
};

class GlobalLocale
{
public:
    explicit GlobalLocale(std::locale const & locale) : m_before(std::locale::global(locale)) {}
    ~GlobalLocale() { std::locale::global(m_before); }
    GlobalLocale(GlobalLocale const &) = delete;
    GlobalLocale & operator=(GlobalLocale const &) = delete;

private:
    std::locale m_before;
};
} // namespace

TEST(ZyHash, CaseSensitiveTextHashesItsBytes)
{
    std::hash<ZyCaseSensitiveString> const hash{};
    EXPECT_EQ(hash(ZyCaseSensitiveString("Abc")), hash(ZyCaseSensitiveString("Abc")));
    EXPECT_NE(hash(ZyCaseSensitiveString("Abc")), hash(ZyCaseSensitiveString("abc")));
    std::unordered_set<ZyCaseSensitiveString> names{ZyCaseSensitiveString("Abc"),
                                                    ZyCaseSensitiveString("abc")};
    names.insert(ZyCaseSensitiveString("Abc"));
    EXPECT_EQ(names.size(), 2u);
}

TEST(ZyHash, CaseSensitiveTextServesQtContainers)
{
    QSet<ZyCaseSensitiveString> names;
    names.insert(ZyCaseSensitiveString("Abc"));
    names.insert(ZyCaseSensitiveString("abc"));
    names.insert(ZyCaseSensitiveString("Abc"));
    EXPECT_EQ(names.size(), 2);
    EXPECT_EQ(qHash(ZyCaseSensitiveString("a")), qHash(ZyCaseSensitiveString("a")));
    EXPECT_NE(qHash(ZyCaseSensitiveString("a")), qHash(ZyCaseSensitiveString("A")));
}

TEST(ZyStringHash, IgnoresCase)
{
    ZyStringHash const hash;
    EXPECT_EQ(hash(ZyString("ABC")), hash(ZyString("abc")));
    EXPECT_EQ(hash(ZyString("ABC")), hash("abc"));
    EXPECT_EQ(hash(ZyString("xabcx").substring(1, 3)), hash("ABC"));
    EXPECT_NE(hash("abc"), hash("abd"));
    EXPECT_NE(hash("ab"), hash("ba"));
    EXPECT_EQ(hash(ZyString()), hash(static_cast<char const *>(nullptr)));
    EXPECT_EQ(hash(Repeated('A', 3)), hash("aaa"));
}

TEST(ZyStringHash, CountsEmbeddedNul)
{
    ZyStringHash const hash;
    EXPECT_NE(hash(ZyString(std::string("a\0b", 3))), hash("a"));
    EXPECT_EQ(hash(ZyString(std::string("a\0b", 3))), hash(ZyString(std::string("A\0B", 3))));
}

TEST(ZyStringHash, FollowsTheGlobalLocale)
{
    ZyStringHash const hash;
    EXPECT_NE(hash("zoo"), hash("z00"));
    GlobalLocale const digits(std::locale(std::locale::classic(), new Digits));
    EXPECT_EQ(hash("zoo"), hash("z00"));
    EXPECT_TRUE(ZyStringEqual()(ZyString("zoo"), "Z00"));
}

TEST(ZyStringEqual, IgnoresCaseOfEveryClass)
{
    ZyStringEqual const equal;
    EXPECT_TRUE(equal(ZyString("ABC"), ZyString("abc")));
    EXPECT_TRUE(equal(ZyCaseSensitiveString("ABC"), ZyCaseSensitiveString("abc")));
    EXPECT_TRUE(equal(ZyStringView("ABC"), "abc"));
    EXPECT_TRUE(equal("abc", ZyString("ABC")));
    EXPECT_TRUE(equal(ZyString(), static_cast<char const *>(nullptr)));
    EXPECT_FALSE(equal(ZyString("abc"), ZyString("abd")));
}

TEST(ZyStringHash, ServesStandardContainers)
{
    std::unordered_map<ZyString, int, ZyStringHash, ZyStringEqual> ports;
    ports["Http"] = 80;
    ports["HTTP"] = 8080;
    EXPECT_EQ(ports.size(), 1u);
    EXPECT_EQ(ports.at("http"), 8080);
}
