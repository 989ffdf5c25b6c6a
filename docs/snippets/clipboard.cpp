// SPDX-License-Identifier: BSD-3-Clause
// Quoted in docs/guide-desktop.md.
#include <ZyCore.h>

#include <QGuiApplication>

#include <iostream>

int main(int argc, char ** argv)
{
    QGuiApplication const application(argc, argv);

    // One copy, in three forms: the program that pastes takes the best one that it knows.
    ZyDeque<ZyClipboard::Item> selection;
    selection.add({"text/plain", "R1\t4700"});
    selection.add({"text/csv", "R1,4700"});
    selection.add({"text/html", "<tr><td>R1<td>4700</tr>"});
    ZyClipboard::WriteText(selection);

    std::cout << ZyClipboard::ReadText("text/csv").c_str() << '\n';
    try {
        ZyClipboard::ReadText("image/png");
    } catch (ZyInvalidMimeDataException const & e) {
        std::cout << e.what() << '\n';
    }
}
