// SPDX-License-Identifier: BSD-3-Clause
// The two factories: which builder is called where, what refuses an element, and classes by name.
#include <ZyXMLFactory.h>

#include "ScratchDirectory.h"
#include "ThrowsMessage.h"
#include "XmlLoad.h"

#include <ZyException.h>
#include <ZyFilePath.h>
#include <ZyXMLStreamElementReader.h>
#include <ZyXMLTemplateFactory.h>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <memory>
#include <string>
#include <type_traits>
#include <vector>

static_assert(sizeof(ZyXMLFactory) == 2 * sizeof(void *), "virtual table pointer and state");
static_assert(sizeof(ZyXMLTemplateFactory) == 2 * sizeof(void *), "virtual table pointer and state");
static_assert(std::is_base_of_v<ZyPrivateObject, ZyXMLFactory> &&
              std::is_base_of_v<ZyPrivateObject, ZyXMLTemplateFactory>);
static_assert(std::has_virtual_destructor_v<ZyXMLTemplateFactory::CreationArgument> &&
              std::is_copy_constructible_v<ZyXMLTemplateFactory::CreationArgument> &&
              std::is_copy_assignable_v<ZyXMLTemplateFactory::CreationArgument>);

namespace
{
using testing::ElementsAre;
using testing::IsEmpty;

using Log = std::vector<std::string>;
using Object = ZySharedPtr<ZyXMLSerializableObject>;

class Thing : public ZyXMLSerializableObject
{
public:
    explicit Thing(std::string const & thing = "") : text(thing) { ++alive; }
    ~Thing() override { --alive; }
    Thing(Thing const &) = delete;
    Thing & operator=(Thing const &) = delete;
    void readXML(ZyXMLElementReader & element) override { text = element.readAttribute("t").toStdString(); }
    ZyString xmlElementName() const override { return "Thing"; }

    static int alive;
    std::string text;

protected:
    void onWriteXMLAttributes(ZyXMLElementWriter &) const override {}
    void onWriteXMLContent(ZyXMLElementWriter &) const override {}
};

int Thing::alive = 0;

std::string textOf(Object const & object)
{
    return object ? static_cast<Thing const &>(*object).text : "nothing";
}

class ZyXMLFactories : public testing::Test
{
protected:
    ~ZyXMLFactories() override { EXPECT_EQ(Thing::alive, 0); }

    ZyXMLFactory::Builder builder(std::function<void(ZyXMLElementReader &)> const & act = {})
    {
        return [this, act](ZyXMLElementReader & element) {
            std::string const name = element.name().toStdString();
            log.push_back("build " + name);
            if (act) {
                act(element);
            }
            return Object(new Thing(name));
        };
    }
    ZyXMLFactory::PostConstruction done()
    {
        return [this](Object const & object) { log.push_back("done " + textOf(object)); };
    }
    void add(char const * path, std::function<void(ZyXMLElementReader &)> const & act = {})
    {
        factory.registerBuilder(path, builder(act), done());
    }
    Log loaded(std::string const & text)
    {
        log.clear();
        ZyStringDevice device{ZyString(text)};
        ZyXMLStreamReader reader(device);
        factory.load(reader);
        return log;
    }

    Log log;
    ZyXMLFactory factory;
};

void refuse(ZyXMLElementReader &)
{
    throw ZyUnknownXMLElementException("refused");
}
} // namespace

TEST_F(ZyXMLFactories, BuildThenChildrenThenDone)
{
    add("a");
    add("a/b");
    add("a/b/c");
    EXPECT_THAT(loaded("<a><b><c/></b>t<b/></a>"), ElementsAre("build a", "build b", "build c", "done c",
                                                               "done b", "build b", "done b", "done a"));
}

TEST_F(ZyXMLFactories, DoNothingAfterwardsUnlessTold)
{
    factory.registerBuilder("a", builder());
    EXPECT_THAT(loaded("<a/>"), ElementsAre("build a"));
}

TEST_F(ZyXMLFactories, RefuseASecondBuilderForAPath)
{
    add("a/b");
    EXPECT_ZY_THROW(add("a/b"), ZyInvalidUseException, "Builder for given path already exists: a/b");
    EXPECT_ZY_THROW(factory.registerBuilder("a/b", builder()), ZyInvalidUseException,
                    "Builder for given path already exists: a/b");
    add("a/B");
    EXPECT_THAT(loaded("<a><b/><B/></a>"), ElementsAre("build b", "done b", "build B", "done B"));
}

TEST_F(ZyXMLFactories, ReplaceWhatIsDoneAfterwards)
{
    add("a");
    factory.changePostConstruction("a", [this](Object const &) { log.push_back("changed"); });
    EXPECT_THAT(loaded("<a/>"), ElementsAre("build a", "changed"));
}

TEST_F(ZyXMLFactories, CannotChangeWhatIsNotThere)
{
    add("a/b");
    EXPECT_ZY_THROW(factory.changePostConstruction("a", done()), ZyInvalidParameterException,
                    "No builder for the given path exists: a");
    EXPECT_ZY_THROW(factory.changePostConstruction("a/B", done()), ZyInvalidParameterException,
                    "No builder for the given path exists: a/B");
}

TEST_F(ZyXMLFactories, BuildBelowARootWithoutABuilder)
{
    add("a/b");
    add("b");
    EXPECT_THAT(loaded("<a><x><b/></x><b/></a>"), ElementsAre("build b", "done b"));
}

TEST_F(ZyXMLFactories, FinishAnElementThatItsBuilderReadThrough)
{
    add("r/a", [](ZyXMLElementReader & element) { static_cast<void>(element.readText()); });
    EXPECT_THAT(loaded("<r><a></a><a>t</a></r>"), ElementsAre("build a", "done a", "build a", "done a"));
}

TEST_F(ZyXMLFactories, FinishAnElementWhoseChildrenItsBuilderWalked)
{
    add("r/a", [](ZyXMLElementReader & element) {
        ZyXMLElementReader::Children & children = element.children();
        for (auto child = children.begin(), end = children.end(); child != end; ++child) {
        }
    });
    add("r/a/b");
    EXPECT_THAT(loaded("<r><a><b/></a></r>"), ElementsAre("build a", "done a"));
}

TEST_F(ZyXMLFactories, CountARefusedElementAsUnknown)
{
    add("r");
    add("r/a", refuse);
    add("r/a/b");
    EXPECT_THAT(loaded("<r><a><b/></a></r>"),
                ElementsAre("build r", "build a", "build b", "done b", "done r"));
}

TEST_F(ZyXMLFactories, RefuseAnElementAfterItsChildrenToo)
{
    factory.registerBuilder("r/a", builder(),
                            [](Object const &) { throw ZyUnknownXMLElementException("late"); });
    add("r/a/b");
    add("r/c");
    EXPECT_THAT(loaded("<r><a><b/></a><c/></r>"),
                ElementsAre("build a", "build b", "done b", "build c", "done c"));
}

TEST_F(ZyXMLFactories, GoOnBehindARefusedElementWhoseChildrenWereWalked)
{
    add("r/a", [](ZyXMLElementReader & element) {
        element.children().begin();
        throw ZyUnknownXMLElementException("refused");
    });
    add("r/a/b");
    add("r/c");
    EXPECT_THAT(loaded("<r><a><b/><b/></a><c/></r>"), ElementsAre("build a", "build c", "done c"));
}

TEST_F(ZyXMLFactories, EndAroundARefusedElementThatWasReadThrough)
{
    auto const readAndRefuse = [](ZyXMLElementReader & element) {
        static_cast<void>(element.readText());
        throw ZyUnknownXMLElementException("refused");
    };
    add("r");
    add("r/a", readAndRefuse);
    add("r/c");
    EXPECT_THAT(loaded("<r><a></a><c/></r>"), ElementsAre("build r", "build a", "done r"));
    ZyXMLFactory alone;
    alone.registerBuilder("r/a", builder(readAndRefuse));
    ZyStringDevice device("<r><a></a></r>");
    ZyXMLStreamReader reader(device);
    EXPECT_ZY_THROW(alone.load(reader), ZyNullXMLStreamElementException, "Null XML stream element");
}

TEST_F(ZyXMLFactories, EndTheChildrenOfTheNearestBuilderAboveAMisuse)
{
    add("r");
    add("r/a");
    add("r/a/b", [](ZyXMLElementReader &) { throw ZyInvalidUseException("mine"); });
    add("r/a/c");
    add("r/d");
    EXPECT_THAT(loaded("<r><a><b/><c/></a><d/></r>"),
                ElementsAre("build r", "build a", "build b", "done a", "build d", "done d", "done r"));
}

TEST_F(ZyXMLFactories, EndTheChildrenOfAnUnknownElementAboveAMisuse)
{
    add("r/x/b", [](ZyXMLElementReader &) { throw ZyInvalidUseException("mine"); });
    add("r/x/c");
    add("r/d");
    EXPECT_THAT(loaded("<r><x><b/><c/></x><d/></r>"), ElementsAre("build b", "build d", "done d"));
}

TEST_F(ZyXMLFactories, LetOtherExceptionsGo)
{
    add("r");
    add("r/a", [](ZyXMLElementReader & element) { element.readAttribute("missing"); });
    EXPECT_ZY_THROW(loaded("<r><a/></r>"), ZyUnknownXMLAttributeException, "Unknown attribute: missing");
    EXPECT_THAT(log, ElementsAre("build r", "build a"));
}

TEST_F(ZyXMLFactories, TakeTheElementThatTheReaderStandsOnAsTheRoot)
{
    add("b");
    ZyStringDevice device("<a><b/></a>");
    ZyXMLStreamReader reader(device);
    ASSERT_TRUE(reader.scan("b"));
    factory.load(reader);
    EXPECT_THAT(log, ElementsAre("build b", "done b"));
}

TEST_F(ZyXMLFactories, FailWithoutAnElement)
{
    EXPECT_ZY_THROW(loaded(""), ZyInvalidXMLException, "Invalid XML: Premature end of document.");
    ZyStringDevice device("<a/>");
    ZyXMLStreamReader reader(device);
    factory.load(reader);
    EXPECT_ZY_THROW(factory.load(reader), ZyNullPointerException, "");
}

TEST_F(ZyXMLFactories, HandOutObjectsThatOutliveTheWalk)
{
    std::vector<Object> kept;
    factory.registerBuilder("r/a", builder(), [&](Object const & object) { kept.push_back(object); });
    loaded("<r><a/><a/></r>");
    EXPECT_EQ(Thing::alive, 2);
}

TEST_F(ZyXMLFactories, AllowABuilderThatMakesNothing)
{
    factory.registerBuilder(
        "a", [](ZyXMLElementReader &) { return Object(); }, done());
    EXPECT_THAT(loaded("<a/>"), ElementsAre("done nothing"));
}

TEST_F(ZyXMLFactories, LoadFiles)
{
    ScratchDirectory const scratch;
    std::string const file = scratch.write("a.xml", "<a><b/></a>");
    add("a/b");
    factory.load(ZyFilePath(file));
    EXPECT_THAT(log, ElementsAre("build b", "done b"));
}

TEST_F(ZyXMLFactories, LoadFilesThatMatchTheirSchema)
{
    ScratchDirectory const scratch;
    std::string const schema =
        scratch.write("a.xsd", "<xs:schema xmlns:xs='http://www.w3.org/2001/XMLSchema'><xs:element name='a'>"
                               "<xs:complexType><xs:sequence><xs:element name='b'/></xs:sequence>"
                               "</xs:complexType></xs:element></xs:schema>");
    add("a/b");
    factory.load(ZyFilePath(scratch.write("good.xml", "<a><b/></a>")), ZyFilePath(schema));
    EXPECT_THAT(log, ElementsAre("build b", "done b"));
    log.clear();
    EXPECT_THROW(factory.load(ZyFilePath(scratch.write("bad.xml", "<a><c/></a>")), ZyFilePath(schema)),
                 ZyInvalidXMLException);
    EXPECT_THAT(log, IsEmpty());
}

namespace
{
class Widget : public Thing
{
public:
    void readXML(ZyXMLElementReader & element) override
    {
        Thing::readXML(element);
        text = "widget " + text;
    }
};

struct Suffix : ZyXMLTemplateFactory::CreationArgument
{
    explicit Suffix(char const * t) : text(t) {}
    std::string text;
};

class Suffixed : public Thing
{
public:
    explicit Suffixed(ZyXMLTemplateFactory::CreationArgument const * argument)
        : m_suffix(argument ? dynamic_cast<Suffix const &>(*argument).text : "")
    {}
    void readXML(ZyXMLElementReader &) override { text = "suffix " + m_suffix; }

private:
    std::string m_suffix;
};

/** The text of what a factory makes of the root of a document. */
std::string made(ZyXMLTemplateFactory const & factory, char const * text,
                 ZyXMLTemplateFactory::CreationArgument const * argument = nullptr)
{
    ZyStringDevice device(text);
    ZyXMLStreamReader reader(device);
    std::unique_ptr<ZyXMLSerializableObject> const object(factory.create(*reader.nextElement(), argument));
    return static_cast<Thing const &>(*object).text;
}
} // namespace

TEST(ZyXMLTemplateFactory, MakesTheClassOfTheName)
{
    ZyXMLTemplateFactory factory;
    factory.registerType<Thing>("Thing");
    factory.registerType<Widget>("Widget");
    EXPECT_EQ(made(factory, "<Thing t='1'/>"), "1");
    EXPECT_EQ(made(factory, "<Widget t='2'/>"), "widget 2");
    EXPECT_EQ(Thing::alive, 0);
}

TEST(ZyXMLTemplateFactory, KnowsNamesWithoutRegardToCase)
{
    ZyXMLTemplateFactory factory;
    EXPECT_FALSE(factory.isRegistered("Widget"));
    factory.registerType<Widget>("Widget");
    EXPECT_TRUE(factory.isRegistered("WIDGET"));
    EXPECT_TRUE(factory.isRegistered("Widget"));
    EXPECT_FALSE(factory.isRegistered("Widge"));
    EXPECT_EQ(made(factory, "<WIDGET t='1'/>"), "widget 1");
}

TEST(ZyXMLTemplateFactory, Deliberate_first_registration_stays)
{
    ZyXMLTemplateFactory factory;
    factory.registerType<Widget>("a");
    factory.registerType<Thing>("A");
    EXPECT_EQ(made(factory, "<a t='1'/>"), "widget 1");
}

TEST(ZyXMLTemplateFactory, RefusesUnknownNames)
{
    ZyXMLTemplateFactory factory;
    factory.registerType<Widget>("Widget");
    EXPECT_ZY_THROW(made(factory, "<Other/>"), ZyUnknownXMLElementException, "Unknown element: Other");
    EXPECT_EQ(factory.errors().size(), 0u);
}

TEST(ZyXMLTemplateFactory, KeepsTheWordsOfFailures)
{
    ZyXMLTemplateFactory factory;
    factory.registerType<Thing>("Thing");
    EXPECT_ZY_THROW(made(factory, "<Thing/>"), ZyUnknownXMLAttributeException, "Unknown attribute: t");
    EXPECT_ZY_THROW(made(factory, "<Thing/>"), ZyUnknownXMLAttributeException, "Unknown attribute: t");
    EXPECT_EQ(Thing::alive, 0);
    Log errors;
    for (ZyString const & error : factory.errors().std_list()) {
        errors.push_back(error.toStdString());
    }
    EXPECT_THAT(errors, ElementsAre("Unknown attribute: t", "Unknown attribute: t"));
}

TEST(ZyXMLTemplateFactory, HandsTheArgumentOn)
{
    ZyXMLTemplateFactory factory;
    factory.registerType<Suffixed>("S");
    Suffix const suffix("x");
    EXPECT_EQ(made(factory, "<S/>", &suffix), "suffix x");
    EXPECT_EQ(made(factory, "<S/>"), "suffix ");
    ZyStringDevice device("<S/>");
    ZyXMLStreamReader reader(device);
    std::unique_ptr<ZyXMLSerializableObject> const object(factory.create(*reader.nextElement()));
    EXPECT_EQ(static_cast<Thing const &>(*object).text, "suffix ");
}

TEST(ZyXMLTemplateFactory, ServesABuilder)
{
    ZyXMLTemplateFactory classes;
    classes.registerType<Widget>("Widget");
    std::vector<std::string> texts;
    ZyXMLFactory factory;
    for (char const * path : {"r/Widget", "r/Other"}) {
        factory.registerBuilder(
            path, [&](ZyXMLElementReader & element) { return Object(classes.create(element)); },
            [&](Object const & object) { texts.push_back(textOf(object)); });
    }
    ZyStringDevice device("<r><Widget t='1'/><Other/><Widget t='2'/></r>");
    ZyXMLStreamReader reader(device);
    factory.load(reader);
    EXPECT_THAT(texts, ElementsAre("widget 1", "widget 2"));
}
