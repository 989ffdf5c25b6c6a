// SPDX-License-Identifier: BSD-3-Clause
// A type of someone else's own, bound to XML: its rules and their memory work across the library's border,
// although the templates behind them are instantiated, hidden, on both sides of it.
#include "binding.h"

#include <ZyCore.h>

#include <string>
#include <vector>

struct Limit
{
    ZyString name;
    int value = 0;
    ZyVariant unit;
};

/** Twice an integer: a binding on top of one of the library's, with that one's memory. */
struct Twice
{
    int value = 0;
};

template <>
struct ZyXMLObject<Limit, void>
{
    static void Write(ZyXMLElementWriter & element, Limit const & limit)
    {
        element.createElement("Name")->writeText(limit.name);
        ZyXMLObject<int>::Write(*element.createElement("Value"), limit.value);
        ZyXMLObject<ZyVariant>::Write(*element.createElement("Unit"), limit.unit);
    }
    static ZySharedPtr<ZyXMLLambdaDefinition<Limit>> LoadRule()
    {
        static ZySharedPtr<ZyXMLLambdaDefinition<Limit>> const definition = Definition();
        return definition;
    }

private:
    static ZySharedPtr<ZyXMLLambdaDefinition<Limit>> Definition()
    {
        ZySharedPtr<ZyXMLLambdaDefinition<Limit>> const result(new ZyXMLLambdaDefinition<Limit>);
        result->setup = [](ZyXMLRule & rule) {
            auto const limit = rule.remember("val", ZySharedPtr<Limit>(new Limit));
            rule.addChildRule(
                "Name", [limit](ZyXMLRule &, ZyXMLElementReader & name) { limit->name = name.readText(); });
            rule.addChildRule<int>("Value", [limit](ZyUniquePtr<int> value) { limit->value = *value; });
            rule.addChildRule<ZyVariant>("Unit",
                                         [limit](ZyUniquePtr<ZyVariant> unit) { limit->unit = *unit; });
        };
        result->start = [](ZyXMLRule & rule, ZyXMLElementReader &) { *rule.recall<Limit>("val") = Limit(); };
        result->finish = [](ZyXMLRule & rule) {
            return ZyUniquePtr<Limit>(new Limit(*rule.recall<Limit>("val")));
        };
        return result;
    }
};

template <>
struct ZyXMLObject<Twice, void>
{
    static ZySharedPtr<ZyXMLLambdaDefinition<Twice>> LoadRule()
    {
        ZySharedPtr<ZyXMLLambdaDefinition<int>> const single = ZyXMLObject<int>::LoadRule();
        ZySharedPtr<ZyXMLLambdaDefinition<Twice>> const result(new ZyXMLLambdaDefinition<Twice>);
        result->setup = single->setup;
        result->start = single->start;
        result->finish = [](ZyXMLRule & rule) {
            return ZyUniquePtr<Twice>(new Twice{2 * *rule.recall<int>("val")});
        };
        return result;
    }
};

namespace
{
/** A rule as a class, with an object of its own in its memory. */
class Counting : public ZyXMLRule
{
public:
    explicit Counting(ZyXMLPath const & path) : ZyXMLRule(path) {}

    void onAdded() override { remember("count", ZySharedPtr<int>(new int(0))); }
    void onStart(ZyXMLElementReader &) override {}
    void onFinish() override { ++*recall<int>("count"); }
};

ZyString written(std::vector<Limit> const & limits)
{
    ZyStringDevice device;
    ZyXMLStreamWriter writer(device);
    writer.startDocument();
    {
        auto const root = writer.createElement("Limits");
        for (Limit const & limit : limits) {
            ZyXMLObject<Limit>::Write(*root->createElement("Limit"), limit);
        }
    }
    writer.finishDocument();
    return device.content();
}

bool same(std::vector<Limit> const & a, std::vector<Limit> const & b)
{
    bool result = a.size() == b.size();
    for (std::size_t i = 0; result && i < a.size(); ++i) {
        result = a[i].name == b[i].name && a[i].value == b[i].value && a[i].unit == b[i].unit;
    }
    return result;
}

/** The words of what a call fails with, caught on this side as the most exact class. */
template <class Exception, class Function>
std::string wordsOf(Function && function)
{
    try {
        function();
    } catch (Exception const & failure) {
        return failure.what();
    }
    return "nothing was thrown";
}

bool loads(std::vector<Limit> const & limits)
{
    ZySharedPtr<ZyXMLLoader> const loader = ZyXMLLoader::Create();
    std::vector<Limit> loaded;
    loader->add<Limit>("Limits/Limit", [&](ZyUniquePtr<Limit> limit) { loaded.push_back(*limit); });
    auto * const counting = new Counting("Limits");
    loader->add(ZyUniquePtr<ZyXMLRule>(counting));
    ZyStringDevice device(written(limits));
    ZyXMLStreamReader reader(device);
    loader->load(reader);
    return same(loaded, limits) && *counting->recall<int>("count") == 1 &&
           wordsOf<ZyNotFoundException>([&] { counting->recall<Limit>("count"); }) ==
               "Item not found: count" &&
           wordsOf<ZyXMLDuplicateRuleException>([&] { loader->add<int>("Limits/Limit/Value", {}); }) ==
               "Duplicate rule for XML path: Limits/Limit/Value";
}

bool readsMemoryOfTheLibrary()
{
    ZySharedPtr<ZyXMLLoader> const loader = ZyXMLLoader::Create();
    int result = 0;
    loader->add<Twice>("Value", [&](ZyUniquePtr<Twice> value) { result = value->value; });
    ZyStringDevice device("<Value>21</Value>");
    ZyXMLStreamReader reader(device);
    loader->load(reader);
    return result == 42;
}
} // namespace

bool bindsItsOwnType()
{
    std::vector<Limit> const limits = {
        {"gain", 3, ZyVariant("dB")}, {"offset", -7, ZyVariant()}, {"", 0, ZyVariant(2.5)}};
    return loads(limits) && readsMemoryOfTheLibrary() &&
           ZyXMLObject<int>::LoadRule() == ZyXMLObject<int>::LoadRule();
}
