// SPDX-License-Identifier: BSD-3-Clause
// Paths: the normal form beside the one that takes it step by step, the parts, and the way from one path to
// another. The input is two texts, with a line feed between them.
#include <ZyFilePath.h>

#include "Fuzz.h"

#include <filesystem>
#include <stdexcept>
#include <vector>

namespace
{
std::string textOf(ZyFilePath const & path)
{
    return path.path().toStdString();
}
std::string textOf(ZyStringView const & view)
{
    return view.toString().toStdString();
}

std::string trimmed(std::string_view text)
{
    while (!text.empty() && ZyString::IsWhiteSpace(text.front())) {
        text.remove_prefix(1);
    }
    while (!text.empty() && ZyString::IsWhiteSpace(text.back())) {
        text.remove_suffix(1);
    }
    return std::string(text);
}

// The normal form by way of the segments: two separators at the start stay, empty segments go.
std::string normal(std::string_view given)
{
    std::string text = trimmed(given);
    std::replace(text.begin(), text.end(), '/', '\\');
    bool const isNetwork = Fuzz::startsWith(text, "\\\\");
    bool const isRooted = Fuzz::startsWith(text, "\\");
    bool const isDirectory = !text.empty() && text.back() == '\\';
    std::string result = isNetwork ? "\\\\" : isRooted ? "\\" : "";
    for (std::string_view rest = text; !rest.empty();) {
        std::string_view const segment = rest.substr(0, rest.find('\\'));
        rest.remove_prefix(std::min(rest.size(), segment.size() + 1));
        if (!segment.empty()) {
            result.append(segment).append("\\");
        }
    }
    bool const hasSegment = result.find_first_not_of('\\') != std::string::npos;
    if (hasSegment && !isDirectory) {
        result.pop_back();
    }
    return result;
}

bool isInside(ZyStringView const & view, ZyFilePath const & path)
{
    std::string const & text = path.path().toStdString();
    return view.size() == 0 ||
           (&view[0] >= text.data() && &view[0] + view.size() <= text.data() + text.size());
}

void checkNormalForm(std::string const & given, ZyFilePath const & path)
{
    std::string const text = textOf(path);
    Fuzz::require(text == normal(given), "step by step gives the same");
    Fuzz::require(textOf(ZyFilePath(ZyString(text))) == text, "the normal form is its own");
    Fuzz::require(textOf(ZyFilePath(std::string(text))) == text, "from every kind of text");
    Fuzz::require(textOf(ZyFilePath(ZyStringView(path.path()))) == text, "from a view");
    Fuzz::require(path.isDirectory() == (!text.empty() && text.back() == '\\'), "a directory by its end");
    Fuzz::require(path.isFile() != path.isDirectory(), "a file or a directory");
    Fuzz::require(path.isNull() == text.empty(), "null is empty");
}

void checkParts(ZyFilePath const & path)
{
    std::string const text = textOf(path);
    for (ZyStringView const & view :
         {path.rootName(), path.filename(), path.extension(), path.stem(), path.parentPath()}) {
        Fuzz::require(isInside(view, path), "a part lies in the path");
    }
    Fuzz::require(path.isAbsolute() == (path.rootName().size() > 0), "absolute by its root");
    Fuzz::require(path.isRelative() != path.isAbsolute(), "relative or absolute");
    Fuzz::require(Fuzz::startsWith(text, textOf(path.rootName())), "the root comes first");
    Fuzz::require(textOf(path.stem()) + textOf(path.extension()) == textOf(path.filename()),
                  "stem and extension");
    std::string const parent = textOf(path.parentPath());
    std::string const rejoined = parent + textOf(path.filename()) + (path.isDirectory() ? "\\" : "");
    Fuzz::require(parent == text || rejoined == text, "parent and name");
    Fuzz::require(path.isAncestor(path), "a path is its own ancestor");
}

void checkConversions(ZyFilePath const & path)
{
    try {
        std::wstring const wide = path.toWString();
        ZyFilePath const back(wide);
        bool const isReplaced = wide.find(L'\uFFFD') != std::wstring::npos;
        bool const isCut = textOf(path).find('\0') != std::string::npos;
        Fuzz::require(isReplaced || isCut || textOf(back) == textOf(path), "wide text and back");
    } catch (std::range_error const & failure) {
        Fuzz::require(std::string_view(failure.what()) == "bad conversion",
                      "words for what cannot be converted");
    }
    // The standard path has separators of its own; on systems where the backslash is a character it stays
    // one.
    std::string const text = textOf(path);
    Fuzz::require(textOf(ZyFilePath(std::filesystem::path(text))) == text, "from the standard path");
}

void checkPair(ZyFilePath const & base, ZyFilePath const & path)
{
    ZyFilePath const joined = base.appended(path);
    Fuzz::require(textOf(ZyFilePath(joined.path())) == textOf(joined), "joined in normal form");
    if (base.isDirectory() && !path.isNull() && path.isFile() &&
        textOf(path).find('\\') == std::string::npos) {
        Fuzz::require(base.isAncestor(joined), "what is appended lies below");
    }
    ZyFilePath absolute;
    std::string const failure = Fuzz::failureOf([&] { absolute = base.absolute(path); });
    if (failure.empty()) {
        Fuzz::require(textOf(ZyFilePath(absolute.path())) == textOf(absolute), "absolute in normal form");
        Fuzz::require(path.isRelative() || textOf(absolute) == textOf(path), "what has a root stays");
    } else {
        Fuzz::require(
            failure == "ZyInvalidCallException: Cannot generate absolute path from relative base path" ||
                Fuzz::startsWith(failure, "ZyInvalidCallException: Path becomes invalid:"),
            "two reasons to have no absolute path");
    }
    ZyFilePath relative;
    std::string const refused = Fuzz::failureOf([&] { relative = base.relative(path); });
    bool const rooted = base.isAbsolute() && path.isAbsolute();
    Fuzz::require(
        refused ==
            (rooted ? "" : "ZyInvalidCallException: Cannot find relative path when one is already relative"),
        "relative wants two roots");
    Fuzz::require(textOf(ZyFilePath(relative.path())) == textOf(relative), "relative in normal form");
}

void checkOrder(ZyFilePath const & a, ZyFilePath const & b)
{
    int const relations = (a < b ? 1 : 0) + (a == b ? 1 : 0) + (a > b ? 1 : 0);
    Fuzz::require(relations == 1, "less, equal or greater");
    Fuzz::require((a <= b) == !(a > b) && (a >= b) == !(a < b) && (a != b) == !(a == b),
                  "and their opposites");
}
} // namespace

extern "C" int LLVMFuzzerTestOneInput(std::uint8_t const * data, std::size_t size)
{
    Fuzz::Input input(data, size);
    std::string const first(input.line());
    std::string const second(input.rest());
    ZyFilePath const base{ZyString(first)};
    ZyFilePath const path{ZyString(second)};
    checkNormalForm(first, base);
    checkNormalForm(second, path);
    checkParts(base);
    checkParts(path);
    checkConversions(base);
    checkPair(base, path);
    checkPair(path, base);
    checkOrder(base, path);
    return 0;
}
