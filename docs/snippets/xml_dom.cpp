#include <ZyCore.h>

#include <iostream>

int main()
{
    ZyXMLDomDocument document;
    document.setContent("<parts><!-- stock --><part id='R1'>4700</part></parts>");
    ZyXMLDomElement parts = document.root();
    ZyXMLDomElement capacitor = parts.addElement("part");
    capacitor.setAttribute("id", "C1");
    capacitor.setText("1e-9");
    std::cout << document.toString().c_str();

    document.save(ZyFilePath("parts.bin"), ZyXMLDomDocument::Compressed);
    ZyXMLDomDocument again(ZyFilePath("parts.bin")); // finds out by itself that the file is compressed
    for (ZyXMLDomElement & part : again.root().children("part")) {
        std::cout << part.attribute("id").c_str() << ' ' << part.text().c_str() << '\n';
    }

    // The same abstract element that a stream has; this one can be walked as often as you like.
    ZyXMLDomElementReader reader(again.root());
    for (int round = 0; round < 2; ++round) {
        for (auto const & child : reader.children()) {
            std::cout << child->readAttribute("id").c_str() << ' ';
        }
    }
    std::cout << '\n';
}
