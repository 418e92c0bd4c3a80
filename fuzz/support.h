#pragma once

#include "support/CheckingHandlers.h"
#include "support/TestStream.h"

#include <functional>
#include <istream>
#include <string>
#include <vector>

/// What the fuzz targets share.
namespace fuzz {

using namespace checking;

/// The bytes to read are the input but for its last byte, which chooses how they are read: what
/// real files begin with stays where it is when they are taken as input.
struct Input {
    Input(const std::uint8_t* data, std::size_t size);

    std::vector<std::uint8_t> bytes;
    Wants wants;
    bool withErrorHandler;
    std::size_t readSize;
    std::uint64_t failAt;
    /// 0 to 7, for the target's own use.
    unsigned choice;
};

struct Run {
    Trail trail;
    std::string failure;
    /// By the handler.
    bool stopped = false;
};

/// Reads the input on a stream without seeking, and on streams that seek as memory and as files do.
/// All must tell the same. Returns the first run.
Run readEachWay(const Input& input, const std::function<void(std::istream&, Run&)>& read);

/// Each fuzz_*.cpp defines it.
void testInput(const Input& input);

} // namespace fuzz
