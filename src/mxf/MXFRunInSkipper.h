#pragma once

#include <cstdint>
#include <istream>

inline namespace vexa_toolkit {

class ErrorHandler;

/// Finds a file's first partition pack behind its run-in (SMPTE 377M, run-in sequence), by the
/// first 11 bytes that all partition pack keys share.
class MXFRunInSkipper {
public:
    /// The longest run-in that a file may have.
    static constexpr std::uint32_t longestRunIn = 65535;

    /// Bytes that it looks for, and puts back on a stream that can't seek.
    static constexpr std::uint32_t patternSize = 11;

    /// May be null, and is not owned.
    void setErrorHandler(ErrorHandler* errorHandler);

    /// Leaves the stream at the first byte of the key, and returns the length of the run-in, at
    /// most `maxLength`. Throws klvutil::parse_error "invalid run-in" if there is none so short,
    /// and for a stream that fails or takes nothing back; the error handler has been told then.
    std::uint32_t skip(std::istream& in, std::uint32_t maxLength);

private:
    void goBack(std::istream& in) const;

    ErrorHandler* errorHandler_ = nullptr;
};

} // namespace vexa_toolkit
