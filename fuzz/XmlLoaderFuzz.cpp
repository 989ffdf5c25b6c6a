// SPDX-License-Identifier: BSD-3-Clause
// The loader with the standard bindings: the input is a document whose root is "R" and whose elements below
// are named after the types. What was read is written and read again, until nothing changes any more.
#include <ZyDateTime.h>
#include <ZyDeque.h>
#include <ZyFilePath.h>
#include <ZyPair.h>
#include <ZyPoint.h>
#include <ZyProperties.h>
#include <ZyProperty.h>
#include <ZyString.h>
#include <ZyStringDevice.h>
#include <ZyTimeDuration.h>
#include <ZyTimePoint.h>
#include <ZyUUID.h>
#include <ZyVariant.h>
#include <ZyXMLElementReader.h>
#include <ZyXMLLoader.h>
#include <ZyXMLObject.h>
#include <ZyXMLStreamElementWriter.h>
#include <ZyXMLStreamReader.h>
#include <ZyXMLStreamWriter.h>

#include "Fuzz.h"

#include <functional>
#include <memory>
#include <stdexcept>
#include <vector>

namespace
{
/** Reads a document and keeps how each of its values is written. */
class Document
{
public:
    explicit Document(std::string const & text) : m_loader(ZyXMLLoader::Create())
    {
        bind<int>("Int");
        bind<double>("Double");
        bind<ZyString>("String");
        bind<ZyFilePath>("Path");
        bind<ZyPair<ZyFilePath, ZyFilePath>>("Paths");
        bind<ZyPair<ZyString, ZyString>>("Strings");
        bind<ZyPoint>("Point");
        bind<ZyPointD>("PointD");
        bind<ZyDeque<int>>("Ints");
        bind<ZyDeque<double>>("Doubles");
        bind<ZyDeque<ZyString>>("Texts");
        bind<ZyUUID>("UUID");
        bind<ZyTimeDuration>("Duration");
        bind<ZyTimePoint>("Moment");
        bind<ZyVariant>("Variant");
        bind<ZyDateTime>("DateTime");
        bind<ZyProperty>("Property");
        bind<ZyProperties>("Properties");
        load(text);
    }
    Document(Document const &) = delete;
    Document & operator=(Document const &) = delete;
    ~Document()
    {
        ZyWeakPtr<ZyXMLLoader> const loader(m_loader);
        m_loader.reset();
        Fuzz::require(loader.expired(), "a loader goes with its owner");
    }

    bool isWhole() const { return m_failure.empty(); }
    std::string text() const
    {
        ZyStringDevice device;
        ZyXMLStreamWriter writer(device);
        writer.startDocument();
        {
            auto const root = writer.createElement("R");
            for (auto const & write : m_values) {
                write(*root);
            }
        }
        writer.finishDocument();
        return device.content().toStdString();
    }

private:
    template <class T>
    void bind(char const * name)
    {
        m_loader->add<T>(ZyXMLPath{"R", name}, [this, name](ZyUniquePtr<T> value) {
            std::shared_ptr<T> const kept(new T(*value));
            m_values.emplace_back([kept, name](ZyXMLElementWriter & parent) {
                ZyXMLObject<T>::Write(*parent.createElement(name), *kept);
            });
        });
    }

    void load(std::string const & text)
    {
        ZyStringDevice device{ZyString(text)};
        std::weak_ptr<ZyXMLStreamElementReader> root;
        {
            ZyXMLStreamReader reader(device);
            m_failure = failureOf([&] {
                root = reader.nextElement();
                m_loader->load(reader);
            });
            if (m_failure.empty() && reader.tokenType() == ZyXMLStreamReader::Invalid) {
                m_failure = reader.errorString().toStdString();
            }
        }
        Fuzz::require(root.expired(), "no element outlives its reader");
    }

    /** Besides those of the tree, the failures of the one converter that has others. */
    template <class Function>
    static std::string failureOf(Function && function)
    {
        try {
            return Fuzz::failureOf(function);
        } catch (std::invalid_argument const & failure) {
            Fuzz::require(std::string_view(failure.what()) == "invalid stoll argument",
                          "no digits in a duration");
            return failure.what();
        } catch (std::out_of_range const & failure) {
            Fuzz::require(std::string_view(failure.what()) == "stoll argument out of range",
                          "too long a duration");
            return failure.what();
        }
    }

    ZySharedPtr<ZyXMLLoader> m_loader;
    std::vector<std::function<void(ZyXMLElementWriter &)>> m_values;
    std::string m_failure;
};
} // namespace

extern "C" int LLVMFuzzerTestOneInput(std::uint8_t const * data, std::size_t size)
{
    // Also of a document that breaks off, what was delivered is fit to be written.
    Document const given(std::string(Fuzz::Input(data, size).rest()));
    Document const once(given.text());
    Fuzz::require(once.isWhole(), "what is written can be read");
    Document const twice(once.text());
    Fuzz::require(twice.isWhole() && twice.text() == once.text(),
                  "what was read from our own text stays the same");
    return 0;
}
