// SPDX-License-Identifier: BSD-3-Clause
// A moment of the calendar, and its two XML forms.
#pragma once

#include <ZyExport.h>
#include <ZyPrivateObject.h>
#include <ZyString.h>
#include <ZyUniquePtr.h>
#include <ZyXMLObject.h>
#include <ZyXMLSerializableObject.h>

#include <chrono>

/**
 * A moment of the calendar in whole seconds, seen in local time or in UTC. The moment is what counts: the
 * view plays no part in comparisons.
 *
 * \code
 * ZyDateTime moment(4, ZyDateTime::March, 2021, 5, 6, 7, ZyDateTime::UTC);
 * moment.toString();                              // 2021-03-04T05:06:07Z
 * moment.setRepresentation(ZyDateTime::Local);    // the same moment on the clock on the wall
 * \endcode
 *
 * As an element of its own (writeXML, XMLLoader) the time is an attribute; where it is bound through
 * ZyXMLObject it is the text.
 *
 * The calendar and the time zones are the system's; the zone is that of the process at the construction or at
 * setRepresentation(). A moment that the calendar does not hold has no fields: its month is -1 and every
 * other number 0, its names and its text are "error".
 *
 * A value class: copies are deep. \threads as the standard containers, while nobody changes the zone of the
 * process
 */
class ZYCORE_EXPORT ZyDateTime : public ZyXMLSerializableObject
{
public:
    /** The view on a moment. */
    enum Representation : int {
        Local = 0, ///< local time
        UTC = 1    ///< Coordinated Universal Time; what any other number stands for too
    };

    /** The months from 0 on. */
    enum Month : int {
        January = 0,
        February = 1,
        March = 2,
        April = 3,
        May = 4,
        June = 5,
        July = 6,
        August = 7,
        September = 8,
        October = 9,
        November = 10,
        December = 11
    };

    /** The first second of 1970 in UTC, seen in local time. */
    ZyDateTime();
    /** That moment, seen in local time. */
    explicit ZyDateTime(
        std::chrono::time_point<std::chrono::system_clock, std::chrono::seconds> const & moment);
    /** Midnight of a day. Fields as below. */
    ZyDateTime(int day, Month month, int year, Representation representation);
    /**
     * The moment of these fields; what is out of range is carried on, so that the 30th of February is in
     * March.
     *
     * \deliberate{local-time-is-standard-time} Local fields are taken as standard time, also in the months of summer
     * time: such a moment reads back one hour later. Documents of the suite have been written so.
     *
     * \param day from 1
     * \param year all four digits
     */
    ZyDateTime(int day, Month month, int year, int hours, int minutes, int seconds,
               Representation representation);
    ZyDateTime(ZyDateTime const & other);
    ~ZyDateTime() override;
    ZyDateTime & operator=(ZyDateTime const & other);

    /** The present second, seen in local time. \threads any */
    static ZyDateTime Now();
    /**
     * Reads an element that writeXML() has written.
     *
     * \deliberate{date-time-comes-back} The text is read at fixed places, and the one check is that the value gives the
     * same text again, without regard to case. So dates that do not exist and other forms are refused, among
     * them most years that have not four digits, which toString() does not fill up with zeros.
     *
     * \throws ZyUnknownXMLAttributeException there is no attribute "time" or "rep": "Unknown attribute: " and the name
     * \throws ZyInvalidParameterException the text does not come back: the text
     * \throws ZyIndexOutOfBoundsException the text ends before one of the places, the last of which is 17
     */
    static ZyUniquePtr<ZyDateTime> XMLLoader(ZyXMLElementReader & element);

    /** The day of the month, from 1. */
    int day() const;
    /** The month, January is 0. */
    Month month() const;
    /** All digits of the year. */
    int year() const;
    /** 0 to 23. */
    int hours() const;
    /** 0 to 59. */
    int minutes() const;
    /** 0 to 59; 60 in zones that count leap seconds. */
    int seconds() const;
    /** "Sunday" to "Saturday". */
    ZyString dayName() const;
    /** "January" to "December". */
    ZyString monthName() const;
    /** The view. */
    Representation representation() const;
    /** Changes the view; the moment stays. */
    void setRepresentation(Representation representation);

    /**
     * Whether both are the same moment.
     *
     * \deliberate{view-plays-no-part} The view is not looked at: equal moments may give different fields and texts.
     */
    bool operator==(ZyDateTime const & other) const;
    bool operator!=(ZyDateTime const & other) const;
    /** -1, 0 or 1, as this comes before, with or after the other. */
    int compare(ZyDateTime const & other) const;

    /**
     * As "2021-03-04T05:06:07Z" in UTC; in local time with the system's name of the zone in place of the "Z".
     * Empty when that name is too long for 64 bytes in all.
     */
    ZyString toString() const;
    /** The same as toString(). */
    operator ZyString() const;

    /** "DateTime". */
    ZyString xmlElementName() const override;

protected:
    /** Writes "time", always in UTC, and "rep", which is "local" or "utc". */
    void onWriteXMLAttributes(ZyXMLElementWriter & element) const override;
    /** Writes nothing. */
    void onWriteXMLContent(ZyXMLElementWriter & element) const override;

private:
    class ZYCORE_PRIVATE Private;
    ZyPrivatePtr<Private> & d() { return m_d; }
    ZyPrivatePtr<Private> const & d() const { return m_d; }

    ZyPrivatePtr<Private> m_d;
};

/**
 * An attribute "rep", which is "local" or "utc", and the time in UTC as text.
 *
 * \throws ZyUnknownXMLAttributeException from the rule: there is no attribute "rep"
 * \throws ZyInvalidParameterException and ZyIndexOutOfBoundsException from the rule, as ZyDateTime::XMLLoader
 */
template <>
struct ZYCORE_EXPORT ZyXMLObject<ZyDateTime, void>
{
    static void Write(ZyXMLElementWriter & element,
                      ZyDateTime const & value);                      ///< puts \a value into \a element
    static ZySharedPtr<ZyXMLLambdaDefinition<ZyDateTime>> LoadRule(); ///< reads such an element
};
