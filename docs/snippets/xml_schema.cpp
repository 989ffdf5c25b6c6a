#include <ZyCore.h>

#include <QCoreApplication>

#include <iostream>

void write(char const * path, char const * text)
{
    ZyFile file{ZyFilePath(path)};
    file.open(ZyIODevice::Write);
    file.write(text);
    file.close();
}

int main(int argc, char ** argv)
{
    QCoreApplication application(argc, argv); // the validator asks Qt for the program's folder
    write("limits.xsd", "<xs:schema xmlns:xs='http://www.w3.org/2001/XMLSchema'>"
                        "<xs:element name='limit' type='xs:int'/></xs:schema>");
    write("good.xml", "<limit>5</limit>");
    write("bad.xml", "<limit>five</limit>");

    std::cout << ZyXMLValidator("good.xml").isValid("limits.xsd", false)
              << ZyXMLValidator("bad.xml").isValid("limits.xsd", false) << '\n';
    try {
        ZyXMLStreamReader reader(ZyFilePath("bad.xml"), ZyFilePath("limits.xsd"));
    } catch (ZyInvalidXMLException const & failure) {
        std::cout << failure.what() << '\n';
    }
}
