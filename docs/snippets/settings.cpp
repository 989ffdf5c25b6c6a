// SPDX-License-Identifier: BSD-3-Clause
// Settings that outlast the process, for the guide.

#include <ZyCore.h>

#include <keelbase/KbHost.h>

#include <iostream>

int main()
{
    kb::UseConfigFile("settings.cfg"); // the application says where, once; otherwise it is in memory

    ZyApplicationProperties::Write("Window", "Width", "800");
    ZyApplicationProperties::Write("Window", "Title", "Limits");
    std::cout << ZyApplicationProperties::Read("Window", "Title").c_str() << '\n';

    // A section as named values: texts, and names without regard to case.
    ZyProperties const window = ZyApplicationProperties::ReadAll("Window");
    window.forEach([](ZyProperty const & setting) {
        std::cout << setting.name().c_str() << " = " << setting.value().toString().c_str() << '\n';
    });
    std::cout << window.value("width").asString().toInt() / 2 << '\n';

    // What may be missing has a default in the handler.
    try {
        ZyApplicationProperties::Read("Window", "Height");
    } catch (ZyNotFoundException const & problem) {
        std::cout << problem.what() << '\n';
    }
}
