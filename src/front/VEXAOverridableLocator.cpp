#include "front/VEXAOverridableLocator.h"

#include "util/check.h"

#include <utility>

inline namespace vexa_toolkit {

VEXAOverridableLocator::~VEXAOverridableLocator() = default;

const std::streampos& VEXAOverridableLocator::getPosition() const {
    if (overridden_) {
        return override_;
    }
    util::check(inner_ != nullptr, "has locator");
    return inner_->getPosition();
}

void VEXAOverridableLocator::setOverride(const std::streampos& position) {
    override_ = position;
    overridden_ = true;
}

void VEXAOverridableLocator::clearOverride() {
    overridden_ = false;
}

void VEXAOverridableLocator::setInner(const Locator* inner) {
    inner_ = inner;
}

void VEXAOverridableLocator::pushInner() {
    saved_.push_back(inner_);
}

void VEXAOverridableLocator::popInner() {
    if (!saved_.empty()) {
        saved_.pop_back();
    }
    inner_ = saved_.empty() ? nullptr : saved_.back();
}

using Wrapper = VEXAOverridableLocator::ErrorHandler;

Wrapper::ErrorHandler(boost::shared_ptr<::ErrorHandler> handler,
                      boost::shared_ptr<VEXAOverridableLocator> locator,
                      const std::atomic<bool>* quiet)
    : handler_(std::move(handler)), locator_(std::move(locator)), quiet_(quiet) {}

Wrapper::~ErrorHandler() = default;

void Wrapper::setLocator(const Locator* locator) {
    locator_->setInner(locator);
    handler_->setLocator(locator_.get());
}

void Wrapper::startParse() {
    locator_->pushInner(); // first: the parse is ended, too, if the handler throws
    handler_->startParse();
}

void Wrapper::endParse() {
    try {
        handler_->endParse();
    } catch (...) {
        locator_->popInner();
        throw;
    }
    locator_->popInner();
}

void Wrapper::warning(const MXFUID& code, const std::string& text) {
    if (!isQuiet()) {
        handler_->warning(code, text);
    }
}

void Wrapper::error(const MXFUID& code, const std::string& text) {
    if (!isQuiet()) {
        handler_->error(code, text);
    }
}

void Wrapper::fatalError(const MXFUID& code, const std::string& text) {
    handler_->fatalError(code, text);
}

} // namespace vexa_toolkit
