// SPDX-License-Identifier: BSD-3-Clause
// The path value of the library. Everything here is work on text; nothing touches the disk.
#pragma once

#include <ZyExport.h>
#include <ZyPrivateObject.h>
#include <ZyString.h>
#include <ZyStringView.h>

#include <filesystem>
#include <string>
#include <type_traits>

/**
 * The path of a file or directory: one text in a single normal form.
 *
 * \code
 * ZyFilePath const file("C:/data//runs/gain.csv");
 * file.path();                     // C:\data\runs\gain.csv
 * file == "c:\\DATA\\runs/gain.csv"; // true
 * file.filename();                 // gain.csv
 * file.parentPath();               // C:\data\runs\  (a directory)
 * \endcode
 *
 * Normal form, on every system: no white space at either end; separators are backslashes; no run of them,
 * except that a path may begin with two (the network form); a final one that was given is kept and none is
 * added. The segments "." and ".." stay, only absolute() resolves them. A path that ends with a backslash is
 * a directory, any other path is a file: the disk is not asked. The null path is the empty text.
 *
 * Text is UTF-8. No character is forbidden. Where the system spells paths differently, they are respelled
 * when they are handed to it and nowhere else; there, a path from the root ("/home/x") has no root name in
 * stored form and counts as relative, and a name that holds a backslash or has blanks at an end cannot be
 * reached.
 *
 * A value class: copies are deep, a moved-from path is the null path. Comparison ignores case, as that of
 * ZyString, also where the disk respects it: equal paths may name two files there.
 *
 * \threads a value: one object has no lock, different ones are independent
 */
class ZYCORE_EXPORT ZyFilePath
{
public:
    /** The null path. */
    ZyFilePath();
    /** As the other one stands, which need not be in normal form (CreateUnchecked). */
    ZyFilePath(ZyFilePath const & other);
    /** \a other becomes the null path. */
    ZyFilePath(ZyFilePath && other);
    ZyFilePath(ZyString const & path);
    ZyFilePath(ZyString && path);
    ZyFilePath(ZyStringView const & path);
    /** A null pointer counts as the empty text. */
    ZyFilePath(char const * path);
    ZyFilePath(std::string const & path);
    ZyFilePath(std::string && path);
    /**
     * UTF-16 where wchar_t has 16 bits, one code point a unit where it has 32; a null pointer is the empty
     * text.
     * \throws std::range_error "bad conversion": a lone surrogate, or a unit that is no code point
     */
    ZyFilePath(wchar_t const * path);
    /** The same. \throws std::range_error "bad conversion" */
    ZyFilePath(std::wstring const & path);
    /** \throws std::range_error "bad conversion": the path is wide text that is not well-formed */
    ZyFilePath(std::filesystem::path const & path);
    ZyFilePath(std::filesystem::path && path);
    virtual ~ZyFilePath();

    ZyFilePath & operator=(ZyFilePath const & other);
    ZyFilePath & operator=(ZyFilePath && other);

    /** Takes a text that is in normal form already, exactly as it is. Nothing is checked. */
    static ZyFilePath CreateUnchecked(ZyString && path);

    /** The stored text. Three names of one operation. */
    ZyString const & path() const;
    /** The same as path(). */
    ZyString const & toString() const;
    /** The same as path(). */
    operator ZyString const &() const;
    /**
     * The stored text up to the first NUL as wide characters; U+FFFD for a bad byte.
     *
     * \deliberate{wide-path-is-trimmed} White space at the ends goes once more, also that of a path made by
     * CreateUnchecked(): no name that the system is asked for has any.
     */
    std::wstring toWString() const;

    /** Whether the path is empty. */
    bool isNull() const;
    /** Whether the text ends with a separator. */
    bool isDirectory() const;
    /** Whether it does not. \deliberate{null-path-is-a-file} The null path is a file, too: only the spelling counts. */
    bool isFile() const;
    /** Whether there is a root name. */
    bool isAbsolute() const;
    /** Whether there is no root; a POSIX path has none. */
    bool isRelative() const;

    // The views point into this path and are valid as long as it is unchanged.

    /**
     * The root: of a network path the two separators and the server, else the text up to the first colon.
     *
     * \deliberate{any-colon-is-a-root} A colon anywhere makes a root, so a name with a colon in it counts as rooted:
     * no drive letter is looked for. A path from a single separator has no root.
     */
    ZyStringView rootName() const;
    /** The last segment; of a directory its name without the final separator. */
    ZyStringView filename() const;
    /**
     * From the last dot of the file name to its end, the dot included.
     *
     * \deliberate{leading-dot-is-extension} A name that begins with its only dot is all extension. A name that ends in
     * one dot has the extension ".", with two dots there it has none.
     */
    ZyStringView extension() const;
    /** The file name without the extension. */
    ZyStringView stem() const;
    /** What stands in front of the last segment, its final separator included; a bare root is its own parent.
     */
    ZyStringView parentPath() const;

    /** Whether \a other equals this path, or this is a directory above it. Decided by the texts alone. */
    bool isAncestor(ZyFilePath const & other) const;
    /**
     * This path and \a other joined by exactly one separator.
     *
     * \deliberate{null-path-appended} The null path gets no special care: a name appended to it begins with a separator.
     */
    ZyFilePath appended(ZyFilePath const & other) const;
    /**
     * \a path seen from this directory, or from the directory of this file, with "." and ".." resolved. A
     * path with a root comes back as it is; two null paths give the null path.
     *
     * \deliberate{dots-in-names} Two dots left anywhere in the resolved text, also inside a name, are refused.
     *
     * \throws ZyInvalidCallException "Cannot generate absolute path from relative base path": this path has no
     * root; "Path becomes invalid:" and the resolved text with forward slashes: it climbs above the root
     */
    ZyFilePath absolute(ZyFilePath const & path) const;
    /**
     * The way from this directory, or from the directory of this file, to \a path; "." when they are the
     * same. Under another root \a path comes back as it is.
     *
     * \throws ZyInvalidCallException "Cannot find relative path when one is already relative"
     */
    ZyFilePath relative(ZyFilePath const & path) const;

    bool operator==(ZyFilePath const & other) const;
    bool operator!=(ZyFilePath const & other) const;
    bool operator<(ZyFilePath const & other) const;
    bool operator<=(ZyFilePath const & other) const;
    bool operator>(ZyFilePath const & other) const;
    bool operator>=(ZyFilePath const & other) const;

private:
    class ZYCORE_PRIVATE Private;
    ZYCORE_PRIVATE explicit ZyFilePath(Private * state);
    ZyPrivatePtr<Private> & d() { return m_d; }
    ZyPrivatePtr<Private> const & d() const { return m_d; }

    ZyPrivatePtr<Private> m_d;
};

// Text on one side of a comparison is taken as a path, on either side and under every language standard.
// Without these, the conversions of paths to text and of text to paths would compete. Both sides are deduced,
// so that no comparison without a path comes here.

/** Enabled, and bool, for a path P and a type T that converts to a path and is none. */
template <class P, class T>
using ZyPathAndText =
    std::enable_if_t<std::is_base_of_v<ZyFilePath, P> && !std::is_base_of_v<ZyFilePath, T> &&
                         std::is_convertible_v<T const &, ZyFilePath>,
                     bool>;

template <class P, class T>
ZyPathAndText<P, T> operator==(P const & path, T const & text)
{
    return path.operator==(ZyFilePath(text));
}
template <class P, class T>
ZyPathAndText<P, T> operator!=(P const & path, T const & text)
{
    return path.operator!=(ZyFilePath(text));
}
template <class P, class T>
ZyPathAndText<P, T> operator<(P const & path, T const & text)
{
    return path.operator<(ZyFilePath(text));
}
template <class P, class T>
ZyPathAndText<P, T> operator<=(P const & path, T const & text)
{
    return path.operator<=(ZyFilePath(text));
}
template <class P, class T>
ZyPathAndText<P, T> operator>(P const & path, T const & text)
{
    return path.operator>(ZyFilePath(text));
}
template <class P, class T>
ZyPathAndText<P, T> operator>=(P const & path, T const & text)
{
    return path.operator>=(ZyFilePath(text));
}
template <class T, class P>
ZyPathAndText<P, T> operator==(T const & text, P const & path)
{
    return ZyFilePath(text).operator==(path);
}
template <class T, class P>
ZyPathAndText<P, T> operator!=(T const & text, P const & path)
{
    return ZyFilePath(text).operator!=(path);
}
template <class T, class P>
ZyPathAndText<P, T> operator<(T const & text, P const & path)
{
    return ZyFilePath(text).operator<(path);
}
template <class T, class P>
ZyPathAndText<P, T> operator<=(T const & text, P const & path)
{
    return ZyFilePath(text).operator<=(path);
}
template <class T, class P>
ZyPathAndText<P, T> operator>(T const & text, P const & path)
{
    return ZyFilePath(text).operator>(path);
}
template <class T, class P>
ZyPathAndText<P, T> operator>=(T const & text, P const & path)
{
    return ZyFilePath(text).operator>=(path);
}
