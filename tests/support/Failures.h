#pragma once

#include <functional>
#include <string>

/// What a call throws: the condition of a util::assertion_failure, the code and text of a
/// klvutil::parse_error such as `4C4A0001 unsuccessful read()`, the text of another exception, or
/// nothing.
std::string failureOf(const std::function<void()>& call);
