// SPDX-License-Identifier: BSD-3-Clause
// How long processors have worked for us.
#pragma once

/** Processor time of the calling thread so far, in seconds. */
double threadSeconds();

/** Processor time of the whole process so far, in seconds. */
double processSeconds();
