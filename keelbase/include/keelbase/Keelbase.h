// SPDX-License-Identifier: BSD-3-Clause
// The whole support library, but for the side that is for hosts and tests only (KbHost.h).
#pragma once

#include <keelbase/KbPrintf.h>
#include <keelbase/KbSystem.h>
#include <keelbase/KbTypes.h>
#include <keelbase/YString.h>
