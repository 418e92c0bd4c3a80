#include <vexa/index/MXFIndexHandler.h>

MXFIndexHandler::~MXFIndexHandler() = default;
