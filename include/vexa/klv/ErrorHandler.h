#pragma once

#include <vexa/Export.h>
#include <vexa/klv/MXFUID.h>

#include <string>

inline namespace vexa_toolkit {

class Locator;

/// Receives what a reader has to say about its input. It is the only channel for that.
///
/// Events: `setLocator startParse (warning | error | fatalError)* endParse`. What is wrong before a
/// parse proper begins, with the stream itself or in the run-in, is a `fatalError` alone.
///
/// The code of a report is an error code of ErrorCode.h; the text is fixed for a fault, with an
/// optional " - " and detail behind it. The reader keeps a plain pointer to the handler.
class VEXA_EXPORT ErrorHandler {
public:
    virtual ~ErrorHandler();

    /// Lets a report name its position. The locator lives until the parse's `endParse`. Forget it
    /// at `endParse`: a later report may come without one.
    virtual void setLocator(const Locator* locator) = 0;

    virtual void startParse() = 0;

    /// The parse ended, normally or not.
    virtual void endParse() = 0;

    /// A problem that leaves the data usable.
    virtual void warning(const MXFUID& code, const std::string& text) = 0;

    /// The file is wrong; parsing goes on.
    virtual void error(const MXFUID& code, const std::string& text) = 0;

    /// Parsing can't go on; the reporter throws klvutil::parse_error right after.
    virtual void fatalError(const MXFUID& code, const std::string& text) = 0;
};

} // namespace vexa_toolkit
