// SPDX-License-Identifier: BSD-3-Clause
// What a first program of someone else would do: text, a container, an exception across the library's border.
#include <ZyCore.h>
#include <keelbase/Keelbase.h>

#include <iostream>

int main()
try {
    ZyVector<ZyString> words = {"resistor", "capacitor"};
    words.add(ZyString(YString("inductor")));
    std::cout << words.find("INDUCTOR").c_str() << '\n' << words.find("diode").c_str() << '\n';
    return 1;
} catch (ZyNotFoundException const & e) {
    std::cout << e.name() << ": " << e.what() << '\n';
    return 0;
}
