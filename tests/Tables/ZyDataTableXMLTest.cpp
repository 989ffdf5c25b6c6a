// SPDX-License-Identifier: BSD-3-Clause
// The XML form of the data table.
#include <ZyDataTable.h>

#include "ThrowsMessage.h"
#include "XmlLoad.h"

#include <gtest/gtest.h>

#include <string>
#include <utility>
#include <vector>

namespace
{
using Items = ZyDeque<ZyDataTableItem>;

constexpr char const * types = "http://schemas.zycore.example/schemas/application/zytypes/";

std::string written(ZyDataTable const & table)
{
    return writtenDocument([&](ZyXMLElementWriter & root) { ZyXMLObject<ZyDataTable>::Write(root, table); });
}

/** The tables at the path of a document. */
std::vector<ZyDataTable> loaded(std::string const & document, char const * path)
{
    std::vector<ZyDataTable> tables;
    ZySharedPtr<ZyXMLLoader> const loader = ZyXMLLoader::Create();
    loader->add<ZyDataTable>(path, [&](ZyUniquePtr<ZyDataTable> table) { tables.push_back(*table); });
    loadText(*loader, document);
    return tables;
}

ZyDataTable loadedTable(std::string const & content)
{
    return loaded("<r>" + content + "</r>", "r").at(0);
}

ZyDataTable roundTrip(ZyDataTable const & table)
{
    return loaded(written(table), "r").at(0);
}

ZyDataTable::ItemType typeOf(ZyDataTable const & table, unsigned int row)
{
    return table.rows().at(row)->type;
}
} // namespace

TEST(ZyDataTableXML, HasAnElementALevel)
{
    ZyDataTable table;
    table.addRow(Items{ZyDataTableItem(ZyVariant("a"), 3)}, ZyDataTable::Header);
    table.addRow(Items{ZyDataTableItem(ZyDeque<ZyVariant>{1, ZyVariant()})}, ZyDataTable::Data);
    EXPECT_EQ(written(table), std::string("<r><n1:Rows xmlns:n1=\"") + types +
                                  "\"><n1:Row header=\"1\"><n1:Item hspan=\"3\"><n1:Value><n1:String>a"
                                  "</n1:String></n1:Value></n1:Item></n1:Row><n1:Row><n1:Item><n1:Value>"
                                  "<n1:Integer>1</n1:Integer></n1:Value><n1:Value/></n1:Item></n1:Row>"
                                  "</n1:Rows></r>\n");
}

TEST(ZyDataTableXML, OfAnEmptyTableIsAnEmptyElement)
{
    EXPECT_EQ(written(ZyDataTable()), std::string("<r><n1:Rows xmlns:n1=\"") + types + "\"/></r>\n");
    EXPECT_EQ(roundTrip(ZyDataTable()), ZyDataTable());
    EXPECT_EQ(loadedTable(""), ZyDataTable());
}

TEST(ZyDataTableXML, ComesBack)
{
    ZyDataTable table;
    table.addRow(Items{ZyVariant("Name"), ZyDataTableItem(ZyVariant("Values"), 2)}, ZyDataTable::Header);
    table.addRow(Items{ZyVariant("a"), ZyDeque<ZyVariant>{1, 2.5, true}, ZyVariant()}, ZyDataTable::Data);
    table.addRow(Items{}, ZyDataTable::Data);
    table.addRow(Items{ZyDataTableItem(ZyDeque<ZyVariant>())}, ZyDataTable::Data);
    table.addRow(Items{ZyVariant(ZyFilePath("a/b")), ZyVariant(ZyPair<ZyString, ZyString>("c", "d")),
                       ZyVariant(7u), ZyVariant("")},
                 ZyDataTable::Data);
    ZyDataTable const read = roundTrip(table);
    EXPECT_EQ(read, table);
    EXPECT_EQ(read.numberColumns(), 4u);
}

TEST(ZyDataTableXML, WritesAnAttributeForBothKindsOfHeadings)
{
    for (auto const & [type, wanted] :
         {std::pair(ZyDataTable::Data, "<n1:Row/>"), std::pair(ZyDataTable::Header, "<n1:Row header=\"1\"/>"),
          std::pair(ZyDataTable::SubHeader, "<n1:Row header=\"1\"/>"),
          std::pair(ZyDataTable::ItemType(7), "<n1:Row/>")}) {
        ZyDataTable table;
        table.addRow(Items{}, type);
        EXPECT_NE(written(table).find(wanted), std::string::npos) << type;
    }
}

TEST(ZyDataTableXML, Deliberate_sub_header_becomes_header)
{
    ZyDataTable table;
    table.addRow(Items{ZyVariant(1)}, ZyDataTable::SubHeader);
    EXPECT_EQ(typeOf(roundTrip(table), 0), ZyDataTable::Header);
}

TEST(ZyDataTableXML, ReadsTheNumberOfTheTypeAsItStands)
{
    ZyDataTable const table =
        loadedTable("<Rows><Row header='2'/><Row header='7'/><Row header='x'/><Row/></Rows>");
    EXPECT_EQ(typeOf(table, 0), ZyDataTable::SubHeader);
    EXPECT_EQ(static_cast<int>(typeOf(table, 1)), 7);
    EXPECT_EQ(typeOf(table, 2), ZyDataTable::Data);
    EXPECT_EQ(typeOf(table, 3), ZyDataTable::Data);
    EXPECT_NE(written(table).find("<n1:Row header=\"1\"/><n1:Row/>"), std::string::npos);
}

TEST(ZyDataTableXML, ReadsAMissingSpanAsOne)
{
    ZyDataTable const table = loadedTable("<Rows><Row><Item hspan='3'><Value/></Item><Item/></Row></Rows>");
    EXPECT_EQ(table.rows().at(0)->items.at(0)->columnSpan(), 3u);
    EXPECT_EQ(table.rows().at(0)->items.at(1)->columnSpan(), 1u);
    EXPECT_EQ(table.rows().at(0)->items.at(1)->numberValues(), 0u);
    EXPECT_EQ(table.numberColumns(), 4u);
}

TEST(ZyDataTableXML, WritesNoSpanOfOne)
{
    ZyDataTable table;
    table.addRow(Items{ZyDataTableItem(ZyVariant(1), 1), ZyDataTableItem(ZyVariant(1), 0)},
                 ZyDataTable::Data);
    EXPECT_EQ(written(table).find("hspan"), std::string::npos);
}

TEST(ZyDataTableXML, AppendsTheRowsOfSeveralElements)
{
    EXPECT_EQ(loadedTable("<Rows><Row/></Rows><x/><Rows><Row/><Row/></Rows>").numberRows(), 3u);
}

TEST(ZyDataTableXML, IgnoresWhatItDoesNotKnow)
{
    ZyDataTable const table =
        loadedTable("<Row/><Rows><Item/><Row other='1'><Value/><Item><Integer>1</Integer>"
                    "</Item></Row></Rows>");
    EXPECT_EQ(table.numberRows(), 1u);
    EXPECT_EQ(table.rows().at(0)->items.at(0)->numberValues(), 0u);
}

TEST(ZyDataTableXML, Deliberate_table_width_stays)
{
    std::vector<ZyDataTable> const tables = loaded(
        "<r><t><Rows><Row><Item/><Item/></Row></Rows></t><t><Rows><Row><Item/></Row></Rows></t></r>", "r/t");
    ASSERT_EQ(tables.size(), 2u);
    EXPECT_EQ(tables[0].numberRows(), 1u);
    EXPECT_EQ(tables[1].numberRows(), 1u);
    EXPECT_EQ(tables[0].numberColumns(), 2u);
    EXPECT_EQ(tables[1].numberColumns(), 2u);
}

TEST(ZyDataTableXML, HandsOutTablesOfTheirOwn)
{
    std::vector<ZyDataTable> tables =
        loaded("<r><t><Rows><Row><Item><Value><Integer>1</Integer></Value></Item></Row></Rows></t>"
               "<t><Rows><Row><Item><Value><Integer>2</Integer></Value></Item></Row></Rows></t></r>",
               "r/t");
    EXPECT_EQ(tables.at(0).value(0, 0), ZyVariant(1));
    EXPECT_EQ(tables.at(1).value(0, 0), ZyVariant(2));
}

TEST(ZyDataTableXML, KeepsItsMemoryUnderItsNames)
{
    ZySharedPtr<ZyXMLLoader> const loader = ZyXMLLoader::Create();
    auto * const rule = new ZyXMLLambdaRule<ZyDataTable>("t", ZyXMLObject<ZyDataTable>::LoadRule());
    EXPECT_ZY_THROW(rule->onFinish(), ZyNotFoundException, "Item not found: val");
    loader->add(ZyUniquePtr<ZyXMLRule>(rule));
    EXPECT_EQ(*rule->recall<ZyDataTable>("val"), ZyDataTable());
    for (char const * path : {"t/Rows", "t/Rows/Row", "t/Rows/Row/Item", "t/Rows/Row/Item/Value",
                              "t/Rows/Row/Item/Value/Boolean"}) {
        EXPECT_THROW(loader->add<int>(path, {}), ZyXMLDuplicateRuleException) << path;
    }
}

TEST(ZyDataTableXML, HasOneRuleForTheProcess)
{
    EXPECT_EQ(ZyXMLObject<ZyDataTable>::LoadRule(), ZyXMLObject<ZyDataTable>::LoadRule());
}
