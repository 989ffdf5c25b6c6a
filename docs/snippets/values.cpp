// SPDX-License-Identifier: BSD-3-Clause
// Time, identifiers, properties and the process-wide store, for the guide.

#include <ZyCore.h>

#include <iostream>

int main()
{
    // The unit of a count is part of its type.
    ZyTimeDuration const span = ZyTimeDuration::Hours{1} + ZyTimeDuration::Milliseconds{90500};
    std::cout << span.hours().value << " h " << span.minutes().value << " min " << span.seconds().value
              << " s, " << span.toSeconds().value << " s in all\n";
    try {
        ZyTimeDuration const tooLong(ZyTimeDuration::Hours{2562048});
    } catch (ZyInvalidParameterException const & failure) {
        std::cout << failure.message().c_str() << '\n';
    }

    // A moment of the calendar, and the element that it writes.
    ZyDateTime const moment(4, ZyDateTime::March, 2021, 5, 6, 7, ZyDateTime::UTC);
    std::cout << moment.toString().c_str() << ", a " << moment.dayName().c_str() << '\n';
    ZyStringDevice device;
    ZyXMLStreamWriter writer(device);
    moment.writeXML(writer);
    writer.finishDocument();
    std::cout << device.content().c_str();

    // Named values: names are equal without regard to case, and copies share what they hold.
    ZyProperties settings{ZyProperty("Gain", 2.5), ZyProperty("Unit", "dB")};
    ZyProperties const copy(settings);
    settings.add("GAIN", 3.0);
    settings.add("Offset", 1);
    std::cout << copy.value("gain").toString().c_str() << ' ' << copy.size() << ' ' << settings.size()
              << '\n';

    // One store for the whole process; both sides know the identifier, which respects case.
    ZyUUID const limits("limits of the editor");
    ZyGlobal::Set(ZyDeque<double>{0.1, 0.9}, limits);
    std::cout << ZyGlobal::GetDoubles(limits)[1] << ' ' << ZyGlobal::Get("Limits of the editor").expired()
              << '\n';
    ZyGlobal::Destroy(limits);
}
