#include "support.h"

#include <algorithm>
#include <cstdlib>
#include <iostream>
#include <string_view>
#include <vexa/klv/Locator.h>

namespace fuzz {

void require(bool holds, const char* expectation) {
    if (!holds) {
        finding(expectation);
    }
}

void finding(const std::string& text) {
    std::cerr << "finding: " << text << '\n';
    std::abort();
}

// Streams

InputStreambuf::InputStreambuf(Input input, Seeking seeking, std::size_t readSize,
                               std::size_t failAt)
    : input_(input), seeking_(seeking), readSize_(readSize), failAt_(failAt) {}

InputStreambuf::int_type InputStreambuf::underflow() {
    if (failAt_ <= offset_) {
        throw std::ios_base::failure("bad read");
    }
    const std::uint64_t end = std::min(input_.size, failAt_);
    if (offset_ >= end) {
        return traits_type::eof();
    }
    const std::uint64_t size = std::min<std::uint64_t>(readSize_, end - offset_);
    // The get area is only read: nothing is put back that isn't there already.
    auto* const begin = const_cast<char*>(reinterpret_cast<const char*>(input_.data)) +
                        static_cast<off_type>(offset_);
    setg(begin, begin, begin + size);
    offset_ += size;
    return traits_type::to_int_type(*begin);
}

InputStreambuf::pos_type InputStreambuf::seekoff(off_type offset, std::ios_base::seekdir way,
                                                 std::ios_base::openmode) {
    const pos_type failure(off_type(-1));
    if (seeking_ == Seeking::None) {
        return failure;
    }
    const off_type present = static_cast<off_type>(offset_) - (egptr() - gptr());
    const auto size = static_cast<off_type>(input_.size);
    const off_type base = way == std::ios_base::beg   ? 0
                          : way == std::ios_base::cur ? present
                                                      : size;
    if (offset < -base || offset > std::numeric_limits<off_type>::max() - base ||
        (seeking_ == Seeking::WithinData && offset > size - base)) {
        return failure;
    }
    offset_ = static_cast<std::uint64_t>(base + offset);
    setg(nullptr, nullptr, nullptr);
    return pos_type(base + offset);
}

InputStreambuf::pos_type InputStreambuf::seekpos(pos_type position, std::ios_base::openmode which) {
    return seekoff(off_type(position), std::ios_base::beg, which);
}

InputStream::InputStream(Input input, Seeking seeking, std::size_t readSize, std::size_t failAt)
    : std::istream(nullptr), buffer_(input, seeking, readSize, failAt) {
    rdbuf(&buffer_);
}

// Digests

std::uint64_t digestOf(const void* data, std::uint64_t size) {
    return std::hash<std::string_view>()({static_cast<const char*>(data), size});
}

std::uint64_t digestOf(const std::string& text) {
    return digestOf(text.data(), text.size());
}

std::uint64_t digestOf(const KLVKey& key) {
    return digestOf(key.bytes.data(), KLVKey::size);
}

void Trail::mix(std::uint64_t number) {
    digest_ = (digest_ ^ number) * 0x9E3779B97F4A7C15;
    digest_ ^= digest_ >> 29;
}

void Trail::add(const char* event, std::initializer_list<std::uint64_t> numbers) {
    mix(digestOf(event, std::char_traits<char>::length(event)));
    for (const std::uint64_t number : numbers) {
        mix(number);
    }
    if (++count_ == watched_) {
        digestAtWatched_ = digest_;
    }
}

void Trail::markFailure() {
    if (!failed_) {
        failed_ = true;
        countBeforeFailure_ = count_;
        digestBeforeFailure_ = digest_;
    }
}

void checkSame(const Run& unseekable, const Run& seekable, Seeking seeking) {
    const bool lacksBytes = unseekable.failure == "unsuccessful ignore()";
    if (lacksBytes && seeking == Seeking::Anywhere) {
        // The seek that takes the place of the failed skip leads beyond the end, which is noticed
        // later.
        require(seekable.stopped || !seekable.failure.empty(), "a value cut short is noticed");
        require(unseekable.trail.digestBeforeFailure() == seekable.trail.digestAtWatched(),
                "same events up to a value that is cut short, seekable or not");
        return;
    }
    require(seekable.failure == (lacksBytes ? "unsuccessful seekg()" : unseekable.failure),
            "same failure, seekable or not");
    require(unseekable.trail.digest() == seekable.trail.digest(), "same events, seekable or not");
}

// Reports

void CheckingErrorHandler::checkFailed(const klvutil::parse_error& error) const {
    require(failed_ && fatalCode_ == error.code() && fatalText_ == error.what(),
            "the failure is the one reported");
    require(!inParse_, "endParse follows a failure");
}

void CheckingErrorHandler::checkSucceeded() const {
    require(!failed_, "a failure reported leaves the parse");
    require(!inParse_, "endParse follows the parse");
}

void CheckingErrorHandler::setLocator(const Locator* locator) {
    require(!inParse_ && locator != nullptr, "setLocator comes once, before startParse");
    locator_ = locator;
}

void CheckingErrorHandler::startParse() {
    require(!inParse_ && locator_ != nullptr, "startParse follows setLocator");
    inParse_ = true;
}

void CheckingErrorHandler::endParse() {
    require(inParse_, "endParse follows startParse");
    inParse_ = false;
    locator_ = nullptr;
}

void CheckingErrorHandler::warning(const MXFUID& code, const std::string& text) {
    add("warning", code, text);
}

void CheckingErrorHandler::error(const MXFUID& code, const std::string& text) {
    add("error", code, text);
}

void CheckingErrorHandler::fatalError(const MXFUID& code, const std::string& text) {
    trail_.markFailure();
    // Where a stream without seeking ignores, another one seeks.
    add("fatalError", code, text == "unsuccessful ignore()" ? "unsuccessful seekg()" : text);
    failed_ = true;
    fatalCode_ = code;
    fatalText_ = text;
}

void CheckingErrorHandler::add(const char* severity, const MXFUID& code, const std::string& text) {
    require(!failed_, "nothing is reported after a fatal error");
    require(!text.empty(), "a report has a text");
    const auto position = locator_ != nullptr ? std::streamoff(locator_->getPosition()) : -1;
    trail_.add(severity, {digestOf(code.bytes.data(), MXFUID::size), digestOf(text),
                          static_cast<std::uint64_t>(position)});
}

} // namespace fuzz
