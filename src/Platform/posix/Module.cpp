// SPDX-License-Identifier: BSD-3-Clause
// Modules as the loader of programs knows them.
#include "Platform/Module.h"

#include <dlfcn.h>
#include <unistd.h>

#ifdef __linux__
#include <sys/auxv.h>
#endif

#include <algorithm>
#include <climits>
#include <cstddef>
#include <cstring>

namespace
{
/** For the program the loader only knows the word that it was started with, which may be anything. */
bool isProgram(Dl_info const & found)
{
#ifdef __linux__
    void * headers = nullptr;
    unsigned long const address = getauxval(AT_PHDR);
    std::memcpy(&headers, &address, sizeof headers);
    Dl_info program = {};
    return dladdr(headers, &program) != 0 && program.dli_fbase == found.dli_fbase;
#else
    static_cast<void>(found);
    return false;
#endif
}

void setFile(ZyPlatform::Module & module, char const * path)
{
    char const * const slash = std::strrchr(path, '/');
    char const * const name = slash != nullptr ? slash + 1 : path;
    std::size_t const size = std::min(std::strlen(name), sizeof module.file - 1);
    std::memcpy(module.file, name, size);
    module.file[size] = '\0';
}
} // namespace

ZyPlatform::Module ZyPlatform::moduleOf(std::uintptr_t address)
{
    Module module;
    void * pointer = nullptr;
    std::memcpy(&pointer, &address, sizeof pointer);
    Dl_info found = {};
    if (dladdr(pointer, &found) == 0 || found.dli_fname == nullptr) {
        return module;
    }
    setFile(module, found.dli_fname);
    char program[PATH_MAX + 1] = {};
    if (isProgram(found) && readlink("/proc/self/exe", program, sizeof program - 1) > 0) {
        setFile(module, program);
    }
    std::memcpy(&module.base, &found.dli_fbase, sizeof module.base);
    if (module.file[0] == '\0') {
        module.base = 0;
    }
    return module;
}
