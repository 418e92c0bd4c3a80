#pragma once

#include <functional>
#include <initializer_list>
#include <string>
#include <utility>

/// What a call throws: the condition of a util::assertion_failure, the code and text of a
/// klvutil::parse_error such as `4C4A0001 unsuccessful read()`, the text of another exception, or
/// nothing.
std::string failureOf(const std::function<void()>& call);

/// Expects of each call that it throws what is said before it.
void expectFailures(
    std::initializer_list<std::pair<const char*, std::function<void()>>> failuresOfCalls);
