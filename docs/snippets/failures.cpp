// SPDX-License-Identifier: BSD-3-Clause
// Catching what the library throws.
#include <ZyCore.h>

#include <exception>
#include <iostream>
#include <stdexcept>

// The outermost handler of a program or a thread catches two families.
template <class Work>
void guarded(Work work)
{
    try {
        work();
    } catch (ZyFileException const & problem) { // a branch of the tree: it knows the file
        std::cout << problem.name() << " at " << problem.path1().path().c_str() << '\n';
    } catch (ZyException const & problem) {
        std::cout << problem.name() << ": " << problem.what() << '\n';
    } catch (std::exception const & problem) { // the standard library's, and what text turns into
        std::cout << "std: " << problem.what() << '\n';
    }
}

int main()
{
    guarded([] { ZyFile(ZyFilePath("no/such.csv")).open(ZyIODevice::Read); });
    guarded([] { ZyVariant(12).asString(); });
    guarded([] { ZyUniquePtr<ZyString>()->size(); });
    guarded([] { ZyStringLongLongConverter().convert(ZyString("twelve")); });
}
