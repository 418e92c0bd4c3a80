#pragma once

#include <atomic>
#include <istream>

inline namespace vexa_toolkit {

class ErrorHandler;
class KLVHandler;
class MXFStructureHandler;

/// Reads a file once from front to back: skips the run-in, and sends structure and sections to
/// their handlers. What has no handler is skipped. Handlers aren't owned; null clears.
class MXFReader {
public:
    virtual ~MXFReader();

    /// True at first.
    virtual void setSkipRunIn(bool skipRunIn);
    virtual void setStructureHandler(MXFStructureHandler* handler);
    virtual void setMetadataHandler(KLVHandler* handler);
    virtual void setIndexHandler(KLVHandler* handler);
    virtual void setEssenceHandler(KLVHandler* handler);
    virtual void setErrorHandler(ErrorHandler* errorHandler);

    /// As GenericKLVReader::setStopRequest(). A parse that begins when it is set reads nothing.
    void setStopRequest(const std::atomic<bool>* stopRequest);

    /// The stream must stand at the file's first byte. Throws klvutil::parse_error, which the error
    /// handler has been told, and what handlers throw.
    virtual void parse(std::istream& stream);

private:
    void parseFromRunIn(std::istream& stream);

    bool skipRunIn_ = true;
    MXFStructureHandler* structureHandler_ = nullptr;
    KLVHandler* metadataHandler_ = nullptr;
    KLVHandler* indexHandler_ = nullptr;
    KLVHandler* essenceHandler_ = nullptr;
    ErrorHandler* errorHandler_ = nullptr;
    const std::atomic<bool>* stopRequest_ = nullptr;
};

} // namespace vexa_toolkit
