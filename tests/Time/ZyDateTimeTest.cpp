// SPDX-License-Identifier: BSD-3-Clause
// Tests of moments of the calendar: their fields in every zone, their text and both XML forms.
#include <ZyDateTime.h>

#include "Environment.h"
#include "ThrowsMessage.h"
#include "VirtualSlot.h"
#include "XmlLoad.h"

#include <ZyException.h>
#include <ZyPrint.h>
#include <ZyXMLDomDocument.h>
#include <ZyXMLDomElement.h>
#include <ZyXMLDomElementReader.h>
#include <ZyXMLDomElementWriter.h>
#include <ZyXMLStreamElementReader.h>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <chrono>
#include <cstdint>
#include <cstdlib>
#include <ctime>
#include <limits>
#include <sstream>
#include <string>
#include <thread>
#include <type_traits>
#include <vector>

static_assert(std::is_base_of_v<ZyXMLSerializableObject, ZyDateTime> &&
              sizeof(ZyDateTime) == 2 * sizeof(void *));
static_assert(std::is_copy_constructible_v<ZyDateTime> && std::is_copy_assignable_v<ZyDateTime>);
static_assert(ZyDateTime::Local == 0 && ZyDateTime::UTC == 1);
static_assert(ZyDateTime::January == 0 && ZyDateTime::February == 1 && ZyDateTime::March == 2 &&
              ZyDateTime::April == 3 && ZyDateTime::May == 4 && ZyDateTime::June == 5 &&
              ZyDateTime::July == 6 && ZyDateTime::August == 7 && ZyDateTime::September == 8 &&
              ZyDateTime::October == 9 && ZyDateTime::November == 10 && ZyDateTime::December == 11);
static_assert(sizeof(ZyDateTime::Representation) == sizeof(int) && sizeof(ZyDateTime::Month) == sizeof(int));

namespace
{
using Seconds = std::chrono::time_point<std::chrono::system_clock, std::chrono::seconds>;

// Written out, so that no data of the machine is needed.
constexpr char const * london = "GMT0BST,M3.5.0/1,M10.5.0";
constexpr char const * newYork = "EST5EDT,M3.2.0,M11.1.0";
constexpr char const * kolkata = "IST-5:30";

/** Puts the process into a time zone, and back into its own. */
class Zone
{
public:
    explicit Zone(char const * zone)
    {
        if (char const * const before = std::getenv("TZ")) {
            m_before = before;
            m_wasSet = true;
        }
        set(zone);
    }
    ~Zone() { set(m_wasSet ? m_before.c_str() : nullptr); }
    Zone(Zone const &) = delete;
    Zone & operator=(Zone const &) = delete;

private:
    static void set(char const * zone)
    {
        Environment::set("TZ", zone);
        ::tzset();
    }

    std::string m_before;
    bool m_wasSet = false;
};

ZyDateTime utc(int day, int month, int year, int hours = 0, int minutes = 0, int seconds = 0)
{
    return ZyDateTime(day, static_cast<ZyDateTime::Month>(month), year, hours, minutes, seconds,
                      ZyDateTime::UTC);
}

ZyDateTime local(int day, int month, int year, int hours = 0, int minutes = 0, int seconds = 0)
{
    return ZyDateTime(day, static_cast<ZyDateTime::Month>(month), year, hours, minutes, seconds,
                      ZyDateTime::Local);
}

ZyDateTime at(std::int64_t seconds, ZyDateTime::Representation view = ZyDateTime::UTC)
{
    ZyDateTime moment{Seconds(std::chrono::seconds(seconds))};
    moment.setRepresentation(view);
    return moment;
}

std::string text(ZyDateTime const & moment)
{
    return moment.toString().toStdString();
}

/** What XMLLoader makes of an element. */
ZyUniquePtr<ZyDateTime> loaded(std::string const & element)
{
    ZyStringDevice device{ZyString(element)};
    ZyXMLStreamReader reader(device);
    return ZyDateTime::XMLLoader(*reader.nextElement());
}

ZyUniquePtr<ZyDateTime> loadedTime(std::string const & time)
{
    return loaded("<DateTime time=\"" + time + "\" rep=\"utc\"/>");
}

std::string writtenElement(ZyDateTime const & moment)
{
    ZyStringDevice device;
    ZyXMLStreamWriter writer(device);
    moment.writeXML(writer);
    writer.finishDocument();
    return device.content().toStdString();
}

/** What the binding makes of a text. */
ZyDateTime bound(std::string const & time, char const * rep = "utc")
{
    return loadValues<ZyDateTime>(std::string("<v rep=\"") + rep + "\">" + time + "</v>").at(0);
}
} // namespace

TEST(ZyDateTime, DefaultIsTheEpochInLocalTime)
{
    ZyDateTime moment;
    EXPECT_EQ(moment.representation(), ZyDateTime::Local);
    EXPECT_EQ(moment.compare(at(0)), 0);
    moment.setRepresentation(ZyDateTime::UTC);
    EXPECT_EQ(moment.year(), 1970);
    EXPECT_EQ(text(moment), "1970-01-01T00:00:00Z");
}

TEST(ZyDateTime, YearOfTheDefaultDependsOnTheZone)
{
    {
        Zone const zone(newYork);
        EXPECT_EQ(ZyDateTime().year(), 1969);
    }
    Zone const zone(kolkata);
    EXPECT_EQ(ZyDateTime().year(), 1970);
    EXPECT_EQ(ZyDateTime().hours(), 5);
    EXPECT_EQ(ZyDateTime().minutes(), 30);
}

TEST(ZyDateTime, HasFields)
{
    ZyDateTime const moment = utc(4, ZyDateTime::March, 2021, 5, 6, 7);
    EXPECT_EQ(moment.day(), 4);
    EXPECT_EQ(moment.month(), ZyDateTime::March);
    EXPECT_EQ(moment.year(), 2021);
    EXPECT_EQ(moment.hours(), 5);
    EXPECT_EQ(moment.minutes(), 6);
    EXPECT_EQ(moment.seconds(), 7);
    EXPECT_EQ(moment.representation(), ZyDateTime::UTC);
    EXPECT_EQ(moment.compare(at(1614834367)), 0);
}

TEST(ZyDateTime, ADayBeginsAtMidnight)
{
    EXPECT_EQ(text(ZyDateTime(4, ZyDateTime::March, 2021, ZyDateTime::UTC)), "2021-03-04T00:00:00Z");
}

TEST(ZyDateTime, CarriesWhatIsOutOfRange)
{
    ZyDateTime const moment(30, ZyDateTime::Month(1), 2021, ZyDateTime::UTC);
    EXPECT_EQ(moment.day(), 2);
    EXPECT_EQ(moment.month(), 2);
    EXPECT_EQ(moment.year(), 2021);
    EXPECT_EQ(text(utc(0, 0, 2021)), "2020-12-31T00:00:00Z");
    EXPECT_EQ(text(utc(1, 12, 2021)), "2022-01-01T00:00:00Z");
    EXPECT_EQ(text(utc(1, -1, 2021)), "2020-12-01T00:00:00Z");
    EXPECT_EQ(text(utc(1, 0, 2021, 24, 60, 60)), "2021-01-02T01:01:00Z");
    EXPECT_EQ(text(utc(1, 0, 2021, 0, 0, -1)), "2020-12-31T23:59:59Z");
    Zone const zone(london);
    EXPECT_EQ(text(local(30, 1, 2021)), "2021-03-02T00:00:00GMT");
}

TEST(ZyDateTime, KnowsLeapYears)
{
    EXPECT_EQ(text(utc(29, 1, 2020)), "2020-02-29T00:00:00Z");
    EXPECT_EQ(text(utc(29, 1, 1900)), "1900-03-01T00:00:00Z");
    EXPECT_EQ(text(utc(29, 1, 2000)), "2000-02-29T00:00:00Z");
}

TEST(ZyDateTime, HoldsMomentsBeforeTheEpochAndFarAway)
{
    EXPECT_EQ(text(at(-1)), "1969-12-31T23:59:59Z");
    EXPECT_EQ(utc(31, 11, 1969, 23, 59, 59).compare(at(-1)), 0);
    EXPECT_EQ(text(at(10413792000)), "2300-01-01T00:00:00Z") << "beyond the clock's own unit";
    EXPECT_EQ(text(utc(31, 11, 9999, 23, 59, 59)), "9999-12-31T23:59:59Z");
    EXPECT_EQ(text(utc(1, 0, 1000)), "1000-01-01T00:00:00Z");
}

TEST(ZyDateTime, WritesTheZoneInLocalTime)
{
    {
        Zone const zone(newYork);
        EXPECT_EQ(text(local(4, 2, 2021, 5, 6, 7)), "2021-03-04T05:06:07EST");
    }
    Zone const zone(kolkata);
    EXPECT_EQ(text(local(4, 2, 2021, 5, 6, 7)), "2021-03-04T05:06:07IST");
}

TEST(ZyDateTime, Deliberate_local_time_is_standard_time)
{
    {
        Zone const zone(london);
        ZyDateTime const noon = local(1, ZyDateTime::July, 2021, 12);
        EXPECT_EQ(text(noon), "2021-07-01T13:00:00BST");
        EXPECT_EQ(noon.hours(), 13);
        EXPECT_EQ(local(1, ZyDateTime::January, 2021, 12).hours(), 12);
    }
    Zone const zone(newYork);
    EXPECT_EQ(ZyDateTime(1, ZyDateTime::July, 2021, ZyDateTime::Local).hours(), 1);
}

TEST(ZyDateTime, ViewsLeaveTheMoment)
{
    Zone const zone(newYork);
    ZyDateTime const inUtc = utc(4, 2, 2021, 5, 6, 7);
    ZyDateTime moment(inUtc);
    moment.setRepresentation(ZyDateTime::Local);
    EXPECT_EQ(moment.representation(), ZyDateTime::Local);
    EXPECT_EQ(moment.compare(inUtc), 0);
    EXPECT_TRUE(moment == inUtc);
    EXPECT_NE(moment.hours(), inUtc.hours());
    EXPECT_EQ(moment.hours(), 0);
    moment.setRepresentation(ZyDateTime::UTC);
    EXPECT_EQ(text(moment), text(inUtc));
}

TEST(ZyDateTime, ViewsAreTheSameInUtc)
{
    Zone const zone("UTC0");
    ZyDateTime moment = utc(4, 2, 2021, 5, 6, 7);
    moment.setRepresentation(ZyDateTime::Local);
    EXPECT_EQ(moment.hours(), 5);
    EXPECT_EQ(text(moment), "2021-03-04T05:06:07UTC");
}

TEST(ZyDateTime, NoticesAnotherZone)
{
    ZyDateTime moment = utc(1, ZyDateTime::July, 2021, 11);
    {
        Zone const zone(london);
        moment.setRepresentation(ZyDateTime::Local);
        EXPECT_EQ(text(moment), "2021-07-01T12:00:00BST");
        Environment::set("TZ", newYork); // without telling the C library
        moment.setRepresentation(ZyDateTime::Local);
        EXPECT_EQ(text(moment), "2021-07-01T07:00:00EDT");
    }
    EXPECT_EQ(moment.hours(), 7) << "fields are those of the zone at the time";
}

TEST(ZyDateTime, AnyOtherRepresentationIsUtc)
{
    auto const other = static_cast<ZyDateTime::Representation>(7);
    ZyDateTime const moment(4, ZyDateTime::March, 2021, other);
    EXPECT_EQ(moment.representation(), other);
    EXPECT_EQ(text(moment), "2021-03-04T00:00:00Z");
    EXPECT_EQ(writtenElement(moment), "<DateTime time=\"2021-03-04T00:00:00Z\" rep=\"utc\"/>\n");
}

TEST(ZyDateTime, NamesDaysAndMonths)
{
    std::vector<std::string> const days{"Sunday",   "Monday", "Tuesday", "Wednesday",
                                        "Thursday", "Friday", "Saturday"};
    for (int i = 0; i < 7; ++i) {
        EXPECT_EQ(utc(7 + i, 2, 2021).dayName().toStdString(), days[static_cast<std::size_t>(i)]);
    }
    std::vector<std::string> const months{"January",   "February", "March",    "April",
                                          "May",       "June",     "July",     "August",
                                          "September", "October",  "November", "December"};
    for (int i = 0; i < 12; ++i) {
        EXPECT_EQ(utc(1, i, 2021).monthName().toStdString(), months[static_cast<std::size_t>(i)]);
        EXPECT_EQ(utc(1, i, 2021).month(), i);
    }
}

TEST(ZyDateTime, AMomentBeyondTheCalendarHasNoFields)
{
    for (std::int64_t const seconds :
         {std::numeric_limits<std::int64_t>::max(), std::numeric_limits<std::int64_t>::min()}) {
        for (ZyDateTime::Representation const view : {ZyDateTime::UTC, ZyDateTime::Local}) {
            ZyDateTime const moment = at(seconds, view);
            EXPECT_EQ(moment.year(), 0);
            EXPECT_EQ(moment.month(), -1);
            EXPECT_EQ(moment.day(), 0);
            EXPECT_EQ(moment.hours(), 0);
            EXPECT_EQ(moment.dayName().toStdString(), "error");
            EXPECT_EQ(moment.monthName().toStdString(), "error");
            EXPECT_EQ(text(moment), "error");
            EXPECT_EQ(moment.compare(at(0)), seconds < 0 ? -1 : 1);
        }
    }
    ZyDateTime moment = at(std::numeric_limits<std::int64_t>::max());
    moment = at(0);
    EXPECT_EQ(text(moment), "1970-01-01T00:00:00Z");
}

TEST(ZyDateTime, BearsFieldsBeyondTheCalendar)
{
    constexpr int greatest = std::numeric_limits<int>::max();
    constexpr int least = std::numeric_limits<int>::min();
    for (int const year : {greatest, least, least + 1900, 0, -1}) {
        static_cast<void>(text(utc(greatest, greatest, year, greatest, greatest, greatest)));
        static_cast<void>(text(utc(least, least, year, least, least, least)));
        static_cast<void>(text(local(greatest, least, year)));
        static_cast<void>(writtenElement(utc(1, 0, year)));
    }
    EXPECT_EQ(utc(1, 0, greatest).year(), greatest);
    EXPECT_EQ(utc(1, 0, 0).year(), 0);
    EXPECT_EQ(utc(1, 0, -5).year(), -5);
}

TEST(ZyDateTime, Deliberate_view_plays_no_part)
{
    EXPECT_EQ(at(1).compare(at(1, ZyDateTime::Local)), 0);
    EXPECT_EQ(at(1).compare(at(2)), -1);
    EXPECT_EQ(at(2).compare(at(1)), 1);
    EXPECT_TRUE(at(1) == at(1, ZyDateTime::Local));
    EXPECT_FALSE(at(1) == at(2));
    EXPECT_TRUE(at(1) != at(2));
    EXPECT_FALSE(at(1) != at(1));
}

TEST(ZyDateTime, CopiesAllThreeFields)
{
    ZyDateTime moment = utc(4, 2, 2021, 5, 6, 7);
    ZyDateTime const copy(moment);
    moment = at(0, ZyDateTime::Local);
    EXPECT_EQ(text(copy), "2021-03-04T05:06:07Z");
    EXPECT_EQ(moment.representation(), ZyDateTime::Local);
    moment = copy;
    EXPECT_EQ(text(moment), "2021-03-04T05:06:07Z");
    EXPECT_EQ(moment.representation(), ZyDateTime::UTC);
    ZyDateTime const & itself = moment;
    moment = itself;
    EXPECT_EQ(text(moment), "2021-03-04T05:06:07Z");
}

TEST(ZyDateTime, NowIsTheSystemsSecond)
{
    auto const now = [] {
        return ZyDateTime(
            std::chrono::time_point_cast<std::chrono::seconds>(std::chrono::system_clock::now()));
    };
    ZyDateTime const before = now();
    ZyDateTime const between = ZyDateTime::Now();
    EXPECT_LE(before.compare(between), 0);
    EXPECT_LE(between.compare(now()), 0);
    EXPECT_EQ(between.representation(), ZyDateTime::Local);
}

TEST(ZyDateTime, NowServesManyThreads)
{
    std::vector<std::thread> threads;
    for (int i = 0; i < 4; ++i) {
        threads.emplace_back([] {
            ZyDateTime last = ZyDateTime::Now();
            for (int reading = 0; reading < 200; ++reading) {
                ZyDateTime now = ZyDateTime::Now();
                EXPECT_LE(last.compare(now), 0);
                now.setRepresentation(ZyDateTime::UTC);
                EXPECT_FALSE(now.toString().isEmpty());
                last = now;
            }
        });
    }
    for (std::thread & thread : threads) {
        thread.join();
    }
}

TEST(ZyDateTime, BecomesText)
{
    ZyDateTime const moment = utc(4, 2, 2021, 5, 6, 7);
    ZyString const converted = moment;
    EXPECT_EQ(converted.toStdString(), "2021-03-04T05:06:07Z");
    std::ostringstream stream;
    stream << moment;
    EXPECT_EQ(stream.str(), "2021-03-04T05:06:07Z");
}

TEST(ZyDateTime, ANameOfTheZoneThatIsTooLongLeavesNoText)
{
    Zone const zone("<abcdefghijklmnopqrstuvwxyzabcdefghijklmnopqrstuvwxyz>0");
    EXPECT_EQ(text(local(1, 0, 2021)), "");
}

#if ZY_SLOTS_VISIBLE
TEST(ZyDateTime, AddsNoVirtualOperations)
{
    EXPECT_EQ(virtualSlot(&ZyDateTime::xmlElementName), 5u);
    EXPECT_EQ(virtualSlot(&ZyDateTime::toString), std::numeric_limits<std::size_t>::max());
}
#endif

TEST(ZyDateTimeElement, IsWrittenInUtcWithItsView)
{
    EXPECT_EQ(utc(1, 0, 2021).xmlElementName().toStdString(), "DateTime");
    EXPECT_EQ(writtenElement(utc(4, 2, 2021, 5, 6, 7)),
              "<DateTime time=\"2021-03-04T05:06:07Z\" rep=\"utc\"/>\n");
    Zone const zone(newYork);
    EXPECT_EQ(writtenElement(local(4, 2, 2021, 5, 6, 7)),
              "<DateTime time=\"2021-03-04T10:06:07Z\" rep=\"local\"/>\n");
}

TEST(ZyDateTimeElement, IsWrittenAsAChild)
{
    EXPECT_EQ(writtenDocument([](ZyXMLElementWriter & root) { utc(4, 2, 2021).writeXML(root); }),
              "<r><DateTime time=\"2021-03-04T00:00:00Z\" rep=\"utc\"/></r>\n");
}

TEST(ZyDateTimeElement, ReadsBackWhatWasWritten)
{
    Zone const zone(london);
    for (ZyDateTime const & moment :
         {utc(4, 2, 2021, 5, 6, 7), local(1, 6, 2021, 12), utc(29, 1, 2020), at(-1)}) {
        ZyUniquePtr<ZyDateTime> const read = loaded(writtenElement(moment));
        EXPECT_EQ(read->compare(moment), 0);
        EXPECT_EQ(read->representation(), moment.representation());
        EXPECT_EQ(text(*read), text(moment));
    }
}

TEST(ZyDateTimeElement, AMissingAttributeIsUnknown)
{
    EXPECT_ZY_THROW(loaded("<DateTime rep=\"utc\"/>"), ZyUnknownXMLAttributeException,
                    "Unknown attribute: time");
    EXPECT_ZY_THROW(loaded("<DateTime time=\"2021-03-04T05:06:07Z\"/>"), ZyUnknownXMLAttributeException,
                    "Unknown attribute: rep");
}

TEST(ZyDateTimeElement, TheViewIsReadWithoutCase)
{
    std::string const start = "<DateTime time=\"2021-03-04T05:06:07Z\" rep=\"";
    EXPECT_EQ(loaded(start + "LOCAL\"/>")->representation(), ZyDateTime::Local);
    EXPECT_EQ(loaded(start + "local\"/>")->representation(), ZyDateTime::Local);
    EXPECT_EQ(loaded(start + "utc\"/>")->representation(), ZyDateTime::UTC);
    EXPECT_EQ(loaded(start + "anything\"/>")->representation(), ZyDateTime::UTC);
    EXPECT_EQ(loaded(start + "\"/>")->representation(), ZyDateTime::UTC);
}

TEST(ZyDateTimeElement, Deliberate_date_time_comes_back)
{
    EXPECT_EQ(text(*loadedTime("2021-03-04T05:06:07z")), "2021-03-04T05:06:07Z");
    EXPECT_EQ(text(*loadedTime("2021-03-04t05:06:07Z")), "2021-03-04T05:06:07Z");
    for (char const * const time :
         {"2021-02-30T00:00:00Z", "2021-03-04T05:06:07", "2021-03-04T05:06:07ZZ", " 2021-03-04T05:06:07Z",
          "2021-03-04 05:06:07Z", "2021-13-04T05:06:07Z", "2021-00-04T05:06:07Z", "2021-03-04T24:00:00Z",
          "2021-03-04T05:06:60Z", "2021/03/04T05:06:07Z", "0033-01-01T00:00:00Z", "10000-01-01T00:00:00Z",
          "-021-03-04T05:06:07Z", "abcdefghijklmnopqrstuvwxyz", "2021-03-04T05:06:07+00:00"}) {
        EXPECT_ZY_THROW(loadedTime(time), ZyInvalidParameterException, time);
        if (*time != ' ') {
            EXPECT_ZY_THROW(bound(time), ZyInvalidParameterException, time);
        }
    }
}

TEST(ZyDateTimeElement, Deliberate_date_time_comes_back_unless_the_year_is_short)
{
    EXPECT_EQ(text(utc(1, 0, 33)), "33-01-01T00:00:00Z");
    EXPECT_EQ(text(utc(1, 0, 10000)), "10000-01-01T00:00:00Z");
    EXPECT_ZY_THROW(loaded(writtenElement(utc(1, 0, 33))), ZyInvalidParameterException, "33-01-01T00:00:00Z");
    EXPECT_ZY_THROW(loaded(writtenElement(utc(1, 0, 10000))), ZyInvalidParameterException,
                    "10000-01-01T00:00:00Z");
}

TEST(ZyDateTimeElement, ShortTextEndsBeforeItsPlaces)
{
    EXPECT_ZY_THROW(loadedTime(""), ZyIndexOutOfBoundsException, "Index out of bounds [5,0]");
    EXPECT_ZY_THROW(loadedTime("2021"), ZyIndexOutOfBoundsException, "Index out of bounds [5,4]");
    EXPECT_ZY_THROW(loadedTime("2021-03"), ZyIndexOutOfBoundsException, "Index out of bounds [8,7]");
    EXPECT_ZY_THROW(loadedTime("2021-03-04"), ZyIndexOutOfBoundsException, "Index out of bounds [11,10]");
    EXPECT_ZY_THROW(loadedTime("2021-03-04T05"), ZyIndexOutOfBoundsException, "Index out of bounds [14,13]");
    EXPECT_ZY_THROW(loadedTime("2021-03-04T05:06"), ZyIndexOutOfBoundsException,
                    "Index out of bounds [17,16]");
    EXPECT_ZY_THROW(bound(""), ZyIndexOutOfBoundsException, "Index out of bounds [5,0]");
    EXPECT_ZY_THROW(bound("error"), ZyIndexOutOfBoundsException, "Index out of bounds [8,5]");
}

TEST(ZyDateTimeElement, AMomentBeyondTheCalendarDoesNotComeBack)
{
    std::string const document = writtenElement(at(std::numeric_limits<std::int64_t>::max()));
    EXPECT_EQ(document, "<DateTime time=\"error\" rep=\"utc\"/>\n");
    EXPECT_THROW(loaded(document), ZyException);
}

TEST(ZyDateTimeElement, ComesBackFromADocumentInMemory)
{
    Zone const zone(london);
    for (ZyDateTime const & moment : {utc(4, 2, 2021, 5, 6, 7), local(1, 6, 2021, 12)}) {
        ZyXMLDomDocument document;
        document.setContent("<r/>");
        ZyXMLDomElementWriter root(document.root());
        static_cast<ZyXMLSerializableObject const &>(moment).writeXML(root);
        ZyXMLDomDocument read;
        read.setContent(document.toString());
        ZyXMLDomElementReader element(read.root());
        ZyUniquePtr<ZyDateTime> const loaded = ZyDateTime::XMLLoader(**element.children().begin());
        EXPECT_EQ(loaded->compare(moment), 0);
        EXPECT_EQ(loaded->representation(), moment.representation());
    }
}

TEST(ZyDateTimeElement, AMissingAttributeIsRefusedInADocumentInMemoryToo)
{
    ZyXMLDomDocument document;
    document.setContent("<DateTime time=\"2021-03-04T05:06:07Z\"/>");
    ZyXMLDomElementReader element(document.root());
    EXPECT_THROW(ZyDateTime::XMLLoader(element), ZyException);
    document.setContent("<DateTime time=\"2021-02-30T00:00:00Z\" rep=\"utc\"/>");
    ZyXMLDomElementReader february(document.root());
    EXPECT_ZY_THROW(ZyDateTime::XMLLoader(february), ZyInvalidParameterException, "2021-02-30T00:00:00Z");
}

TEST(ZyXMLObjectOfDateTime, ComesBackFromADocumentInMemory)
{
    Zone const zone(newYork);
    ZyDateTime const moment = local(4, 2, 2021, 5, 6, 7);
    ZyXMLDomDocument document;
    document.setContent("<v/>");
    ZyXMLDomElementWriter writer(document.root());
    ZyXMLObject<ZyDateTime>::Write(writer, moment);
    ZyXMLDomElementReader element(document.root());
    auto const definition = ZyXMLObject<ZyDateTime>::LoadRule();
    ZyXMLLambdaRule<ZyDateTime> rule("v", definition);
    definition->setup(rule);
    definition->start(rule, element);
    ZyUniquePtr<ZyDateTime> const read = definition->finish(rule);
    EXPECT_EQ(read->compare(moment), 0);
    EXPECT_EQ(read->representation(), ZyDateTime::Local);
}

TEST(ZyXMLObjectOfDateTime, WritesTheViewAndUtcText)
{
    Zone const zone(newYork);
    EXPECT_EQ(writtenValues<ZyDateTime>({utc(4, 2, 2021, 5, 6, 7), local(4, 2, 2021, 5, 6, 7)}),
              "<r><v rep=\"utc\">2021-03-04T05:06:07Z</v><v rep=\"local\">2021-03-04T10:06:07Z</v></r>\n");
}

TEST(ZyXMLObjectOfDateTime, ReadsBackTheMomentAndTheView)
{
    Zone const zone(london);
    std::vector<ZyDateTime> const moments{local(1, 6, 2021, 12), utc(4, 2, 2021, 5, 6, 7), local(1, 0, 2021)};
    std::string const document = writtenValues(moments);
    std::vector<ZyDateTime> const read =
        loadValues<ZyDateTime>(document.substr(3, document.rfind("</r>") - 3));
    ASSERT_EQ(read.size(), moments.size());
    for (std::size_t i = 0; i < read.size(); ++i) {
        EXPECT_EQ(read[i].compare(moments[i]), 0);
        EXPECT_EQ(read[i].representation(), moments[i].representation());
        EXPECT_EQ(text(read[i]), text(moments[i]));
    }
}

TEST(ZyXMLObjectOfDateTime, TheViewIsReadWithoutCase)
{
    EXPECT_EQ(bound("2021-03-04T05:06:07Z", "LocaL").representation(), ZyDateTime::Local);
    EXPECT_EQ(bound("2021-03-04T05:06:07z", "UTC").representation(), ZyDateTime::UTC);
    EXPECT_EQ(text(bound(" \n2021-03-04T05:06:07Z ")), "2021-03-04T05:06:07Z") << "text is trimmed";
}

TEST(ZyXMLObjectOfDateTime, AMissingViewIsUnknown)
{
    EXPECT_ZY_THROW(loadValues<ZyDateTime>("<v>2021-03-04T05:06:07Z</v>"), ZyUnknownXMLAttributeException,
                    "Unknown attribute: rep");
    EXPECT_ZY_THROW(loadValues<ZyDateTime>("<v>short</v>"), ZyUnknownXMLAttributeException,
                    "Unknown attribute: rep");
}

TEST(ZyXMLObjectOfDateTime, HasOneDefinition)
{
    EXPECT_EQ(ZyXMLObject<ZyDateTime>::LoadRule().get(), ZyXMLObject<ZyDateTime>::LoadRule().get());
}

TEST(ZyXMLObjectOfDateTime, NeedsItsMemory)
{
    auto const definition = ZyXMLObject<ZyDateTime>::LoadRule();
    ZyXMLLambdaRule<ZyDateTime> rule("v", definition);
    EXPECT_ZY_THROW(definition->finish(rule), ZyNotFoundException, "Item not found: val");
    definition->setup(rule);
    EXPECT_EQ(rule.recall<ZyDateTime>("val")->compare(ZyDateTime()), 0);
}
