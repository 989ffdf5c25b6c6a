// SPDX-License-Identifier: BSD-3-Clause
// The standard bindings over documents in memory: what comes back, and what is one-way.
#include <ZyXMLObject.h>

#include "XmlLoad.h"

#include <ZyDataTable.h>
#include <ZyDeque.h>
#include <ZyFilePath.h>
#include <ZyPair.h>
#include <ZyTimeDuration.h>
#include <ZyTimePoint.h>
#include <ZyUUID.h>
#include <ZyVariant.h>
#include <ZyXMLDomDocument.h>
#include <ZyXMLDomElementReader.h>
#include <ZyXMLDomElementWriter.h>

#include <gtest/gtest.h>

#include <limits>
#include <string>

namespace
{
using FilePathPair = ZyPair<ZyFilePath, ZyFilePath>;
using StringPair = ZyPair<ZyString, ZyString>;

/** What is read from an element of a document in memory that was written there. */
template <class T>
T roundTrip(T const & value)
{
    ZyXMLDomDocument document;
    document.setContent("<v/>");
    ZyXMLDomElementWriter writer(document.root());
    ZyXMLObject<T>::Write(writer, value);
    ZyUniquePtr<T> received;
    ZyXMLLambdaRule<T> rule("v", ZyXMLObject<T>::LoadRule(),
                            [&](ZyUniquePtr<T> read) { received = std::move(read); });
    rule.onAdded();
    ZyXMLDomElementReader reader(document.root());
    rule.onStart(reader);
    rule.onFinish();
    return *received;
}

/** Whether the saved text of a document in memory that holds a value can be read to its end. */
template <class T>
bool isReadable(T const & value)
{
    ZyXMLDomDocument document;
    document.setContent("<v/>");
    {
        ZyXMLDomElementWriter writer(document.root());
        ZyXMLObject<T>::Write(writer, value);
    }
    ZyStringDevice device{document.toString()};
    ZyXMLStreamReader reader(device);
    ZySharedPtr<ZyXMLLoader> const loader = ZyXMLLoader::Create();
    bool same = false;
    loader->add<T>("v", [&](ZyUniquePtr<T> read) { same = *read == value; });
    loader->load(reader);
    return same && reader.tokenType() != ZyXMLStreamReader::Invalid;
}
} // namespace

TEST(ZyXMLObjectInMemory, ComesBackWhereItIsText)
{
    EXPECT_EQ(roundTrip(-7), -7);
    EXPECT_EQ(roundTrip(0.1), 0.1);
    EXPECT_EQ(roundTrip(std::numeric_limits<double>::infinity()), std::numeric_limits<double>::infinity());
    EXPECT_EQ(roundTrip(ZyString("a <b>")).toStdString(), "a <b>");
    EXPECT_EQ(roundTrip(ZyFilePath("a/b")), ZyFilePath("a/b"));
    EXPECT_EQ(roundTrip(ZyUUID("a-b")), ZyUUID("a-b"));
    ZyTimeDuration const span(ZyTimeDuration::Nanoseconds{-5});
    EXPECT_EQ(roundTrip(span), span);
    EXPECT_EQ(roundTrip(ZyTimePoint(span)), ZyTimePoint(span));
}

TEST(ZyXMLObjectInMemory, IsReadFromItsFileWhereItIsText)
{
    EXPECT_TRUE(isReadable(-7));
    EXPECT_TRUE(isReadable(0.1));
    EXPECT_TRUE(isReadable(ZyString("text")));
    EXPECT_TRUE(isReadable(ZyFilePath("a/b")));
    EXPECT_TRUE(isReadable(ZyUUID("a-b")));
    EXPECT_TRUE(isReadable(ZyTimeDuration(ZyTimeDuration::Nanoseconds{5})));
    EXPECT_TRUE(isReadable(ZyTimePoint(ZyTimeDuration::Nanoseconds{5})));
}

TEST(ZyXMLObjectInMemory, IsOneWayWhereItHasChildren)
{
    EXPECT_FALSE(isReadable(StringPair("a", "b")));
    EXPECT_FALSE(isReadable(FilePathPair("a", "b")));
    EXPECT_FALSE(isReadable(ZyPoint(1, 2)));
    EXPECT_FALSE(isReadable(ZyPointD(1, 2)));
    EXPECT_FALSE(isReadable(ZyDeque<int>{1}));
    EXPECT_FALSE(isReadable(ZyDeque<double>{1}));
    EXPECT_FALSE(isReadable(ZyDeque<ZyString>{"a"}));
    EXPECT_FALSE(isReadable(ZyVariant(1)));
    ZyDataTable table;
    table.addRow(ZyDeque<ZyDataTableItem>{ZyVariant(1)}, ZyDataTable::Data);
    EXPECT_FALSE(isReadable(table));
}

TEST(ZyXMLObjectInMemory, IsReadableWhereItWritesNoChild)
{
    EXPECT_TRUE(isReadable(ZyDeque<int>()));
    EXPECT_TRUE(isReadable(ZyVariant()));
}

TEST(ZyXMLObjectInMemory, NamesAChildAfterTheNamespace)
{
    ZyXMLDomDocument document;
    document.setContent("<v/>");
    ZyXMLDomElementWriter writer(document.root());
    ZyXMLObject<ZyVariant>::Write(writer, ZyVariant(1));
    EXPECT_NE(document.toString().toStdString().find(
                  "<http://schemas.zycore.example/schemas/application/zytypes/ xmlns:http=\"Integer\">"),
              std::string::npos)
        << document.toString().toStdString();
}
