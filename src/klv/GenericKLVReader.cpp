#include "klv/GenericKLVReader.h"

#include "klv/KLVElement.h"
#include "klv/KLVFillItemKeyFilter.h"
#include "klv/KLVMonitor.h"
#include "klv/KLVTeller.h"
#include "klv/berLength.h"
#include "klv/faults.h"
#include "klv/fillItem.h"
#include "klv/positionOf.h"
#include "klv/streams.h"
#include "util/attempt.h"
#include "util/check.h"

#include <vexa/klv/ErrorHandler.h>
#include <vexa/klv/parse_error.h>

inline namespace vexa_toolkit {

namespace faults = klvutil::faults;

namespace {

bool reached(std::streamoff stopAt, std::streamoff position) {
    return stopAt != klvutil::noPosition && stopAt <= position;
}

} // namespace

GenericKLVReader::~GenericKLVReader() = default;

void GenericKLVReader::setHandler(KLVHandler* handler) {
    handler_.set(handler);
}

KLVHandler& GenericKLVReader::getHandler() {
    return handler_.get();
}

void GenericKLVReader::setErrorHandler(ErrorHandler* errorHandler) {
    errorHandler_ = errorHandler;
}

ErrorHandler& GenericKLVReader::getErrorHandler() {
    util::check(errorHandler_ != nullptr, "error handler is present");
    return *errorHandler_;
}

void GenericKLVReader::setOrigin(std::uint64_t position) {
    origin_ = position;
}

void GenericKLVReader::setStopRequest(const std::atomic<bool>* stopRequest) {
    stopRequest_ = stopRequest;
}

bool GenericKLVReader::isStopped(bool stop) const {
    return stop || (stopRequest_ != nullptr && stopRequest_->load(std::memory_order_relaxed));
}

template <class Parse> void GenericKLVReader::parseReporting(Parse parse) const {
    try {
        parse();
    } catch (klvutil::parse_error& error) {
        if (errorHandler_ != nullptr && !error.reportedTo(*errorHandler_)) {
            error.setReportedTo(*errorHandler_);
            errorHandler_->fatalError(error.code(), error.what());
        }
        throw;
    }
}

void GenericKLVReader::parse(std::istream& stream, std::streampos stopAt, bool& stop) {
    KLVHandler& handler = getHandler();
    if (!stream.good()) {
        klvutil::fail(errorHandler_, faults::streamNotGood);
    }
    const klvutil::NoStreamExceptions noStreamExceptions(stream);
    KLVFillItemKeyFilter fillFilter(handler, klvutil::fillKeyVersion(stream));
    fillFilter.setErrorHandler(errorHandler_);
    const bool seekable = klvutil::isSeekable(stream);
    KLVTeller teller(stream, fillFilter);
    KLVMonitor monitor(fillFilter);
    monitor.getLocator().add(origin_);
    KLVHandler& tracker = seekable ? static_cast<KLVHandler&>(teller) : monitor;
    const Locator& locator =
        seekable ? static_cast<const Locator&>(teller.getLocator()) : monitor.getLocator();

    bool stopped = false;
    const auto parseStream = [&] {
        if (errorHandler_ != nullptr) {
            errorHandler_->setLocator(&locator);
            errorHandler_->startParse();
        }
        tracker.startStream(true);
        stopped =
            isStopped(stop) || parseElements(stream, tracker, locator, seekable, stopAt, stop);
    };
    const auto parseAll = [&] {
        util::attempt([&] { parseReporting(parseStream); }, [&] { tracker.endStream(true); });
        tracker.endStream(stopped);
    };
    util::attempt(parseAll, [&] { endParse(); });
    endParse();
}

void GenericKLVReader::endParse() const {
    if (errorHandler_ != nullptr) {
        errorHandler_->endParse();
    }
}

/// True if it was stopped.
bool GenericKLVReader::parseElements(std::istream& stream, KLVHandler& tracker,
                                     const Locator& locator, bool seekable, std::streampos stopAt,
                                     const bool& stop) const {
    std::uint8_t form = klvutil::noBERForm;
    klvelements::KLVParse parse;
    parse.stopRequest = stopRequest_;
    for (;;) {
        const KLVKey key = klvutil::readKey(stream, nullptr);
        if (!klvelements::parseKLVElement(key, stream, tracker, form, locator, seekable, &parse)) {
            return true;
        }
        // It may fail when it is asked for its position, too.
        if (stream.bad() || locator.getPosition() == klvutil::noPosition) {
            klvutil::fail(faults::unsuccessfulRead);
        }
        util::check(stream.good(), "successful parse() implies input stream is good");
        if (isStopped(stop)) {
            return true;
        }
        if (reached(stopAt, locator.getPosition())) {
            return false;
        }
        klvutil::peekEnd(stream);
        if (stream.bad()) {
            klvutil::fail(faults::unsuccessfulRead);
        }
        if (stream.eof()) {
            const bool skipped = parse.skippedTo == klvutil::positionOf(locator);
            if (skipped && !klvutil::endsBehindAByte(stream)) {
                klvutil::fail(faults::unsuccessfulRead); // the last value was cut short
            }
            return false;
        }
    }
}

} // namespace vexa_toolkit
