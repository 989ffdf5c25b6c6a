// SPDX-License-Identifier: BSD-3-Clause
// Documents in memory: the input is a file as it stands or, behind a byte of one, what a compressed file
// unpacks to. What loads is walked, saved in each form and loaded again. One file, overwritten, in a folder
// of the process's own.
#include <ZyFilePath.h>
#include <ZyString.h>
#include <ZyXMLAttributeSet.h>
#include <ZyXMLDomDocument.h>
#include <ZyXMLDomElement.h>
#include <ZyXMLDomElementReader.h>

#include "Fuzz.h"
#include "ScratchDirectory.h"

#include <QByteArray>

#include <list>
#include <memory>

namespace
{
ScratchDirectory const & scratch()
{
    static ScratchDirectory const directory;
    return directory;
}

ZyFilePath file()
{
    return ZyFilePath(scratch() / "x.xml");
}

std::string textOf(ZyXMLDomDocument const & document)
{
    return document.toString().toStdString();
}

void checkElement(ZyXMLDomElement const & element)
{
    ZyXMLDomElementReader reader(element);
    Fuzz::require(reader.name() == element.name(), "the reader has the name");
    ZyXMLAttributeSetPtr const attributes = element.attributes();
    Fuzz::require(reader.attributes().size() == attributes->size(), "the reader has the attributes");
    for (ZyXMLAttribute const & attribute : attributes) {
        Fuzz::require(attribute.name().isEmpty() || reader.attributes().hasAttribute(attribute.name()),
                      "each of them");
    }
    unsigned int count = 0;
    for (auto const & child : reader.children()) {
        Fuzz::require(child != nullptr, "a child that is there");
        ++count;
    }
    Fuzz::require(count == element.children().size(), "the reader has the children");
}

/** Visits all elements; returns how deep they are nested. */
std::size_t walk(ZyXMLDomElement const & root)
{
    std::size_t deepest = 0;
    std::list<std::pair<ZyXMLDomElement, std::size_t>> rest = {{root, 1}};
    for (std::size_t visited = 0; !rest.empty() && visited < 2000; ++visited) {
        auto const [element, depth] = rest.front();
        rest.pop_front();
        checkElement(element);
        deepest = std::max(deepest, depth);
        for (ZyXMLDomElement const & child : element.children()) {
            rest.emplace_back(child, depth + 1);
        }
    }
    return deepest;
}

bool isKnownEntity(std::string_view rest)
{
    for (std::string_view const known : {"&lt;", "&gt;", "&amp;", "&quot;", "&apos;", "&#"}) {
        if (Fuzz::startsWith(rest, known)) {
            return true;
        }
    }
    return false;
}

// Qt puts a line break behind each processing instruction, which becomes part of a text that follows, and
// entities that it cannot resolve change places with the text around them.
bool isFaithful(std::string const & text)
{
    for (std::size_t at = text.find('&'); at != std::string::npos; at = text.find('&', at + 1)) {
        if (!isKnownEntity(std::string_view(text).substr(at))) {
            return false;
        }
    }
    return text.find("<?", 1) == std::string::npos && text.find("<!DOCTYPE") == std::string::npos;
}

// Another encoding may not have all characters, and no text can be lost in this one.
bool isUtf8(std::string const & text)
{
    return Fuzz::startsWith(text, "<?xml") ? text.find("encoding=\"UTF-8\"") < text.find("?>")
                                           : text.find("<?xml") == std::string::npos;
}

std::string reloaded(ZyXMLDomDocument const & document, ZyXMLDomDocument::SaveType type)
{
    document.save(file(), type);
    return textOf(ZyXMLDomDocument(file()));
}

void requireSame(std::string const & text, std::string const & reloaded, char const * invariant)
{
    if (text != reloaded) {
        std::fprintf(stderr, "[%s]\n[%s]\n", text.c_str(), reloaded.c_str());
    }
    Fuzz::require(text == reloaded, invariant);
}

void saveAndLoad(ZyXMLDomDocument const & document)
{
    std::string const text = textOf(document);
    if (!isUtf8(text) || !isFaithful(text)) {
        return;
    }
    requireSame(text, reloaded(document, ZyXMLDomDocument::Compact), "a compact file holds the document");
    requireSame(text, reloaded(document, ZyXMLDomDocument::Indented), "an indented file holds the document");
    document.save(file(), ZyXMLDomDocument::Compressed);
    ZyXMLDomDocument const unpacked(file());
    requireSame(textOf(unpacked), reloaded(unpacked, ZyXMLDomDocument::Compressed),
                "a compressed file holds it");
}

void checkFailure(std::string const & failure)
{
    std::string const start = "ZyInvalidXMLException: Invalid XML: ";
    std::string const path = file().path().toStdString();
    Fuzz::require(failure == start + path || failure == start + path + " is nested deeper than 512 levels" ||
                      failure == start + path + " expands beyond bounds",
                  "three reasons to refuse a file");
}
} // namespace

extern "C" int LLVMFuzzerTestOneInput(std::uint8_t const * data, std::size_t size)
{
    std::string content(Fuzz::Input(data, size).rest());
    if (Fuzz::startsWith(content, "\x01")) {
        content = qCompress(QByteArray::fromStdString(content.substr(1))).toStdString();
    }
    scratch().write("x.xml", content);
    std::unique_ptr<ZyXMLDomDocument> document;
    std::string const failure =
        Fuzz::failureOf([&] { document = std::make_unique<ZyXMLDomDocument>(file()); });
    if (failure.empty()) {
        Fuzz::require(walk(document->root()) <= 512, "no deeper than told");
        saveAndLoad(*document);
    } else {
        checkFailure(failure);
    }
    return 0;
}
