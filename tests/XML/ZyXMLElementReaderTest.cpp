// SPDX-License-Identifier: BSD-3-Clause
// The abstract reader: places in the tables of virtual functions, and the iterator over any implementation.
#include <ZyXMLElementReader.h>

#include "ReaderSlots.h"
#include "ThrowsMessage.h"

#include <ZyBase64Converter.h>
#include <ZyString.h>
#include <ZyXMLAttributeSet.h>

#include <gtest/gtest.h>

#include <iterator>
#include <memory>
#include <string>
#include <type_traits>

namespace
{
using Children = ZyXMLElementReader::Children;
using Iterator = Children::Iterator;
using Implementation = Iterator::Implementation;
using Element = std::shared_ptr<ZyXMLElementReader>;

static_assert(sizeof(ZyXMLElementReader) == sizeof(void *), "virtual table pointer only");
static_assert(sizeof(Children) == sizeof(void *), "virtual table pointer only");
static_assert(sizeof(Implementation) == sizeof(void *), "virtual table pointer only");
static_assert(sizeof(Iterator) == 2 * sizeof(void *), "virtual table pointer and state");
static_assert(std::is_abstract_v<ZyXMLElementReader> && std::has_virtual_destructor_v<ZyXMLElementReader>);
static_assert(std::is_abstract_v<Children> && std::has_virtual_destructor_v<Children>);
static_assert(std::is_abstract_v<Implementation> && std::has_virtual_destructor_v<Implementation>);
static_assert(!std::is_abstract_v<Iterator> && std::has_virtual_destructor_v<Iterator>);
static_assert(std::is_copy_constructible_v<Iterator> && std::is_copy_assignable_v<Iterator>);
static_assert(std::is_same_v<std::iterator_traits<Iterator>::value_type, Element>);
static_assert(std::is_same_v<std::iterator_traits<Iterator>::difference_type, int>);
static_assert(std::is_same_v<std::iterator_traits<Iterator>::iterator_category, std::input_iterator_tag>);

class NamedElement : public ZyXMLElementReader
{
public:
    explicit NamedElement(int number) : m_name(number) {}

    ZyXMLAttributeSet const & attributes() const override { return m_attributes; }
    Children & children() override { throw ZyInvalidCallException(); }
    bool hasAttribute(ZyString const &) const override { return false; }
    ZyString const & name() const override { return m_name; }
    ZyString readAttribute(ZyString const &) const override { return ZyString(); }
    double readAttributeBase64(ZyString const &) const override { return 0; }
    ZyString readText() const override { return ZyString(); }
    double readTextBase64() const override { return 0; }

private:
    ZyXMLAttributeSet m_attributes;
    ZyString m_name;
};

/** Makes its elements anew with every question, as a document in memory does: from 1 to a last one. */
class Counting : public Implementation
{
public:
    Counting(int at, int last) : m_at(at), m_last(last) {}

    Element currentChild() const override
    {
        return m_at <= m_last ? std::make_shared<NamedElement>(m_at) : nullptr;
    }
    Element nextChild() override
    {
        ++m_at;
        return currentChild();
    }

private:
    int m_at;
    int m_last;
};

class CountingChildren : public Children
{
public:
    Iterator begin() override { return Iterator(std::make_shared<Counting>(1, 3)); }
    Iterator end() override { return Iterator(std::make_shared<Counting>(4, 3)); }
};
} // namespace

#if ZY_SLOTS_VISIBLE
TEST(ZyXMLElementReader, HasItsOperationsInTheToldOrder)
{
    expectReaderSlots<ZyXMLElementReader>();
    EXPECT_EQ(virtualSlot(&ZyXMLElementReader::children), 3u);
    EXPECT_EQ(virtualSlot(&Children::begin), 2u);
    EXPECT_EQ(virtualSlot(&Children::end), 3u);
    EXPECT_EQ(virtualSlot(&Implementation::currentChild), 2u);
    EXPECT_EQ(virtualSlot(&Implementation::nextChild), 3u);
}
#endif

TEST(ZyXMLElementReaderIterator, WalksOverChildren)
{
    CountingChildren children;
    std::string names;
    for (Element const & child : static_cast<Children &>(children)) {
        names += child->name().toStdString();
    }
    EXPECT_EQ(names, "123");
}

TEST(ZyXMLElementReaderIterator, TellsElementsApartThatAreMadeForTheQuestion)
{
    Iterator const first(std::make_shared<Counting>(1, 3));
    Iterator const second(std::make_shared<Counting>(2, 3));
    for (int i = 0; i < 100; ++i) {
        EXPECT_TRUE(first != second);
    }
    EXPECT_TRUE(first != first);
}

TEST(ZyXMLElementReaderIterator, HasEqualEnds)
{
    Iterator const one(std::make_shared<Counting>(4, 3));
    Iterator const other(std::make_shared<Counting>(9, 3));
    EXPECT_FALSE(one != other);
    EXPECT_EQ(*one, nullptr);
}

TEST(ZyXMLElementReaderIterator, Deliberate_iterator_copies_share_position)
{
    Iterator original(std::make_shared<Counting>(1, 3));
    Iterator copy(original);
    Iterator assigned(std::make_shared<Counting>(3, 3));
    assigned = original;
    EXPECT_EQ(&++copy, &copy);
    EXPECT_EQ((*original)->name().toStdString(), "2");
    EXPECT_EQ((*assigned)->name().toStdString(), "2");
    ++original;
    EXPECT_EQ((*copy)->name().toStdString(), "3");
}

TEST(ZyXMLElementReaderIterator, NeedsAnImplementation)
{
    EXPECT_ZY_THROW(Iterator(nullptr), ZyNullPointerException, "");
}
