#include "klv/ActionKLVFilter.h"

inline namespace vexa_toolkit {

ActionKLVFilter::~ActionKLVFilter() = default;

} // namespace vexa_toolkit
