#include "klv/KLVForwarder.h"

KLVForwarder::~KLVForwarder() = default;
