#include <ZyCore.h>

#include <iostream>

int main()
{
    ZyStringDevice text("<parts><part id='R1'><value>4700</value></part><part id='C1'/></parts>");
    ZyXMLStreamReader reader(text);
    auto const parts = reader.nextElement();
    for (auto const & part : parts->children()) {
        std::cout << part->name().c_str() << ' ' << part->readAttribute("id").c_str() << '\n';
        for (auto const & child : part->children()) {
            std::cout << "  " << child->name().c_str() << ": " << child->readText().c_str() << '\n';
        }
    }

    // What a stream has left behind is closed: its name and attributes stay, its text is gone.
    try {
        parts->readText();
    } catch (ZyInvalidXMLOperation const & failure) {
        std::cout << failure.what() << '\n';
    }
}
