#pragma once

#include <cstdint>
#include <istream>
#include <ostream>

inline namespace vexa_toolkit {

class ErrorHandler;

/// BER lengths (ISO/IEC 8825-1, SMPTE 336M).
///
/// A form octet describes how a length is coded: 1 for the short form, one octet below 80
/// hexadecimal; 81 to 88 hexadecimal for the long form, that octet and then 1 to 8 octets, most
/// significant first.
namespace klvutil {

/// No form is in force yet: the start value of every holder of a form. Nothing is written in it.
constexpr std::uint8_t noBERForm = 0x80;

constexpr std::uint8_t shortBERForm = 1;

/// Whether it is the short form or a long one; also true above 88 hexadecimal, in which nothing is
/// written.
constexpr bool isBERForm(std::uint8_t form) {
    return form == shortBERForm || form > noBERForm;
}

/// Octets behind the first one of a length in that form; 0 in the short form.
constexpr std::uint8_t subsequentOctets(std::uint8_t form) {
    return form > noBERForm ? form & 0x7F : 0;
}

/// The form of the lengths that the library chooses itself: 4 octets in all.
constexpr std::uint8_t defaultBERForm = 0x83;

/// The largest length in that form.
constexpr std::uint64_t longestInDefaultForm = 0xFFFFFF;

/// The form of larger ones: 8 octets in all.
constexpr std::uint8_t longBERForm = 0x87;

struct BERLength {
    std::uint64_t value;
    std::uint8_t form;
};

/// Throws parse_error "unsuccessful read()" or "invalid BER long form", which is reported first if
/// there is an error handler.
BERLength readBERLength(std::istream& in, ErrorHandler* errorHandler);

/// Throws util::assertion_failure where the form is none, the value doesn't fit, or the write
/// fails.
void writeBERLength(std::ostream& out, std::uint64_t value, std::uint8_t form);

/// Octets of a length in that form, with the check "valid BER length form".
std::uint8_t berLengthSize(std::uint8_t form);

} // namespace klvutil

} // namespace vexa_toolkit
