// SPDX-License-Identifier: BSD-3-Clause
// The loader: adding rules, which rule fires where and when, and what ends a part of a document.
#include <ZyXMLLoader.h>

#include "ThrowsMessage.h"
#include "XmlLoad.h"

#include <ZyException.h>
#include <ZyXMLStreamElementReader.h>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cstddef>
#include <string>
#include <type_traits>
#include <vector>

static_assert(sizeof(ZyXMLLoader) == 2 * sizeof(void *), "virtual table pointer and state");
static_assert(std::has_virtual_destructor_v<ZyXMLLoader>);
static_assert(!std::is_default_constructible_v<ZyXMLLoader> && !std::is_copy_constructible_v<ZyXMLLoader>);

namespace
{
using testing::ElementsAre;
using testing::IsEmpty;

using Log = std::vector<std::string>;

/** Writes down what happens to it, and does what it is told to. */
class LoggingRule : public ZyXMLRule
{
public:
    LoggingRule(char const * path, Log & log, Start start = {}, std::function<void()> finish = {})
        : ZyXMLRule(ZyXMLPath(path)), m_log(log), m_start(std::move(start)), m_finish(std::move(finish))
    {}
    void onAdded() override { m_log.push_back("added " + path().toString().toStdString()); }
    void onStart(ZyXMLElementReader & element) override
    {
        m_log.push_back("start " + element.name().toStdString());
        if (m_start) {
            m_start(*this, element);
        }
    }
    void onFinish() override
    {
        m_log.push_back("finish " + path().toString().toStdString());
        if (m_finish) {
            m_finish();
        }
    }

private:
    Log & m_log;
    Start m_start;
    std::function<void()> m_finish;
};

class ZyXMLLoaders : public testing::Test
{
protected:
    void add(char const * path, ZyXMLRule::Start start = {}, std::function<void()> finish = {})
    {
        loader->add(ZyUniquePtr<ZyXMLRule>(new LoggingRule(path, log, std::move(start), std::move(finish))));
    }
    Log loaded(std::string const & text)
    {
        log.clear();
        loadText(*loader, text);
        return log;
    }

    Log log;
    ZySharedPtr<ZyXMLLoader> loader = ZyXMLLoader::Create();
};

void readText(ZyXMLRule &, ZyXMLElementReader & element)
{
    static_cast<void>(element.readText());
}

void walkChildren(ZyXMLRule &, ZyXMLElementReader & element)
{
    ZyXMLElementReader::Children & children = element.children();
    for (auto child = children.begin(), end = children.end(); child != end; ++child) {
    }
}
} // namespace

TEST_F(ZyXMLLoaders, CallStartThenChildrenThenFinish)
{
    add("a");
    add("a/b");
    add("a/b/c");
    add("a/d");
    EXPECT_THAT(loaded("<a><b><c/><c/></b><d/><b/></a>"),
                ElementsAre("start a", "start b", "start c", "finish a/b/c", "start c", "finish a/b/c",
                            "finish a/b", "start d", "finish a/d", "start b", "finish a/b", "finish a"));
}

TEST_F(ZyXMLLoaders, TellARuleOnceThatItWasAdded)
{
    add("a");
    EXPECT_THAT(log, ElementsAre("added a"));
    loaded("<a/>");
    EXPECT_THAT(log, ElementsAre("start a", "finish a"));
}

TEST_F(ZyXMLLoaders, RefuseAnEmptyPointer)
{
    EXPECT_ZY_THROW(loader->add(ZyUniquePtr<ZyXMLRule>()), ZyNullPointerException,
                    "ZyUniquePtr dereferencing nullptr");
}

TEST_F(ZyXMLLoaders, RefuseASecondRuleForAPath)
{
    add("a/b");
    EXPECT_ZY_THROW(add("a/b"), ZyXMLDuplicateRuleException, "Duplicate rule for XML path: a/b");
    EXPECT_ZY_THROW(loader->add<int>("a/b", {}), ZyXMLDuplicateRuleException,
                    "Duplicate rule for XML path: a/b");
    EXPECT_THAT(loaded("<a><b/></a>"), ElementsAre("start b", "finish a/b"));
}

TEST_F(ZyXMLLoaders, KnowPathsByCase)
{
    add("a/B");
    add("a/b");
    EXPECT_THAT(loaded("<a><B/></a>"), ElementsAre("start B", "finish a/B"));
    EXPECT_THAT(loaded("<a><b/></a>"), ElementsAre("start b", "finish a/b"));
    EXPECT_THAT(loaded("<A><b/></A>"), IsEmpty());
}

TEST_F(ZyXMLLoaders, TakePathsFromTheRoot)
{
    add("b");
    EXPECT_THAT(loaded("<a><b/></a>"), IsEmpty());
    EXPECT_THAT(loaded("<b/>"), ElementsAre("start b", "finish b"));
}

TEST_F(ZyXMLLoaders, TakeTheElementThatTheReaderStandsOnAsTheRoot)
{
    add("b");
    add("b/c");
    add("a/b/c");
    ZyStringDevice device("<a><x/><b><c/></b><b/></a>");
    ZyXMLStreamReader reader(device);
    ASSERT_TRUE(reader.scan("b"));
    log.clear();
    loader->load(reader);
    EXPECT_THAT(log, ElementsAre("start b", "start c", "finish b/c", "finish b"));
    EXPECT_EQ(reader.tokenType(), ZyXMLStreamReader::EndElement);
    EXPECT_EQ(reader.currentElement()->name().toStdString(), "a");
    log.clear();
    loader->load(reader); // goes to the next element, the second b
    EXPECT_THAT(log, ElementsAre("start b", "finish b"));
}

TEST_F(ZyXMLLoaders, FireBelowARootWithoutARule)
{
    add("a/b/c");
    EXPECT_THAT(loaded("<a>t<x><c/></x><b><c/>u<y/></b></a>"), ElementsAre("start c", "finish a/b/c"));
}

TEST_F(ZyXMLLoaders, FindNothingByOddPaths)
{
    for (char const * path : {"", "/", "/a", "a/", "a//b", " a", "*"}) {
        add(path);
    }
    EXPECT_THAT(loaded("<a><b/></a>"), IsEmpty());
    EXPECT_ZY_THROW(add("a/"), ZyXMLDuplicateRuleException, "Duplicate rule for XML path: a/");
    EXPECT_ZY_THROW(add(""), ZyXMLDuplicateRuleException, "Duplicate rule for XML path: ");
}

TEST_F(ZyXMLLoaders, SeeLocalNamesOnly)
{
    add("a/b");
    EXPECT_THAT(loaded("<p:a xmlns:p='u'><b/><p:b/><q:b xmlns:q='v'/></p:a>"),
                ElementsAre("start b", "finish a/b", "start b", "finish a/b", "start b", "finish a/b"));
}

TEST_F(ZyXMLLoaders, FindNamesBeyondAscii)
{
    add("\xC3\xA4/\xE6\x97\xA5\xE6\x9C\xAC");
    EXPECT_THAT(loaded("<\xC3\xA4><\xE6\x97\xA5\xE6\x9C\xAC/></\xC3\xA4>"),
                ElementsAre("start \xE6\x97\xA5\xE6\x9C\xAC", "finish \xC3\xA4/\xE6\x97\xA5\xE6\x9C\xAC"));
}

TEST_F(ZyXMLLoaders, FinishAnElementThatItsRuleReadThrough)
{
    add("r/a", readText);
    EXPECT_THAT(loaded("<r><a></a><a/><a>t</a><a><x/></a></r>"),
                ElementsAre("start a", "finish r/a", "start a", "finish r/a", "start a", "finish r/a",
                            "start a", "finish r/a"));
}

TEST_F(ZyXMLLoaders, FinishTheRootThatItsRuleReadThrough)
{
    add("a", readText);
    EXPECT_THAT(loaded("<a></a>"), ElementsAre("start a", "finish a"));
}

TEST_F(ZyXMLLoaders, FinishAnElementWhoseChildrenItsRuleWalked)
{
    add("r/a", walkChildren);
    add("r/a/b");
    EXPECT_THAT(loaded("<r><a><b/><b/></a><a/></r>"),
                ElementsAre("start a", "finish r/a", "start a", "finish r/a"));
}

TEST_F(ZyXMLLoaders, FinishAnElementWhoseChildrenItsRuleBeganToWalk)
{
    add("r/a", [](ZyXMLRule &, ZyXMLElementReader & element) { element.children().begin(); });
    add("r/a/b");
    add("r/c");
    EXPECT_THAT(loaded("<r><a><b/><b/></a><c/></r>"),
                ElementsAre("start a", "finish r/a", "start c", "finish r/c"));
}

TEST_F(ZyXMLLoaders, LetAnElementGoWhoseChildrenWereAskedForBeforeItClosed)
{
    add("r/a", [](ZyXMLRule &, ZyXMLElementReader & element) {
        element.children();
        static_cast<void>(element.readText());
    });
    EXPECT_ZY_THROW(loaded("<r><a></a></r>"), ZyInvalidXMLOperation, "NextChild on closed element called");
}

TEST_F(ZyXMLLoaders, GoOnBehindChildrenThatWereAskedForOnly)
{
    add("r/a", [](ZyXMLRule &, ZyXMLElementReader & element) { element.children(); });
    add("r/a/b");
    EXPECT_THAT(loaded("<r><a><x/><b/></a><a/></r>"),
                ElementsAre("start a", "start b", "finish r/a/b", "finish r/a", "start a", "finish r/a"));
}

TEST_F(ZyXMLLoaders, WalkTheChildrenOfAnElementAlone)
{
    ZyXMLElementReader * outer = nullptr;
    add("r/a", [&](ZyXMLRule &, ZyXMLElementReader & element) { outer = &element; });
    add("r/a/b", [&](ZyXMLRule &, ZyXMLElementReader &) {
        EXPECT_ZY_THROW(outer->children().begin(), ZyInvalidUseException,
                        "Begin called multiple times on a single use iterator");
    });
    EXPECT_THAT(loaded("<r><a><b/></a></r>"),
                ElementsAre("start a", "start b", "finish r/a/b", "finish r/a"));
}

TEST_F(ZyXMLLoaders, GoOnBehindAChildThatWasLeftHalfRead)
{
    ZyStringDevice device("<r><a><x><y/></x><b/></a><c/></r>");
    ZyXMLStreamReader reader(device);
    add("r/a", [&](ZyXMLRule &, ZyXMLElementReader &) { reader.nextElement(); }); // into x
    add("r/a/b");
    add("r/c");
    log.clear();
    loader->load(reader);
    EXPECT_THAT(log,
                ElementsAre("start a", "start b", "finish r/a/b", "finish r/a", "start c", "finish r/c"));
}

TEST_F(ZyXMLLoaders, LetAnElementGoThatWasClosedByAChild)
{
    ZyStringDevice device("<r><a><b/></a><c/></r>");
    ZyXMLStreamReader reader(device);
    add("r/a");
    add("r/a/b", [&](ZyXMLRule &, ZyXMLElementReader &) {
        while (reader.next() != ZyXMLStreamReader::StartElement) {
        }
    });
    EXPECT_ZY_THROW(loader->load(reader), ZyInvalidXMLOperation, "NextChild on closed element called");
}

TEST_F(ZyXMLLoaders, WalkChildrenAfterText)
{
    add("a", readText);
    add("a/b");
    EXPECT_THAT(loaded("<a>t<b/></a>"), ElementsAre("start a", "start b", "finish a/b", "finish a"));
}

TEST_F(ZyXMLLoaders, Deliberate_two_exceptions_end_the_children_a_misuse)
{
    add("r");
    add("r/a");
    add("r/a/x/b", [](ZyXMLRule &, ZyXMLElementReader &) { throw ZyInvalidUseException("mine"); });
    add("r/a/c");
    add("r/d");
    EXPECT_THAT(
        loaded("<r><a><x><b/></x><c/></a><d/></r>"),
        ElementsAre("start r", "start a", "start b", "finish r/a", "start d", "finish r/d", "finish r"));
}

TEST_F(ZyXMLLoaders, Deliberate_two_exceptions_end_the_children_a_null_element)
{
    add("r/a");
    add("r/a/b", {}, [] { throw ZyNullXMLStreamElementException(); });
    add("r/a/c");
    add("r/d");
    EXPECT_THAT(loaded("<r><a><b/><c/></a><d/></r>"),
                ElementsAre("start a", "start b", "finish r/a/b", "finish r/a", "start d", "finish r/d"));
}

TEST_F(ZyXMLLoaders, LetAMisuseGoThatNoRuleIsAbove)
{
    add("r/a", [](ZyXMLRule &, ZyXMLElementReader &) { throw ZyInvalidUseException("mine"); });
    EXPECT_ZY_THROW(loaded("<r><a/></r>"), ZyInvalidUseException, "mine");
    EXPECT_THAT(log, ElementsAre("start a"));
}

TEST_F(ZyXMLLoaders, LetOtherExceptionsGo)
{
    add("r");
    add("r/a", [](ZyXMLRule &, ZyXMLElementReader & element) { element.readAttribute("missing"); });
    ZyStringDevice device("<r><a x='1'/><b/></r>");
    ZyXMLStreamReader reader(device);
    log.clear();
    EXPECT_ZY_THROW(loader->load(reader), ZyUnknownXMLAttributeException, "Unknown attribute: missing");
    EXPECT_THAT(log, ElementsAre("start r", "start a"));
    EXPECT_EQ(reader.currentElement()->name().toStdString(), "a"); // the stream stays where it was
    EXPECT_THAT(loaded("<r/>"), ElementsAre("start r", "finish r"));
}

TEST_F(ZyXMLLoaders, LetAnUnknownElementGo)
{
    add("r");
    add("r/a", [](ZyXMLRule &, ZyXMLElementReader &) { throw ZyUnknownXMLElementException("e"); });
    EXPECT_ZY_THROW(loaded("<r><a/></r>"), ZyUnknownXMLElementException, "Unknown element: e");
    EXPECT_THAT(log, ElementsAre("start r", "start a"));
}

TEST_F(ZyXMLLoaders, LetExceptionsOfOthersGo)
{
    add("r", {}, [] { throw std::string("not ours"); });
    EXPECT_THROW(loaded("<r/>"), std::string);
}

TEST_F(ZyXMLLoaders, FailWithoutAnElement)
{
    ZyStringDevice device("<a/>");
    ZyXMLStreamReader reader(device);
    loader->load(reader);
    EXPECT_ZY_THROW(loader->load(reader), ZyXMLException, "Reader failed to load content");
}

TEST_F(ZyXMLLoaders, FailOnAnEmptyDocument)
{
    EXPECT_ZY_THROW(loaded(""), ZyInvalidXMLException, "Invalid XML: Premature end of document.");
    EXPECT_ZY_THROW(loaded("no document"), ZyInvalidXMLException, "Invalid XML: Start tag expected.");
}

TEST_F(ZyXMLLoaders, NeverLookBehindTheRoot)
{
    add("a");
    EXPECT_THAT(loaded("<a/>junk"), ElementsAre("start a", "finish a"));
}

TEST_F(ZyXMLLoaders, EndEverythingAtAnErrorBetweenElements)
{
    add("a");
    add("a/b");
    ZyStringDevice device("<a><b>t</b><b><x></a>");
    ZyXMLStreamReader reader(device);
    log.clear();
    loader->load(reader);
    EXPECT_THAT(log, ElementsAre("start a", "start b", "finish a/b", "start b", "finish a/b", "finish a"));
    EXPECT_EQ(reader.tokenType(), ZyXMLStreamReader::Invalid);
    EXPECT_EQ(reader.errorString().toStdString(), "Opening and ending tag mismatch.");
}

TEST_F(ZyXMLLoaders, ThrowAtAnErrorWithinAText)
{
    add("a");
    add("a/b", readText);
    EXPECT_ZY_THROW(loaded("<a><b><x/>&undeclared;</b></a>"), ZyInvalidXMLException,
                    "Invalid XML: Entity 'undeclared' not declared.");
}

TEST_F(ZyXMLLoaders, EndQuietlyWhereverADocumentBreaksOff)
{
    add("a");
    std::string const text = "<a><b x='1'>t<c/>u</b><!-- d --><b/></a>";
    for (std::size_t size = 3; size < text.size(); ++size) {
        ZyStringDevice device{ZyString(text.substr(0, size))};
        ZyXMLStreamReader reader(device);
        log.clear();
        if (size < 4) {
            EXPECT_ZY_THROW(loader->load(reader), ZyInvalidXMLException,
                            "Invalid XML: Premature end of document.");
        } else {
            loader->load(reader);
            EXPECT_THAT(log, ElementsAre("start a", "finish a")) << size;
            EXPECT_EQ(reader.tokenType(), ZyXMLStreamReader::Invalid) << size;
        }
    }
}

TEST_F(ZyXMLLoaders, ServeSeveralDocuments)
{
    std::vector<int> values;
    loader->add<int>("r/v", [&](ZyUniquePtr<int> value) { values.push_back(*value); });
    loadText(*loader, "<r><v>1</v><v>2</v></r>");
    loadText(*loader, "<r><v/></r>");
    loadText(*loader, "<other/>");
    loadText(*loader, "<r><v>3</v></r>");
    EXPECT_THAT(values, ElementsAre(1, 2, 0, 3));
}

TEST_F(ZyXMLLoaders, UseRulesThatAreAddedUnderWay)
{
    add("r", [this](ZyXMLRule & rule, ZyXMLElementReader &) {
        rule.addChildRule("late", [this](ZyXMLRule &, ZyXMLElementReader & element) {
            log.push_back("late " + element.readText().toStdString());
        });
    });
    EXPECT_THAT(loaded("<r><late>1</late></r>"), ElementsAre("start r", "late 1", "finish r"));
    EXPECT_ZY_THROW(loaded("<r/>"), ZyXMLDuplicateRuleException, "Duplicate rule for XML path: r/late");
}

TEST_F(ZyXMLLoaders, UseRulesThatAreAddedFarBelowUnderWay)
{
    add("r/a", [this](ZyXMLRule &, ZyXMLElementReader &) { add("r/a/b/c"); });
    EXPECT_THAT(loaded("<r><a><b><c/></b></a></r>"),
                ElementsAre("start a", "added r/a/b/c", "start c", "finish r/a/b/c", "finish r/a"));
}

TEST_F(ZyXMLLoaders, StayAliveWhileTheyLoad)
{
    add("r", [this](ZyXMLRule &, ZyXMLElementReader &) { loader.reset(); });
    add("r/a");
    ZyXMLLoader & loading = *loader;
    log.clear();
    loadText(loading, "<r><a/></r>");
    EXPECT_THAT(log, ElementsAre("start r", "start a", "finish r/a", "finish r"));
}

TEST_F(ZyXMLLoaders, LoadOneDocumentWithinAnother)
{
    add("r/a", [this](ZyXMLRule &, ZyXMLElementReader &) { loadText(*loader, "<s/>"); });
    add("s");
    EXPECT_THAT(loaded("<r><a/></r>"), ElementsAre("start a", "start s", "finish s", "finish r/a"));
}

TEST_F(ZyXMLLoaders, KeepAParentWhoseChildClashes)
{
    ZySharedPtr<ZyXMLLambdaDefinition<int>> const definition(new ZyXMLLambdaDefinition<int>);
    definition->setup = [this](ZyXMLRule & rule) {
        rule.addChildRule("b", [this](ZyXMLRule &, ZyXMLElementReader &) { log.push_back("first b"); });
        rule.addChildRule<int>("b", {});
    };
    definition->start = [this](ZyXMLRule &, ZyXMLElementReader &) { log.push_back("a"); };
    EXPECT_ZY_THROW(loader->add(ZyUniquePtr<ZyXMLRule>(new ZyXMLLambdaRule<int>("a", definition))),
                    ZyXMLDuplicateRuleException, "Duplicate rule for XML path: a/b");
    EXPECT_THAT(loaded("<a><b/></a>"), ElementsAre("a", "first b"));
}

TEST_F(ZyXMLLoaders, DoNotGuardAgainstASecondLoader)
{
    LoggingRule * const rule = new LoggingRule("a", log);
    loader->add(ZyUniquePtr<ZyXMLRule>(rule));
    EXPECT_EQ(rule->loader().lock(), loader);
    ZySharedPtr<ZyXMLLoader> const second = ZyXMLLoader::Create();
    rule->setLoader(second);
    EXPECT_EQ(rule->loader().lock(), second);
    rule->addChildRule("b", [this](ZyXMLRule &, ZyXMLElementReader &) { log.push_back("b of second"); });
    EXPECT_THAT(loaded("<a><b/></a>"), ElementsAre("start a", "finish a"));
    log.clear();
    loadText(*second, "<a><b/></a>");
    EXPECT_THAT(log, ElementsAre("b of second"));
}

TEST_F(ZyXMLLoaders, LetGoOfAllRulesAtTheEnd)
{
    ZySharedPtr<int> const token(new int(0));
    loader->add<int>("a", [token](ZyUniquePtr<int>) {});
    loader->add<ZyString>("b", [token](ZyUniquePtr<ZyString>) {});
    EXPECT_EQ(loader.use_count(), 1);
    EXPECT_EQ(token.use_count(), 3);
    loader.reset();
    EXPECT_EQ(token.use_count(), 1);
}

TEST(ZyXMLLambdaRule, GivesAnEmptyPointerWithoutAFinish)
{
    bool received = false;
    ZySharedPtr<ZyXMLLoader> const loader = ZyXMLLoader::Create();
    ZySharedPtr<ZyXMLLambdaDefinition<int>> const definition(new ZyXMLLambdaDefinition<int>);
    loader->add(ZyUniquePtr<ZyXMLRule>(new ZyXMLLambdaRule<int>("a", definition, [&](ZyUniquePtr<int> value) {
        received = true;
        EXPECT_FALSE(value);
        EXPECT_ZY_THROW(*value, ZyNullPointerException, "ZyUniquePtr dereferencing nullptr");
    })));
    loadText(*loader, "<a/>");
    EXPECT_TRUE(received);
}

TEST(ZyXMLLambdaRule, FinishesAndDropsTheValueWithoutAReceiver)
{
    ZySharedPtr<int> const token(new int(0));
    int finished = 0;
    ZySharedPtr<ZyXMLLoader> const loader = ZyXMLLoader::Create();
    ZySharedPtr<ZyXMLLambdaDefinition<ZySharedPtr<int>>> const definition(
        new ZyXMLLambdaDefinition<ZySharedPtr<int>>);
    definition->finish = [&](ZyXMLRule &) {
        ++finished;
        return ZyUniquePtr<ZySharedPtr<int>>(new ZySharedPtr<int>(token));
    };
    loader->add(ZyUniquePtr<ZyXMLRule>(new ZyXMLLambdaRule<ZySharedPtr<int>>("a", definition)));
    loadText(*loader, "<a/>");
    EXPECT_EQ(finished, 1);
    EXPECT_EQ(token.use_count(), 1);
}

TEST(ZyXMLLambdaRule, ReceivesNothingBeforeTheElementHasEnded)
{
    Log log;
    ZySharedPtr<ZyXMLLoader> const loader = ZyXMLLoader::Create();
    loader->add<int>("r/v",
                     [&](ZyUniquePtr<int> value) { log.push_back("value " + std::to_string(*value)); });
    loader->add(ZyUniquePtr<ZyXMLRule>(new LoggingRule("r", log)));
    log.clear();
    loadText(*loader, "<r><v>7</v></r>");
    EXPECT_THAT(log, ElementsAre("start r", "value 7", "finish r"));
}

TEST(ZyXMLLambdaRule, NeedsADefinition)
{
    ZySharedPtr<ZyXMLLoader> const loader = ZyXMLLoader::Create();
    EXPECT_ZY_THROW(loader->add(ZyUniquePtr<ZyXMLRule>(new ZyXMLLambdaRule<int>("a", {}))),
                    ZyNullPointerException, "");
}
