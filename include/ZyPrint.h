// SPDX-License-Identifier: BSD-3-Clause
// Printing to standard streams, to Qt's debug stream and in the messages of GoogleTest, which uses the first
// of these. Costs nothing where it is not included.
#pragma once

#include <ZyComparableString.h>
#include <ZyPair.h>
#include <ZyString.h>

#include <QDebug>
#include <QString>

#include <ostream>
#include <string>
#include <type_traits>
#include <utility>

/** Well-formed for a class, other than a string, whose `toString` gives a string. */
template <class T>
using ZyHasToString =
    std::enable_if_t<!std::is_base_of_v<ZyComparableString, T> &&
                     std::is_same_v<std::decay_t<decltype(std::declval<T const &>().toString())>, ZyString>>;

/**
 * The text that a value is printed as: that of its own `toString`; the characters of a string;
 * "[first,second]" for a pair of such values. Only classes that have one of these are printed.
 *
 * \code
 * std::cout << ZyVariant(1.5) << ZyFilePath("a/b");   // 1.5a\b
 * qDebug() << ZyString("text");                       // text, without quotes
 * \endcode
 */
struct ZyPrint
{
    /** The characters of a string or a view. */
    template <class T>
    static std::enable_if_t<std::is_base_of_v<ZyComparableString, T>, std::string> Text(T const & text)
    {
        std::string characters;
        for (unsigned int i = 0, size = text.size(); i < size; ++i) {
            characters += text[i];
        }
        return characters;
    }

    /** What the value's own `toString` gives. */
    template <class T, class = ZyHasToString<T>>
    static std::string Text(T const & value)
    {
        return value.toString().toStdString();
    }

    /** "[first,second]". */
    template <class A, class B>
    static auto Text(ZyPair<A, B> const & pair) -> decltype(Text(pair.first) + Text(pair.second))
    {
        return "[" + Text(pair.first) + "," + Text(pair.second) + "]";
    }
};

/** Well-formed for what ZyPrint has a text of. */
template <class T>
using ZyPrintable =
    std::enable_if_t<std::is_same_v<decltype(ZyPrint::Text(std::declval<T const &>())), std::string>>;

/** Writes the text of a value. */
template <class T, class = ZyPrintable<T>>
std::ostream & operator<<(std::ostream & stream, T const & value)
{
    return stream << ZyPrint::Text(value);
}

/** Writes the text of a value, read as UTF-8 and without quotes. */
template <class T, class = ZyPrintable<T>>
QDebug operator<<(QDebug stream, T const & value)
{
    QDebugStateSaver const saver(stream);
    std::string const text = ZyPrint::Text(value);
    stream.noquote() << QString::fromUtf8(text.data(), static_cast<int>(text.size()));
    return stream;
}
