// SPDX-License-Identifier: BSD-3-Clause
// Files by names in UTF-8.
#include <keelbase/KbSystem.h>

#include <algorithm>
#include <string>

#ifdef _WIN32
#include <cwchar>
#endif

std::FILE * fopen_s_utf8(YString const & path, char const * mode)
{
#ifdef _WIN32
    std::wstring wideMode = UTFString(mode).getWide();
    wideMode += L'N'; // not inherited
    return ::_wfopen(UTFString(path.c_str()).getWide(), wideMode.c_str());
#else
    std::string native = path.c_str();
    std::replace(native.begin(), native.end(), '\\', '/');
    return std::fopen(native.c_str(), (std::string(mode) + 'e').c_str());
#endif
}

YString sp_GetFileName(char const * path)
{
    std::string const text = path ? path : "";
    auto const slash = text.find_last_of("/\\");
    return slash == std::string::npos ? text : text.substr(slash + 1);
}
