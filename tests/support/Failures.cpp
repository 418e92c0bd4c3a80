#include "support/Failures.h"

#include <vexa/klv/ErrorCode.h>
#include <vexa/klv/parse_error.h>
#include <vexa/util/assertion_failure.h>

#include <gtest/gtest.h>

#include <iomanip>
#include <sstream>

std::string failureOf(const std::function<void()>& call) {
    const std::string prefix = "assertion failure: ";
    try {
        call();
    } catch (const util::assertion_failure& failure) {
        const std::string text = failure.what();
        return text.rfind(prefix, 0) == 0 ? text.substr(prefix.size()) : "no prefix: " + text;
    } catch (const klvutil::parse_error& error) {
        const klvutil::ErrorCode code = klvutil::toErrorCode(error.code());
        std::ostringstream out;
        out << std::hex << std::uppercase << std::setfill('0') << std::setw(8)
            << static_cast<std::uint32_t>(code) << ' ' << error.what();
        return klvutil::toUID(code) == error.code() ? out.str() : "foreign code: " + out.str();
    } catch (const std::exception& error) {
        return error.what();
    }
    return {};
}

void expectFailures(
    std::initializer_list<std::pair<const char*, std::function<void()>>> failuresOfCalls) {
    for (const auto& row : failuresOfCalls) {
        EXPECT_EQ(row.first, failureOf(row.second)) << "row " << &row - failuresOfCalls.begin();
    }
}
