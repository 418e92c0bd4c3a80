#pragma once

#include "support/Recorder.h"

/// What is wrong with recorded lines by the grammars of the interfaces, "" if nothing is: what
/// starts ends, within what may be around it; elements lie in their stream without a gap, as long
/// as announced, and their values come whole. `wants` is that of the KLV recorders.
std::string grammarFault(const Lines& lines, Wants wants = Wants::Everything);
