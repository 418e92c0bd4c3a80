#include <vexa/gc/system/MXFQZProxySystemHandler.h>
#include <vexa/gc/system/MXFSDTICPSystemHandler.h>

inline namespace vexa_toolkit {

// The destructors anchor each class's run-time type information in this library.

MXFSDTICPSystemHandler::~MXFSDTICPSystemHandler() = default;
MXFQZProxySystemHandler::~MXFQZProxySystemHandler() = default;

} // namespace vexa_toolkit
