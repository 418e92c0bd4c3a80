#include <vexa/index/MXFIndexHandler.h>

inline namespace vexa_toolkit {

MXFIndexHandler::~MXFIndexHandler() = default;

} // namespace vexa_toolkit
