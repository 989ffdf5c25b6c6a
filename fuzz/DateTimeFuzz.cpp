// SPDX-License-Identifier: BSD-3-Clause
// The two XML forms of a calendar moment: the input is the attribute "rep" and, behind a line feed, the time.
// Whether it is taken is told beside it by the calendar alone.
#include <ZyDateTime.h>
#include <ZyXMLAttributeSet.h>
#include <ZyXMLElementReader.h>
#include <ZyXMLLambdaRule.h>
#include <ZyXMLObject.h>

#include "Fuzz.h"

#include <cctype>
#include <utility>

namespace
{
/** An element without a document. */
class Element : public ZyXMLElementReader
{
public:
    Element(std::string_view rep, std::string_view time) : m_name("DateTime"), m_text(std::string(time))
    {
        m_attributes.addAttribute("time", m_text);
        m_attributes.addAttribute("rep", ZyString(std::string(rep)));
    }

    ZyXMLAttributeSet const & attributes() const override { return m_attributes; }
    Children & children() override { throw ZyInvalidUseException("no children"); }
    bool hasAttribute(ZyString const & name) const override { return m_attributes.hasAttribute(name); }
    ZyString const & name() const override { return m_name; }
    ZyString readAttribute(ZyString const & name) const override { return m_attributes.readAttribute(name); }
    double readAttributeBase64(ZyString const &) const override { return 0; }
    ZyString readText() const override { return m_text; }
    double readTextBase64() const override { return 0; }

private:
    ZyString m_name;
    ZyString m_text;
    ZyXMLAttributeSet m_attributes;
};

int numberOf(std::string_view digits)
{
    return std::stoi(std::string(digits));
}

int daysOf(int year, int month)
{
    constexpr int days[] = {31, 28, 31, 30, 31, 30, 31, 31, 30, 31, 30, 31};
    bool const isLeap = (year % 4 == 0 && year % 100 != 0) || year % 400 == 0;
    return month == 2 && isLeap ? 29 : days[month - 1];
}

// "2021-03-04T05:06:07Z", the letters in either case.
bool hasForm(std::string_view text)
{
    constexpr std::string_view form = "0000-00-00T00:00:00Z";
    if (text.size() != form.size()) {
        return false;
    }
    for (std::size_t i = 0; i < form.size(); ++i) {
        int const c = static_cast<unsigned char>(text[i]);
        if (form[i] == '0' ? std::isdigit(c) == 0 : std::toupper(c) != form[i]) {
            return false;
        }
    }
    return true;
}

bool isMoment(std::string_view text)
{
    if (!hasForm(text) || text.front() == '0') {
        return false; // years of fewer digits are written without zeros
    }
    int const month = numberOf(text.substr(5, 2));
    int const day = numberOf(text.substr(8, 2));
    return month >= 1 && month <= 12 && day >= 1 && day <= daysOf(numberOf(text.substr(0, 4)), month) &&
           numberOf(text.substr(11, 2)) < 24 && numberOf(text.substr(14, 2)) < 60 &&
           numberOf(text.substr(17, 2)) < 60;
}

// A year of fewer than four digits moves what follows it, and may come back all the same; nothing is said of
// those.
bool hasShortYear(std::string_view text)
{
    return text.substr(0, 4).find('-') != std::string_view::npos;
}

void checkValue(ZyDateTime value, std::string_view rep, std::string_view time)
{
    bool const isLocal = ZyString(std::string(rep)) == ZyString("local");
    Fuzz::require(value.representation() == (isLocal ? ZyDateTime::Local : ZyDateTime::UTC),
                  "the view that rep tells");
    ZyDateTime const before(value);
    value.setRepresentation(ZyDateTime::UTC);
    Fuzz::require(value.toString() == ZyString(std::string(time)), "the text comes back");
    Fuzz::require(value.compare(before) == 0 && value == before, "the view does not change the moment");
    ZyDateTime const again(value.day(), value.month(), value.year(), value.hours(), value.minutes(),
                           value.seconds(), ZyDateTime::UTC);
    Fuzz::require(again == value, "the fields are the moment");
}

/** The same through the binding, whose rule needs no document either. */
class Rule : public ZyXMLLambdaRule<ZyDateTime>
{
public:
    explicit Rule(ZyUniquePtr<ZyDateTime> & value)
        : ZyXMLLambdaRule<ZyDateTime>("DateTime", ZyXMLObject<ZyDateTime>::LoadRule(),
                                      [&value](ZyUniquePtr<ZyDateTime> read) { value = std::move(read); })
    {}
};

ZyUniquePtr<ZyDateTime> bound(Element & element)
{
    ZyUniquePtr<ZyDateTime> value;
    Rule rule(value);
    rule.onAdded();
    rule.onStart(element);
    rule.onFinish();
    return value;
}

void checkFailure(std::string const & failure, std::string_view time)
{
    Fuzz::require(failure == "ZyInvalidParameterException: " + std::string(std::string(time).c_str()) ||
                      Fuzz::startsWith(failure, "ZyIndexOutOfBoundsException: Index out of bounds ["),
                  "refused with its text, or for its length");
}
} // namespace

extern "C" int LLVMFuzzerTestOneInput(std::uint8_t const * data, std::size_t size)
{
    Fuzz::Input input(data, size);
    std::string_view const rep = input.line();
    std::string_view const time = input.rest();
    Element element(rep, time);
    ZyUniquePtr<ZyDateTime> value;
    std::string const failure = Fuzz::failureOf([&] { value = ZyDateTime::XMLLoader(element); });
    ZyUniquePtr<ZyDateTime> other;
    Fuzz::require(Fuzz::failureOf([&] { other = bound(element); }) == failure, "both forms fail alike");
    Fuzz::require(!failure.empty() || *other == *value, "both forms read the same");
    if (!hasShortYear(time)) {
        Fuzz::require(failure.empty() == isMoment(time), "what the calendar has, and nothing else");
    }
    if (failure.empty()) {
        checkValue(*value, rep, time);
    } else {
        checkFailure(failure, time);
    }
    return 0;
}
