#include <ZyCore.h>

#include <iostream>

// A type of the host's own.
struct Limit
{
    ZyString name;
    int value = 0;
};

// Its XML form: how it is written into an element, and the rules that read such an element.
template <>
struct ZyXMLObject<Limit, void>
{
    static void Write(ZyXMLElementWriter & element, Limit const & limit)
    {
        element.createElement("Name")->writeText(limit.name);
        ZyXMLObject<int>::Write(*element.createElement("Value"), limit.value);
    }

    static ZySharedPtr<ZyXMLLambdaDefinition<Limit>> LoadRule()
    {
        static ZySharedPtr<ZyXMLLambdaDefinition<Limit>> const definition(
            new ZyXMLLambdaDefinition<Limit>{SetUp, Start, Finish});
        return definition;
    }

private:
    // Once for each rule: a limit in the rule's memory, and the children that fill it.
    static void SetUp(ZyXMLRule & rule)
    {
        ZySharedPtr<Limit> const limit = rule.remember("val", ZySharedPtr<Limit>(new Limit));
        rule.addChildRule(
            "Name", [limit](ZyXMLRule &, ZyXMLElementReader & element) { limit->name = element.readText(); });
        rule.addChildRule<int>("Value", [limit](ZyUniquePtr<int> value) { limit->value = *value; });
    }
    // At each element: emptied in place, since the children hold on to it.
    static void Start(ZyXMLRule & rule, ZyXMLElementReader &) { *rule.recall<Limit>("val") = Limit(); }
    static ZyUniquePtr<Limit> Finish(ZyXMLRule & rule)
    {
        return ZyUniquePtr<Limit>(new Limit(*rule.recall<Limit>("val")));
    }
};

int main()
{
    ZyStringDevice text;
    {
        ZyXMLStreamWriter writer(text, ZyXMLStreamWriter::AutoFormattingSettings());
        auto const limits = writer.createElement("Limits");
        ZyXMLObject<Limit>::Write(*limits->createElement("Limit"), {"offset", -12});
        ZyXMLObject<Limit>::Write(*limits->createElement("Limit"), {"gain", 3});
        writer.finishDocument();
    }
    std::cout << text.content().c_str();

    ZySharedPtr<ZyXMLLoader> const loader = ZyXMLLoader::Create();
    loader->add<Limit>("Limits/Limit", [](ZyUniquePtr<Limit> limit) {
        std::cout << limit->name.c_str() << " = " << limit->value << '\n';
    });
    ZyXMLStreamReader reader(text);
    loader->load(reader);
    if (reader.tokenType() == ZyXMLStreamReader::Invalid) {
        std::cout << "damaged: " << reader.errorString().c_str() << '\n';
    }
}
