#pragma once

#include <vexa/vexa.h>

/// An interrupt from the terminal stopped a read. No std::exception: what was begun is to be put
/// away, not explained.
struct Interrupted {};

/// VEXAReader::read, which an interrupt from the terminal ends with Interrupted. One at a time.
void readInterruptibly(VEXAReader& reader);

/// Ends the process as the interrupt would have done.
[[noreturn]] void dieInterrupted();
