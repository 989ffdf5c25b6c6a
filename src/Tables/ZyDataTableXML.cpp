// SPDX-License-Identifier: BSD-3-Clause
// The XML form of the data table: rows of items of values, a definition for each level.
#include <ZyDataTable.h>

#include <ZyString.h>
#include <ZyXMLElementReader.h>
#include <ZyXMLElementWriter.h>
#include <ZyXMLLambdaRule.h>
#include <ZyXMLObject.h>

#include "Tables/ZyDataTable_p.h"
#include "XML/ZyXMLBinding_p.h"
#include "XML/ZyXMLNames_p.h"

#include <memory>
#include <utility>

using ZyXMLBinding::addChild;
using ZyXMLBinding::child;
using ZyXMLBinding::define;
using ZyXMLBinding::defineDeque;
using ZyXMLBinding::Definition;
using ZyXMLBinding::rememberNew;

namespace
{
using Item = ZySharedPtr<ZyDataTableItem>;
using Row = ZySharedPtr<ZyDataTableRow>;

constexpr char const * headerName = "header";
constexpr char const * spanName = "hspan";

/** The number in an attribute, or \a otherwise when it is not there. */
int numberIn(ZyXMLElementReader const & element, char const * name, int otherwise)
{
    ZyString const attribute(name);
    return element.hasAttribute(attribute) ? element.readAttribute(attribute).toInt() : otherwise;
}

Definition<ZyDeque<ZyVariant>> const & valuesRule()
{
    static auto const definition =
        defineDeque<ZyVariant>(ZyXMLNames::value, ZyXMLObject<ZyVariant>::LoadRule());
    return definition;
}

Definition<Item> const & itemRule()
{
    static auto const definition = define<Item>(
        [](ZyXMLRule & rule) {
            *rememberNew<unsigned int>(rule, spanName) = 1;
            valuesRule()->setup(rule);
        },
        [](ZyXMLRule & rule, ZyXMLElementReader & element) {
            *rule.recall<unsigned int>(spanName) = static_cast<unsigned int>(numberIn(element, spanName, 1));
            valuesRule()->start(rule, element);
        },
        [](ZyXMLRule & rule) {
            ZyUniquePtr<ZyDeque<ZyVariant>> const values = valuesRule()->finish(rule);
            Item const item(new ZyDataTableItem(std::move(*values), *rule.recall<unsigned int>(spanName)));
            return ZyUniquePtr<Item>(new Item(item));
        });
    return definition;
}

Definition<ZyDeque<Item>> const & itemsRule()
{
    static auto const definition = defineDeque<Item>(ZyXMLNames::item, itemRule());
    return definition;
}

Definition<Row> const & rowRule()
{
    using Type = ZyDataTable::ItemType;
    static auto const definition = define<Row>(
        [](ZyXMLRule & rule) {
            rememberNew<Type>(rule, headerName);
            itemsRule()->setup(rule);
        },
        [](ZyXMLRule & rule, ZyXMLElementReader & element) {
            *rule.recall<Type>(headerName) = static_cast<Type>(numberIn(element, headerName, 0));
            itemsRule()->start(rule, element);
        },
        [](ZyXMLRule & rule) {
            ZyUniquePtr<ZyDeque<Item>> const items = itemsRule()->finish(rule);
            Row const row(new ZyDataTableRow(std::move(*items), *rule.recall<Type>(headerName)));
            return ZyUniquePtr<Row>(new Row(row));
        });
    return definition;
}

Definition<ZyDeque<Row>> const & rowsRule()
{
    static auto const definition = defineDeque<Row>(ZyXMLNames::row, rowRule());
    return definition;
}

void writeItem(ZyXMLElementWriter & row, ZyDataTableItem const & item)
{
    std::unique_ptr<ZyXMLElementWriter> const element = child(row, ZyXMLNames::item);
    if (item.columnSpan() > 1) {
        element->writeAttribute(spanName, ZyString(item.columnSpan()));
    }
    for (ZyVariant const & value : item.values().std_deque()) {
        ZyXMLObject<ZyVariant>::Write(*child(*element, ZyXMLNames::value), value);
    }
}

void writeRow(ZyXMLElementWriter & rows, ZyDataTableRow const & row)
{
    std::unique_ptr<ZyXMLElementWriter> const element = child(rows, ZyXMLNames::row);
    if (row.type == ZyDataTable::Header || row.type == ZyDataTable::SubHeader) {
        element->writeAttribute(headerName, "1");
    }
    for (Item const & item : row.items.std_deque()) {
        writeItem(*element, *item);
    }
}
} // namespace

void ZyXMLObject<ZyDataTable>::Write(ZyXMLElementWriter & element, ZyDataTable const & table)
{
    std::unique_ptr<ZyXMLElementWriter> const rows = child(element, "Rows");
    for (Row const & row : table.rows().std_deque()) {
        writeRow(*rows, *row);
    }
}

void ZyXMLObject<ZyDataTable>::ClearRows(ZyDataTable & table)
{
    table.d()->rows.clear();
}

ZySharedPtr<ZyXMLLambdaDefinition<ZyDataTable>> ZyXMLObject<ZyDataTable>::LoadRule()
{
    static auto const definition = define<ZyDataTable>(
        [](ZyXMLRule & rule) {
            auto const table = rememberNew<ZyDataTable>(rule, ZyXMLBinding::valueSlot);
            addChild<ZyDeque<Row>>(rule, "Rows", rowsRule(), [table](ZyUniquePtr<ZyDeque<Row>> rows) {
                for (Row const & row : rows->std_deque()) {
                    table->addRow(std::move(*row));
                }
            });
        },
        [](ZyXMLRule & rule, ZyXMLElementReader &) {
            ClearRows(*rule.recall<ZyDataTable>(ZyXMLBinding::valueSlot));
        },
        [](ZyXMLRule & rule) {
            return ZyUniquePtr<ZyDataTable>(
                new ZyDataTable(*rule.recall<ZyDataTable>(ZyXMLBinding::valueSlot)));
        });
    return definition;
}
