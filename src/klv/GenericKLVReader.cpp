#include "klv/GenericKLVReader.h"

#include "klv/KLVElement.h"
#include "klv/KLVFillItemKeyFilter.h"
#include "klv/KLVMonitor.h"
#include "klv/KLVTeller.h"
#include "klv/berLength.h"
#include "klv/faults.h"
#include "klv/fillItem.h"
#include "klv/streams.h"
#include "util/check.h"
#include "util/quietly.h"

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

template <class Parse> void GenericKLVReader::parseReporting(Parse parse) const {
    try {
        parse();
    } catch (klvutil::parse_error& error) {
        if (errorHandler_ != nullptr && !error.reported()) {
            error.setReported();
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

    try {
        parseReporting([&] {
            if (errorHandler_ != nullptr) {
                errorHandler_->setLocator(&locator);
                errorHandler_->startParse();
            }
            tracker.startStream(true);
            if (!stop) {
                parseElements(stream, tracker, locator, seekable, stopAt, stop);
            }
        });
    } catch (...) {
        util::quietly([&] { tracker.endStream(true); });
        util::quietly([&] { endParse(); });
        throw;
    }
    try {
        tracker.endStream(stop);
    } catch (...) {
        util::quietly([&] { endParse(); });
        throw;
    }
    endParse();
}

void GenericKLVReader::endParse() const {
    if (errorHandler_ != nullptr) {
        errorHandler_->endParse();
    }
}

void GenericKLVReader::parseElements(std::istream& stream, KLVHandler& tracker,
                                     const Locator& locator, bool seekable, std::streampos stopAt,
                                     const bool& stop) {
    std::uint8_t form = klvutil::noBERForm;
    for (;;) {
        const KLVKey key = klvutil::readKey(stream, nullptr);
        klvelements::parseKLVElement(key, stream, tracker, form, locator, seekable);
        // It may fail when it is asked for its position, too.
        if (stream.bad() || locator.getPosition() == klvutil::noPosition) {
            klvutil::fail(faults::unsuccessfulRead);
        }
        util::check(stream.good(), "successful parse() implies input stream is good");
        if (stop || reached(stopAt, locator.getPosition())) {
            return;
        }
        klvutil::peekEnd(stream);
        if (stream.bad()) {
            klvutil::fail(faults::unsuccessfulRead);
        }
        if (stream.eof()) {
            // A seek in a file may lead beyond its end: the last value was cut short.
            stream.clear();
            if (seekable && (klvutil::isBeyondEnd(stream) || !stream.good())) {
                klvutil::fail(faults::unsuccessfulRead);
            }
            stream.setstate(std::ios_base::eofbit);
            return;
        }
    }
}

} // namespace vexa_toolkit
