// SPDX-License-Identifier: BSD-3-Clause
// Loading and writing small documents that stand in a test.
#pragma once

#include <ZyString.h>
#include <ZyStringDevice.h>
#include <ZyXMLElementReader.h>
#include <ZyXMLLoader.h>
#include <ZyXMLObject.h>
#include <ZyXMLStreamElementWriter.h>
#include <ZyXMLStreamReader.h>
#include <ZyXMLStreamWriter.h>

#include <functional>
#include <string>
#include <vector>

/** Loads a document from a text. */
inline void loadText(ZyXMLLoader & loader, std::string const & text)
{
    ZyStringDevice device{ZyString(text)};
    ZyXMLStreamReader reader(device);
    loader.load(reader);
}

/** The values of type T that stand in the elements "v" of a document with the root "r". */
template <class T>
std::vector<T> loadValues(std::string const & children)
{
    std::vector<T> values;
    ZySharedPtr<ZyXMLLoader> const loader = ZyXMLLoader::Create();
    loader->add<T>("r/v", [&](ZyUniquePtr<T> value) { values.push_back(*value); });
    loadText(*loader, "<r>" + children + "</r>");
    return values;
}

/** A document with the root "r", which \a write fills. */
inline std::string writtenDocument(std::function<void(ZyXMLElementWriter &)> const & write)
{
    ZyStringDevice device;
    ZyXMLStreamWriter writer(device);
    write(*writer.createElement("r"));
    writer.finishDocument();
    return device.content().toStdString();
}

/** A document with the root "r" and an element "v" for each value. */
template <class T>
std::string writtenValues(std::vector<T> const & values)
{
    return writtenDocument([&](ZyXMLElementWriter & root) {
        for (T const & value : values) {
            ZyXMLObject<T>::Write(*root.createElement("v"), value);
        }
    });
}
