#include "klv/KLVForwarder.h"

inline namespace vexa_toolkit {

KLVForwarder::~KLVForwarder() = default;

} // namespace vexa_toolkit
