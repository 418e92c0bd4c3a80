#pragma once

#include "klv/KLVReader.h"
#include "klv/NextHandler.h"

#include <atomic>
#include <cstdint>

inline namespace vexa_toolkit {

class Locator;

/// The reader of SMPTE 336M KLV. It keeps nothing between parses but its settings.
///
/// What leaves parse(): klvutil::parse_error for bad input, which the error handler has been told,
/// and whatever a handler throws. The handler has then seen endStream(true), unless it was its
/// endStream that threw (and then nothing is reported), or the stream wasn't good to begin with.
/// Without a handler the check "handler is present" fails. A stream's own exceptions are off during
/// a parse.
class GenericKLVReader : public KLVReader {
public:
    GenericKLVReader() = default;
    explicit GenericKLVReader(KLVHandler& handler) : handler_(handler) {}
    ~GenericKLVReader() override;

    void setHandler(KLVHandler* handler) override;
    KLVHandler& getHandler() override;
    void setErrorHandler(ErrorHandler* errorHandler) override;
    ErrorHandler& getErrorHandler() override;

    /// Position of the stream's first byte, for a stream that can't be asked; 0 at first.
    void setOrigin(std::uint64_t position);

    /// Ends parses as `stop` does as soon as it is set, by any thread; an element that is under way
    /// may break off. Null, as at first, never does. Not owned.
    void setStopRequest(const std::atomic<bool>* stopRequest);

    using KLVReader::parse;
    void parse(std::istream& stream, std::streampos stopAt, bool& stop) override;

private:
    template <class Parse> void parseReporting(Parse parse) const;
    bool parseElements(std::istream& stream, KLVHandler& tracker, const Locator& locator,
                       bool seekable, std::streampos stopAt, const bool& stop) const;
    bool isStopped(bool stop) const;
    void endParse() const;

    NextHandler handler_;
    ErrorHandler* errorHandler_ = nullptr;
    std::uint64_t origin_ = 0;
    const std::atomic<bool>* stopRequest_ = nullptr;
};

} // namespace vexa_toolkit
