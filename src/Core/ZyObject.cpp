// SPDX-License-Identifier: BSD-3-Clause
// Where the virtual table of type-erased values lives.
#include <ZyObject.h>

ZyObject::~ZyObject() = default;
