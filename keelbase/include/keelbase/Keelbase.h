// SPDX-License-Identifier: BSD-3-Clause
// The whole support library, but for the side that is for hosts and tests only (KbHost.h).
#pragma once

#include <keelbase/KbConfig.h>
#include <keelbase/KbExport.h>
#include <keelbase/KbPrintf.h>
#include <keelbase/KbRegistry.h>
#include <keelbase/KbShell.h>
#include <keelbase/KbSystem.h>
#include <keelbase/KbText.h>
#include <keelbase/KbTypes.h>
#include <keelbase/YContainers.h>
#include <keelbase/YString.h>
