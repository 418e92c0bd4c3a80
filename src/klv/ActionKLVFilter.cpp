#include "klv/ActionKLVFilter.h"

ActionKLVFilter::~ActionKLVFilter() = default;
