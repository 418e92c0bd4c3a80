#pragma once

/// What most tests need.

#include "klv/GenericKLVReader.h"
#include "klv/GenericKLVWriter.h"
#include "mxf/MXFReader.h"
#include "support/Failures.h"
#include "support/FileBuilder.h"
#include "support/KLVBytes.h"
#include "support/Recorder.h"
#include "support/TestStream.h"

#include <vexa/vexa.h>

#include <boost/make_shared.hpp>
#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <map>
#include <regex>
#include <set>
#include <sstream>
#include <tuple>
