// SPDX-License-Identifier: BSD-3-Clause
// Everything at once. tools/check_umbrella.py --write makes this file from the other headers.
#pragma once

#include <ZyBase64Converter.h>
#include <ZyByteArray.h>
#include <ZyCaseSensitiveString.h>
#include <ZyComparableString.h>
#include <ZyContainer.h>
#include <ZyCoreFwd.h>
#include <ZyDeque.h>
#include <ZyException.h>
#include <ZyExport.h>
#include <ZyFileException.h>
#include <ZyFilePath.h>
#include <ZyIterator.h>
#include <ZyList.h>
#include <ZyMaths.h>
#include <ZyMatrix.h>
#include <ZyObject.h>
#include <ZyPair.h>
#include <ZyPoint.h>
#include <ZyPrivateObject.h>
#include <ZyRef.h>
#include <ZySharedPtr.h>
#include <ZyString.h>
#include <ZyStringConverter.h>
#include <ZyStringView.h>
#include <ZyThrow.h>
#include <ZyTypes.h>
#include <ZyUniquePtr.h>
#include <ZyVariant.h>
#include <ZyVector.h>
