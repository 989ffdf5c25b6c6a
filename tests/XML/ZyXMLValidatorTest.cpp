// SPDX-License-Identifier: BSD-3-Clause
// Validation: its answers and failures, that it calls nobody, and the readers that validate first.
#include <ZyXMLValidator.h>

#include "Listener.h"
#include "Restricted.h"
#include "ScratchDirectory.h"
#include "ThrowsMessage.h"

#include <ZyFileException.h>
#include <ZyFilePath.h>
#include <ZyString.h>
#include <ZyXMLDomDocument.h>
#include <ZyXMLStreamElementReader.h>
#include <ZyXMLStreamReader.h>

#include <gtest/gtest.h>

#include <filesystem>
#include <string>
#include <thread>
#include <type_traits>
#include <vector>

namespace
{
static_assert(sizeof(ZyXMLValidator) == 2 * sizeof(void *), "virtual table pointer and state");
static_assert(std::is_base_of_v<ZyPrivateObject, ZyXMLValidator>);
static_assert(std::is_copy_constructible_v<ZyXMLValidator> && std::is_copy_assignable_v<ZyXMLValidator>);

std::string schemaOf(std::string const & content)
{
    return "<?xml version='1.0' encoding='UTF-8'?><xs:schema xmlns:xs='http://www.w3.org/2001/XMLSchema'>" +
           content + "</xs:schema>";
}

/** A list of limits, each with a name and a number. */
std::string const limits =
    schemaOf("<xs:element name='Limits'><xs:complexType><xs:sequence><xs:element name='Limit' minOccurs='0' "
             "maxOccurs='unbounded'><xs:complexType><xs:sequence><xs:element name='Name' type='xs:string'/>"
             "<xs:element name='Value' type='xs:double'/></xs:sequence></xs:complexType></xs:element>"
             "</xs:sequence></xs:complexType></xs:element>");

std::string const good = "<Limits><Limit><Name>\xc3\x84nderung</Name><Value>5.5</Value></Limit></Limits>";
std::string const bad = "<Limits><Limit><Name>b</Name></Limit></Limits>";

std::string times(int count, std::string const & text)
{
    std::string result;
    for (int i = 0; i < count; ++i) {
        result += text;
    }
    return result;
}

class ZyXMLValidators : public testing::Test
{
protected:
    bool isValid(std::string const & document, std::string const & schema, bool throwOnFailure = true)
    {
        directory.write("a.xml", document);
        directory.write("a.xsd", schema);
        return ZyXMLValidator(xml).isValid(xsd, throwOnFailure);
    }

    std::string invalid() const
    {
        return "Invalid XML: " + xml.toStdString() + ", for schema: " + xsd.toStdString();
    }

    ScratchDirectory directory;
    ZyString xml = directory / "a.xml";
    ZyString xsd = directory / "a.xsd";
};
} // namespace

TEST_F(ZyXMLValidators, AcceptAValidFile)
{
    EXPECT_TRUE(isValid(good, limits, true));
    EXPECT_TRUE(isValid(good, limits, false));
    EXPECT_TRUE(isValid("<Limits/>", limits));
}

TEST_F(ZyXMLValidators, RefuseAnInvalidFileWithBothPaths)
{
    EXPECT_FALSE(isValid(bad, limits, false));
    EXPECT_ZY_THROW(isValid(bad, limits, true), ZyInvalidXMLException, invalid());
}

TEST_F(ZyXMLValidators, RefuseAFileThatIsNoXml)
{
    for (std::string const document : {"", "hello", "<Limits>", "<Limits/><Limits/>", "<Limits></limits>"}) {
        EXPECT_FALSE(isValid(document, limits, false)) << document;
        EXPECT_ZY_THROW(isValid(document, limits, true), ZyInvalidXMLException, invalid());
    }
}

TEST_F(ZyXMLValidators, ReportASchemaThatIsNone)
{
    EXPECT_FALSE(isValid(good, "<hello/>", false));
    EXPECT_ZY_THROW(isValid(good, "<hello/>", true), ZyInvalidXMLSchemaException,
                    "Invalid XML schema: [" + xsd.toStdString() +
                        "] <html xmlns='http://www.w3.org/1999/xhtml/'><body><p>Document is not a XML "
                        "schema.</p></body></html>");
}

TEST_F(ZyXMLValidators, ReportASchemaThatIsMalformed)
{
    for (std::string const & schema :
         {std::string(), std::string("hello"), limits.substr(0, limits.size() / 2), limits + "<",
          schemaOf("<xs:element name='a' type='xs:nothing'/>"), schemaOf("<xs:element/>")}) {
        EXPECT_FALSE(isValid(good, schema, false)) << schema;
        try {
            isValid(good, schema, true);
            ADD_FAILURE() << "taken for a schema: " << schema;
        } catch (ZyInvalidXMLSchemaException const & failure) {
            std::string const words = "Invalid XML schema: [" + xsd.toStdString() + "] ";
            EXPECT_EQ(failure.message().toStdString().substr(0, words.size()), words);
            EXPECT_GT(failure.message().toStdString().size(), words.size()) << schema;
        }
    }
}

TEST_F(ZyXMLValidators, ReportAMissingSchemaBeforeAMissingFile)
{
    EXPECT_FALSE(ZyXMLValidator(xml).isValid(xsd, false));
    EXPECT_ZY_THROW(ZyXMLValidator(xml).isValid(xsd, true), ZyFileNotFoundException,
                    "File not found: " + xsd.toStdString());
    directory.write("a.xsd", limits);
    EXPECT_FALSE(ZyXMLValidator(xml).isValid(xsd, false));
    EXPECT_ZY_THROW(ZyXMLValidator(xml).isValid(xsd, true), ZyFileNotFoundException,
                    "File not found: " + xml.toStdString());
    ZyString const folder = directory.path().string();
    EXPECT_ZY_THROW(ZyXMLValidator(xml).isValid(folder, true), ZyFileNotFoundException,
                    "File not found: " + folder.toStdString());
    EXPECT_ZY_THROW(ZyXMLValidator(folder).isValid(xsd, true), ZyFileNotFoundException,
                    "File not found: " + folder.toStdString());
    EXPECT_ZY_THROW(ZyXMLValidator("").isValid("", true), ZyFileNotFoundException, "File not found: ");
}

TEST_F(ZyXMLValidators, MayBeUsedAgainAndCopied)
{
    EXPECT_TRUE(isValid(good, limits));
    ZyXMLValidator const validator(xml);
    ZyXMLValidator copy(validator);
    copy = validator;
    EXPECT_TRUE(copy.isValid(xsd, true));
    directory.write("a.xml", bad);
    EXPECT_FALSE(validator.isValid(xsd, false));
    EXPECT_FALSE(copy.isValid(xsd, false));
    directory.write("a.xml", good);
    EXPECT_TRUE(copy.isValid(xsd, true));
}

// The last message wins, so what it says need not be the reason: nobody gets to see it.
TEST_F(ZyXMLValidators, Deliberate_reason_of_invalidity_is_lost)
{
    try {
        isValid(bad, limits, true);
        FAIL() << "valid";
    } catch (ZyException const & failure) {
        EXPECT_EQ(failure.message().toStdString(), invalid());
    }
}

TEST_F(ZyXMLValidators, RefuseASchemaThatIncludesByARelativePath)
{
    directory.write("types.xsd",
                    schemaOf("<xs:simpleType name='t'><xs:restriction base='xs:int'/></xs:simpleType>"));
    std::string const schema =
        schemaOf("<xs:include schemaLocation='types.xsd'/><xs:element name='a' type='t'/>");
    EXPECT_FALSE(isValid("<a>1</a>", schema, false));
    EXPECT_THROW(isValid("<a>1</a>", schema, true), ZyInvalidXMLSchemaException);
}

TEST_F(ZyXMLValidators, TakePathsWithBackslashesAndOtherLetters)
{
    std::filesystem::create_directory(directory / "\xc3\xa4 b");
    directory.write("\xc3\xa4 b/\xe2\x82\xac.xml", good);
    directory.write("\xc3\xa4 b/s.xsd", limits);
    std::string const folder = directory.path().string() + "\\\xc3\xa4 b\\";
    EXPECT_TRUE(ZyXMLValidator(folder + "\xe2\x82\xac.xml").isValid(folder + "s.xsd", true));
    directory.write("\xc3\xa4 b/\xe2\x82\xac.xml", bad);
    EXPECT_ZY_THROW(ZyXMLValidator(folder + "\xe2\x82\xac.xml").isValid(folder + "s.xsd", true),
                    ZyInvalidXMLException,
                    "Invalid XML: " + folder + "\xe2\x82\xac.xml, for schema: " + folder + "s.xsd");
}

TEST_F(ZyXMLValidators, CallNobody)
{
    Listener const listener;
    listener.call();
    ASSERT_TRUE(listener.wasCalled()) << "a call would not be noticed";
    std::string const url = listener.url("s.xsd");
    std::string const instance = " xmlns:xsi='http://www.w3.org/2001/XMLSchema-instance' ";

    EXPECT_TRUE(isValid("<Limits" + instance + "xsi:noNamespaceSchemaLocation='" + url + "'/>", limits));
    EXPECT_TRUE(isValid("<Limits" + instance + "xsi:schemaLocation='urn:x " + url + "'/>", limits));
    EXPECT_TRUE(isValid("<!DOCTYPE Limits SYSTEM '" + url + "'><Limits/>", limits));
    EXPECT_TRUE(isValid("<!DOCTYPE Limits [<!ENTITY e SYSTEM '" + url + "'>]><Limits/>", limits));
    isValid("<!DOCTYPE Limits [<!ENTITY % e SYSTEM '" + url + "'> %e;]><Limits/>", limits, false);
    isValid("<!DOCTYPE Limits [<!ENTITY e SYSTEM '" + url +
                "'>]><Limits><Limit><Name>&e;</Name><Value>1</Value></Limit></Limits>",
            limits, false);
    isValid("<a/>", schemaOf("<xs:include schemaLocation='" + url + "'/><xs:element name='a'/>"), false);
    isValid("<a/>",
            schemaOf("<xs:import namespace='urn:x' schemaLocation='" + url + "'/><xs:element name='a'/>"),
            false);
    isValid("<a/>", schemaOf("<xs:redefine schemaLocation='" + url + "'/><xs:element name='a'/>"), false);
    isValid("<a/>", "<!DOCTYPE xs:schema SYSTEM '" + url + "'>" + limits.substr(limits.find("<xs:")), false);
    EXPECT_FALSE(listener.wasCalled());
}

TEST_F(ZyXMLValidators, SeeAnUnreachableHintAsNone)
{
    std::string const instance = "<Limits xmlns:xsi='http://www.w3.org/2001/XMLSchema-instance' "
                                 "xsi:noNamespaceSchemaLocation='";
    for (std::string const url : {"http://host.invalid/s.xsd", "https://host.invalid/s.xsd",
                                  "//host.invalid/s.xsd", "file://host.invalid/s.xsd"}) {
        EXPECT_TRUE(isValid(instance + url + "'/>", limits)) << url;
        EXPECT_FALSE(isValid(instance + url + "'><x/></Limits>", limits, false)) << url;
    }
}

// Qt would wait for these without end.
TEST_F(ZyXMLValidators, RefuseOtherAddresses)
{
    std::string const instance = "<Limits xmlns:xsi='http://www.w3.org/2001/XMLSchema-instance' xsi:";
    for (std::string const url : {"ftp://host.invalid/s.xsd", "unknown:s.xsd", "data:,x"}) {
        EXPECT_ZY_THROW(isValid(instance + "noNamespaceSchemaLocation='" + url + "'/>", limits),
                        ZyInvalidXMLException, invalid());
        EXPECT_ZY_THROW(isValid(instance + "schemaLocation='urn:x " + url + "'/>", limits),
                        ZyInvalidXMLException, invalid());
        EXPECT_THROW(
            isValid("<a/>", schemaOf("<xs:include schemaLocation='" + url + "'/><xs:element name='a'/>")),
            ZyInvalidXMLSchemaException);
    }
}

TEST_F(ZyXMLValidators, RefuseWhatIsNestedBeyondTheirStack)
{
    std::string const schema = schemaOf(
        "<xs:element name='a' type='t'/><xs:complexType name='t'><xs:sequence><xs:element name='a' type='t' "
        "minOccurs='0'/></xs:sequence></xs:complexType>");
    EXPECT_TRUE(isValid(times(512, "<a>") + times(512, "</a>"), schema));
    EXPECT_ZY_THROW(isValid(times(513, "<a>") + times(513, "</a>"), schema), ZyInvalidXMLException,
                    invalid());
    EXPECT_ZY_THROW(isValid(times(100000, "<a>") + times(100000, "</a>"), schema), ZyInvalidXMLException,
                    invalid());
    EXPECT_FALSE(isValid("<a/>",
                         schemaOf(times(100000, "<xs:element name='a'><xs:complexType><xs:sequence>") +
                                  times(100000, "</xs:sequence></xs:complexType></xs:element>")),
                         false));
}

TEST_F(ZyXMLValidators, RefuseWhatExpandsBeyondBounds)
{
    std::string const begin = "<!DOCTYPE a [<!ENTITY e '" + std::string(4000, 'x') + "'>]><a>";
    std::string const schema = schemaOf("<xs:element name='a' type='xs:string'/>");
    EXPECT_TRUE(isValid(begin + times(10, "&e;") + "</a>", schema));
    EXPECT_FALSE(isValid(begin + times(20000, "&e;") + "</a>", schema, false));
}

TEST_F(ZyXMLValidators, RunInSeveralThreads)
{
    directory.write("good.xml", good);
    directory.write("bad.xml", bad);
    directory.write("a.xsd", limits);
    std::vector<int> right(4);
    std::vector<std::thread> threads;
    for (int & count : right) {
        threads.emplace_back([&] {
            for (int i = 0; i < 10; ++i) {
                count += ZyXMLValidator(directory / "good.xml").isValid(xsd, false) ? 1 : 0;
                count += ZyXMLValidator(directory / "bad.xml").isValid(xsd, false) ? 0 : 1;
            }
        });
    }
    for (std::thread & thread : threads) {
        thread.join();
    }
    EXPECT_EQ(right, std::vector<int>(4, 20));
}

TEST(ZyXMLValidator, IsNotContentWithoutAThread)
{
    EXPECT_EXIT(
        {
            Restricted::denyThreads();
            Restricted::exitWith([] {
                try {
                    ZyXMLValidator("x.xml").isValid("x.xsd", true);
                } catch (ZyXMLException const & failure) {
                    return failure.message().toStdString() == "Cannot start a thread for the validation" &&
                           !ZyXMLValidator("x.xml").isValid("x.xsd", false);
                }
                return false;
            });
        },
        testing::ExitedWithCode(0), "");
}

TEST_F(ZyXMLValidators, LetAStreamReaderReadAValidFile)
{
    directory.write("a.xml", good);
    directory.write("a.xsd", limits);
    ZyXMLStreamReader reader{ZyFilePath(xml), ZyFilePath(xsd)};
    EXPECT_EQ(reader.nextElement()->name().toStdString(), "Limits");
    EXPECT_EQ(reader.scan("Name")->readText().toStdString(), "\xc3\x84nderung");
}

TEST_F(ZyXMLValidators, KeepAStreamReaderFromAnInvalidFile)
{
    directory.write("a.xml", bad);
    directory.write("a.xsd", limits);
    ZyFilePath const file(xml);
    ZyFilePath const schema(xsd);
    EXPECT_ZY_THROW(ZyXMLStreamReader(file, schema), ZyInvalidXMLException,
                    "Invalid XML: " + file.path().toStdString() +
                        ", for schema: " + schema.path().toStdString());
    directory.write("a.xsd", "<hello/>");
    EXPECT_THROW(ZyXMLStreamReader(file, schema), ZyInvalidXMLSchemaException);
    EXPECT_ZY_THROW(ZyXMLStreamReader(file, ZyFilePath(directory / "none.xsd")), ZyFileNotFoundException,
                    "File not found: " + ZyFilePath(directory / "none.xsd").path().toStdString());
}
