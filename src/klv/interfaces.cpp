#include "klv/KLVFilter.h"

#include <vexa/klv/ErrorHandler.h>
#include <vexa/klv/KLVHandler.h>
#include <vexa/klv/Locator.h>
#include <vexa/klv/MXFUIDGenerator.h>

inline namespace vexa_toolkit {

// The destructors anchor each class's run-time type information in this library.

ErrorHandler::~ErrorHandler() = default;
KLVFilter::~KLVFilter() = default;
KLVHandler::~KLVHandler() = default;
Locator::~Locator() = default;
MXFUIDGenerator::~MXFUIDGenerator() = default;

} // namespace vexa_toolkit
