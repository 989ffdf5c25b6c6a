// SPDX-License-Identifier: BSD-3-Clause
// Modules as the loader of programs knows them.
#include "Platform/Module.h"

#include <windows.h>

#include <cstddef>
#include <cstring>

namespace
{
/** The last component of a path in UTF-8, cut at a whole character where it does not fit. */
void setFile(ZyPlatform::Module & module, wchar_t const * path)
{
    wchar_t const * name = path;
    for (wchar_t const * at = path; *at != L'\0'; ++at) {
        if (*at == L'\\' || *at == L'/') {
            name = at + 1;
        }
    }
    int const room = static_cast<int>(sizeof module.file) - 1;
    for (int length = lstrlenW(name); length > 0; --length) {
        int const size = WideCharToMultiByte(CP_UTF8, 0, name, length, module.file, room, nullptr, nullptr);
        if (size > 0) {
            module.file[size] = '\0';
            return;
        }
    }
    module.file[0] = '\0';
}
} // namespace

ZyPlatform::Module ZyPlatform::moduleOf(std::uintptr_t address)
{
    Module module;
    HMODULE handle = nullptr;
    LPCWSTR pointer = nullptr;
    std::memcpy(&pointer, &address, sizeof pointer);
    DWORD const how = GET_MODULE_HANDLE_EX_FLAG_FROM_ADDRESS | GET_MODULE_HANDLE_EX_FLAG_UNCHANGED_REFCOUNT;
    // Without an address the system would tell the program.
    if (pointer == nullptr || GetModuleHandleExW(how, pointer, &handle) == 0) {
        return module;
    }
    wchar_t path[4096] = {};
    DWORD const room = sizeof path / sizeof *path;
    if (GetModuleFileNameW(handle, path, room) - 1 < room - 1) {
        setFile(module, path);
    }
    if (module.file[0] != '\0') {
        module.base = reinterpret_cast<std::uintptr_t>(handle);
    }
    return module;
}
