#include "klv/berLength.h"

#include "klv/bigEndian.h"
#include "klv/faults.h"
#include "klv/streams.h"
#include "util/check.h"

#include <array>

inline namespace vexa_toolkit {

namespace klvutil {

namespace {

constexpr std::uint8_t longFormBit = 0x80;
constexpr std::uint8_t mostOctets = 8;

constexpr bool isLong(std::uint8_t form) {
    return (form & longFormBit) != 0;
}

} // namespace

BERLength readBERLength(std::istream& in, ErrorHandler* errorHandler) {
    const auto first = static_cast<std::uint8_t>(readNumber(in, 1, errorHandler));
    if (!isLong(first)) {
        return {first, shortBERForm};
    }
    const std::uint8_t n = subsequentOctets(first);
    if (n == 0 || n > mostOctets) {
        fail(errorHandler, faults::invalidBERLength, describe(first));
    }
    return {readNumber(in, n, errorHandler), first};
}

void writeBERLength(std::ostream& out, std::uint64_t value, std::uint8_t form) {
    std::array<std::uint8_t, 1 + mostOctets> octets{};
    std::uint8_t n = 0;
    if (isLong(form)) {
        util::check(form > noBERForm, "long form");
        n = subsequentOctets(form);
        util::check(n <= mostOctets, "valid long form");
        util::check(n == mostOctets || value >> (8 * n) == 0, "enough subsequent octets");
        octets[0] = form;
        toOctets(value, octets.data() + 1, n);
    } else {
        util::check(form == shortBERForm, "valid current form");
        util::check(value < longFormBit, "valid short form length");
        octets[0] = static_cast<std::uint8_t>(value);
    }
    out.write(reinterpret_cast<const char*>(octets.data()), 1 + n);
    util::check(out.good(), "successful write()");
}

std::uint8_t berLengthSize(std::uint8_t form) {
    util::check(isBERForm(form), "valid BER length form");
    return static_cast<std::uint8_t>(1 + subsequentOctets(form));
}

} // namespace klvutil

} // namespace vexa_toolkit
