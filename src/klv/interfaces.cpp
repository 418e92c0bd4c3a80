#include "klv/KLVFilter.h"
#include "klv/KLVReader.h"
#include "klv/streams.h"

#include <vexa/klv/ErrorHandler.h>
#include <vexa/klv/KLVHandler.h>
#include <vexa/klv/Locator.h>
#include <vexa/klv/MXFUIDGenerator.h>
#include <vexa/klv/parse_error.h>

inline namespace vexa_toolkit {

// The destructors anchor each class's run-time type information in this library.

ErrorHandler::~ErrorHandler() = default;
KLVFilter::~KLVFilter() = default;
KLVHandler::~KLVHandler() = default;
KLVReader::~KLVReader() = default;
Locator::~Locator() = default;
MXFUIDGenerator::~MXFUIDGenerator() = default;

void KLVReader::parse(std::istream& stream, std::streampos stopAt) {
    bool stop = false;
    parse(stream, stopAt, stop);
}

void KLVReader::parse(std::istream& stream) {
    parse(stream, klvutil::noPosition);
}

namespace klvutil {

parse_error::parse_error(const MXFUID& code, const std::string& text, bool reported)
    : std::runtime_error(text), code_(code), reported_(reported) {}

parse_error::~parse_error() = default;

} // namespace klvutil

} // namespace vexa_toolkit
