// SPDX-License-Identifier: BSD-3-Clause
#pragma once

/** Writes and loads values of a type that the library does not know; whether all of it came back. */
bool bindsItsOwnType();
