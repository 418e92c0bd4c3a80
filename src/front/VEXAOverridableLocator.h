#pragma once

#include <vexa/klv/ErrorHandler.h>
#include <vexa/klv/Locator.h>

#include <boost/shared_ptr.hpp>

#include <atomic>
#include <vector>

inline namespace vexa_toolkit {

/// The one locator that a caller's error handler gets: it passes on to the locator of the parse
/// that runs, unless it is overridden with another place, such as that of a metadata object that
/// was read long before.
class VEXAOverridableLocator : public Locator {
public:
    class ErrorHandler;

    ~VEXAOverridableLocator() override;

    /// The check is "has locator".
    const std::streampos& getPosition() const override;

    void setOverride(const std::streampos& position);
    void clearOverride();

    /// Not owned.
    void setInner(const Locator* inner);
    /// A parse began with the present inner locator; when it ends, that of the parse around it is
    /// the inner one again.
    void pushInner();
    void popInner();

private:
    const Locator* inner_ = nullptr;
    /// Of the parses that run, the outermost first.
    std::vector<const Locator*> saved_;
    std::streampos override_ = std::streampos(std::streamoff(0));
    bool overridden_ = false;
};

/// Stands before a caller's error handler, and gives it the overridable locator.
class VEXAOverridableLocator::ErrorHandler : public ::ErrorHandler {
public:
    /// Once `quiet` is set, by any thread, warnings and errors are kept back. It may be null, and
    /// isn't owned.
    ErrorHandler(boost::shared_ptr<::ErrorHandler> handler,
                 boost::shared_ptr<VEXAOverridableLocator> locator,
                 const std::atomic<bool>* quiet = nullptr);
    ~ErrorHandler() override;

    void setLocator(const Locator* locator) override;
    void startParse() override;
    void endParse() override;
    void warning(const MXFUID& code, const std::string& text) override;
    void error(const MXFUID& code, const std::string& text) override;
    void fatalError(const MXFUID& code, const std::string& text) override;

private:
    bool isQuiet() const { return quiet_ != nullptr && *quiet_; }

    boost::shared_ptr<::ErrorHandler> handler_;
    boost::shared_ptr<VEXAOverridableLocator> locator_;
    const std::atomic<bool>* quiet_;
};

} // namespace vexa_toolkit
