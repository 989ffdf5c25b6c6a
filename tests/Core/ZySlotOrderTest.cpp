// SPDX-License-Identifier: BSD-3-Clause
// Tests of the order of virtual functions, which modules that were built apart rely on.
#include <ZyBase64Converter.h>
#include <ZyCaseSensitiveString.h>
#include <ZyContainer.h>
#include <ZyDeque.h>
#include <ZyException.h>
#include <ZyIterator.h>
#include <ZyObject.h>
#include <ZyPrivateObject.h>
#include <ZyStringConverter.h>
#include <ZyStringView.h>

#include <VirtualSlot.h>

#include <gtest/gtest.h>

#include <functional>

#if ZY_SLOTS_VISIBLE

namespace
{
using Predicate = std::function<bool(int const &)>;
using Container = ZyContainer<int>;

// Each adds one virtual function, whose entry tells how many its base has.
struct AfterPrivateObject : ZyPrivateObject
{
    virtual void last() {}
};
struct AfterObject : ZyObject
{
    virtual void last() {}
};
struct AfterException : ZyNotFoundException
{
    virtual void last() {}
};
struct AfterString : ZyString
{
    virtual void last() {}
};
struct AfterView : ZyStringView
{
    virtual void last() {}
};
struct AfterIdentity : ZyCaseSensitiveString
{
    virtual void last() {}
};
struct AfterDeque : ZyDeque<int>
{
    virtual void last() {}
};
struct AfterCodec : ZyBase64Converter
{
    virtual void last() {}
};
} // namespace

TEST(ZySlotOrder, OfPrivateObjectIsTheDestructor)
{
    EXPECT_EQ(virtualSlot(&AfterPrivateObject::last), 2u);
    EXPECT_EQ(virtualSlot(&AfterObject::last), 2u);
}

TEST(ZySlotOrder, OfComparableString)
{
    using Text = ZyComparableString;
    EXPECT_EQ(virtualSlot(&Text::compare), 2u);
    EXPECT_EQ(virtualSlot<bool (Text::*)(char const *) const>(&Text::operator==), 3u);
    EXPECT_EQ(virtualSlot<bool (Text::*)(Text const &) const>(&Text::operator==), 4u);
    EXPECT_EQ(virtualSlot<bool (Text::*)(char const *) const>(&Text::operator!=), 5u);
    EXPECT_EQ(virtualSlot<bool (Text::*)(Text const &) const>(&Text::operator!=), 6u);
    EXPECT_EQ(virtualSlot(&Text::operator<), 7u);
    EXPECT_EQ(virtualSlot(&Text::operator<=), 8u);
    EXPECT_EQ(virtualSlot(&Text::operator>), 9u);
    EXPECT_EQ(virtualSlot(&Text::operator>=), 10u);
    EXPECT_EQ(virtualSlot(&Text::isDouble), 11u);
    EXPECT_EQ(virtualSlot(&Text::isInteger), 12u);
    EXPECT_EQ(virtualSlot(&Text::operator[]), 13u);
    EXPECT_EQ(virtualSlot(&Text::size), 14u);
}

TEST(ZySlotOrder, StringClassesAddNoSlot)
{
    EXPECT_EQ(virtualSlot(&AfterString::last), 15u);
    EXPECT_EQ(virtualSlot(&AfterView::last), 15u);
    EXPECT_EQ(virtualSlot(&AfterIdentity::last), 15u);
}

TEST(ZySlotOrder, OfException)
{
    EXPECT_EQ(virtualSlot(&ZyExceptionInterface::name), 0u);
    EXPECT_EQ(virtualSlot(&ZyExceptionInterface::what), 1u);
    EXPECT_EQ(virtualSlot(&AfterException::last), 4u);
}

TEST(ZySlotOrder, OfContainer)
{
    EXPECT_EQ(virtualSlot<void (Container::*)(int &&)>(&Container::add), 0u);
    EXPECT_EQ(virtualSlot<void (Container::*)(int const &)>(&Container::add), 1u);
    EXPECT_EQ(virtualSlot(&Container::addUnique), 2u);
    EXPECT_EQ(virtualSlot<ZyIterator<int const> (Container::*)() const>(&Container::begin), 3u);
    EXPECT_EQ(virtualSlot<ZyIterator<int> (Container::*)()>(&Container::begin), 4u);
    EXPECT_EQ(virtualSlot<ZyIterator<int const> (Container::*)() const>(&Container::end), 5u);
    EXPECT_EQ(virtualSlot<ZyIterator<int> (Container::*)()>(&Container::end), 6u);
    EXPECT_EQ(virtualSlot(&Container::contains), 7u);
    EXPECT_EQ(virtualSlot<int const & (Container::*)(int const &) const>(&Container::find), 8u);
    EXPECT_EQ(virtualSlot<int & (Container::*)(int const &)>(&Container::find), 9u);
    EXPECT_EQ(virtualSlot(&Container::remove), 10u);
    EXPECT_EQ(virtualSlot<int const & (Container::*)(Predicate) const>(&Container::find), 11u);
    EXPECT_EQ(virtualSlot<int & (Container::*)(Predicate)>(&Container::find), 12u);
    EXPECT_EQ(virtualSlot(&Container::size), 13u);
}

TEST(ZySlotOrder, ConcreteContainersAddTheirDestructor)
{
    EXPECT_EQ(virtualSlot(&AfterDeque::last), 16u);
}

TEST(ZySlotOrder, OfIteratorImplementation)
{
    using Impl = ZyIteratorImpl<int>;
    EXPECT_EQ(virtualSlot(&Impl::operator++), 2u);
    EXPECT_EQ(virtualSlot<int const & (Impl::*)() const>(&Impl::operator*), 3u);
    EXPECT_EQ(virtualSlot<int & (Impl::*)()>(&Impl::operator*), 4u);
    EXPECT_EQ(virtualSlot<int const * (Impl::*)() const>(&Impl::operator->), 5u);
    EXPECT_EQ(virtualSlot<int * (Impl::*)()>(&Impl::operator->), 6u);
    EXPECT_EQ(virtualSlot(&Impl::operator==), 7u);
    EXPECT_EQ(virtualSlot(&Impl::operator!=), 8u);
    EXPECT_EQ(virtualSlot(&Impl::hasCurrent), 9u);
    EXPECT_EQ(virtualSlot(&Impl::clone), 10u);
}

TEST(ZySlotOrder, OfStringConverter)
{
    using Converter = ZyStringConverter<double>;
    EXPECT_EQ(virtualSlot<ZyString (Converter::*)(double const &) const>(&Converter::convert), 2u);
    EXPECT_EQ(virtualSlot<double (Converter::*)(ZyString const &) const>(&Converter::convert), 3u);
}

TEST(ZySlotOrder, OfBase64Converter)
{
    using Codec = ZyBase64Converter;
    EXPECT_EQ(virtualSlot(&Codec::encodeDouble), 2u);
    EXPECT_EQ(virtualSlot<YString (Codec::*)(__int64 const &) const>(&Codec::encodeInteger), 3u);
    EXPECT_EQ(virtualSlot<YString (Codec::*)(int const &) const>(&Codec::encodeInteger), 4u);
    EXPECT_EQ(virtualSlot(&Codec::encodeString), 5u);
    EXPECT_EQ(virtualSlot(&Codec::decodeDouble), 6u);
    EXPECT_EQ(virtualSlot(&Codec::decodeInteger), 7u);
    EXPECT_EQ(virtualSlot(&Codec::decodeString), 8u);
    EXPECT_EQ(virtualSlot(&AfterCodec::last), 9u);
}

#endif
