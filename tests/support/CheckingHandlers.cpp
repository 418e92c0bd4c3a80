#include "support/CheckingHandlers.h"

#include <algorithm>
#include <cstdlib>
#include <iostream>
#include <string_view>

namespace checking {

void require(bool holds, const char* expectation) {
    if (!holds) {
        finding(expectation);
    }
}

void finding(const std::string& text) {
    std::cerr << "finding: " << text << '\n';
    std::abort();
}

// Digests

std::uint64_t digestOf(const void* data, std::uint64_t size) {
    return std::hash<std::string_view>()({static_cast<const char*>(data), size});
}

void Trail::add(const char* event, std::initializer_list<std::uint64_t> numbers) {
    const auto mix = [this](std::uint64_t number) {
        digest_ = (digest_ ^ number) * 0x9E3779B97F4A7C15;
        digest_ ^= digest_ >> 29;
    };
    mix(digestOf(event, std::char_traits<char>::length(event)));
    std::for_each(numbers.begin(), numbers.end(), mix);
}

// Reports

void CheckingErrorHandler::checkOutcome(const klvutil::parse_error* error) const {
    require(!inParse_, "endParse follows the parse");
    require(failed_ == (error != nullptr), "what was reported as fatal leaves the parse");
    require(error == nullptr || (fatalCode_ == error->code() && fatalText_ == error->what()),
            "the failure is the one reported");
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

void CheckingErrorHandler::fatalError(const MXFUID& code, const std::string& text) {
    // Where a stream without seeking ignores, another one seeks.
    add("f", code, text == "unsuccessful ignore()" ? "unsuccessful seekg()" : text);
    failed_ = true;
    fatalCode_ = code;
    fatalText_ = text;
}

void CheckingErrorHandler::add(const char* severity, const MXFUID& code, const std::string& text) {
    require(!failed_, "nothing is reported after a fatal error");
    require(!text.empty(), "a report has a text");
    const auto position = locator_ != nullptr ? std::streamoff(locator_->getPosition()) : -1;
    trail_.add(severity,
               {digestOf(code.bytes.data(), MXFUID::size), digestOf(text.data(), text.size()),
                static_cast<std::uint64_t>(position)});
}

// Outcome

std::string failureOf(const CheckingErrorHandler* errors, const std::function<void()>& parse) {
    std::string failure;
    try {
        parse();
        if (errors != nullptr) {
            errors->checkOutcome(nullptr);
        }
    } catch (const klvutil::parse_error& error) {
        failure = error.what();
        require(!failure.empty(), "a failure has a text");
        if (errors != nullptr) {
            errors->checkOutcome(&error);
        }
    } catch (const std::exception& error) {
        finding(std::string("unexpected exception: ") + error.what());
    }
    return failure;
}

} // namespace checking
