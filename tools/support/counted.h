#pragma once

#include <string>

/// As "1 byte" and "2 bytes"; `many` where an s doesn't make the plural.
template <class Number>
std::string counted(Number number, const std::string& one, const std::string& many = "") {
    return std::to_string(number) + ' ' + (number == 1 ? one : many.empty() ? one + 's' : many);
}
