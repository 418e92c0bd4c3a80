#pragma once

#include <istream>

inline namespace vexa_toolkit {

class ErrorHandler;
class KLVHandler;

/// Turns a stream into KLV events.
class KLVReader {
public:
    virtual ~KLVReader();

    /// Neither handler is owned.
    virtual void setHandler(KLVHandler* handler) = 0;
    /// The check is "handler is present".
    virtual KLVHandler& getHandler() = 0;
    virtual void setErrorHandler(ErrorHandler* errorHandler) = 0;
    /// The check is "error handler is present".
    virtual ErrorHandler& getErrorHandler() = 0;

    /// Parses elements until the end of the stream, or until one ends at or behind `stopAt` where
    /// that isn't -1, or until `stop` is set, by a handler, when the present element ends.
    virtual void parse(std::istream& stream, std::streampos stopAt, bool& stop) = 0;

    void parse(std::istream& stream, std::streampos stopAt);
    void parse(std::istream& stream);
};

} // namespace vexa_toolkit
