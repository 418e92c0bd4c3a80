#pragma once

// All of the library's public interface.

#include <vexa/front/VEXAReader.h>
#include <vexa/front/VEXAToolkit.h>
#include <vexa/front/VEXAValidationMode.h>
#include <vexa/io/fam_source.h>
#include <vexa/io/file_device.h>
#include <vexa/klv/DullKLVHandler.h>
#include <vexa/klv/ErrorCode.h>
#include <vexa/klv/ErrorHandler.h>
#include <vexa/klv/KLVHandler.h>
#include <vexa/klv/KLVKey.h>
#include <vexa/klv/Locator.h>
#include <vexa/klv/MXFUID.h>
#include <vexa/klv/MXFUIDGenerator.h>
#include <vexa/klv/parse_error.h>
#include <vexa/metadata/MXFProductVersion.h>
#include <vexa/metadata/MXFRational.h>
#include <vexa/metadata/MXFTimestamp.h>
#include <vexa/metadata/UMID.h>
#include <vexa/mxf/DullMXFStructureHandler.h>
#include <vexa/mxf/MXFPartitionKey.h>
#include <vexa/mxf/MXFPartitionPack.h>
#include <vexa/mxf/MXFRandomIndex.h>
#include <vexa/mxf/MXFStructureHandler.h>
#include <vexa/util/assertion_failure.h>
