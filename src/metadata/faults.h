#pragma once

#include "klv/Fault.h"

inline namespace vexa_toolkit {

/// The faults of primers, local sets and the metadata model (SMPTE 377M).
namespace metadata::faults {

using klvutil::error;
using klvutil::ErrorCode;
using klvutil::Fault;
using klvutil::warning;

// How sets are coded.
constexpr Fault nonStandardBERLength =
    warning(ErrorCode::NonStandardLengthForm, "non-standard BER length form");
constexpr Fault nonStandardItemLength =
    warning(ErrorCode::NonStandardLengthForm, "non-standard local item length type");

// The primer.
constexpr Fault invalidPrimer = error(ErrorCode::InvalidPrimer, "invalid primer value");
constexpr Fault setBeforePrimer = error(ErrorCode::InvalidPrimer, "set before primer");
constexpr Fault nonStandardPrimerKey =
    error(ErrorCode::NonStandardPrimerKey, "non-standard primer key");
constexpr Fault nonStandardPrimerTag =
    warning(ErrorCode::NonStandardPrimerTag, "non-standard primer tag");
constexpr Fault inconsistentPrimerKey =
    error(ErrorCode::InconsistentPrimerKey, "inconsistent primer key");
constexpr Fault inconsistentPrimerTag =
    warning(ErrorCode::InconsistentPrimerTag, "inconsistent primer tag");

// The items of a set.
constexpr Fault repeatedProperty =
    error(ErrorCode::RepeatedProperty, "unexpected repeated property");
constexpr Fault tagMissingInPrimer = error(ErrorCode::TagMissingInPrimer, "tag missing in primer");

// The properties of an object.
constexpr Fault missingProperty = error(ErrorCode::MissingProperty, "missing *");
constexpr Fault invalidProperty = error(ErrorCode::InvalidProperty, "invalid * value");

// The model.
constexpr Fault unrecognizedMetadata =
    warning(ErrorCode::UnrecognizedMetadata, "unrecognized (dark) metadata");
constexpr Fault duplicateInstanceUID =
    error(ErrorCode::DuplicateInstanceUID, "duplicate MetadataRoot.instanceUID");
constexpr Fault alreadyOwned =
    error(ErrorCode::ObjectAlreadyOwned, "referenced object is already owned");
constexpr Fault invalidReference = error(ErrorCode::InvalidReference, "invalid reference");
constexpr Fault backwardReference =
    warning(ErrorCode::BackwardReference, "backward strong reference");
constexpr Fault unreferencedObjects =
    warning(ErrorCode::UnreferencedObjects, "unreferenced objects");
constexpr Fault danglingReferences =
    warning(ErrorCode::DanglingReferences, "model has dangling references");
constexpr Fault firstNotRoot =
    error(ErrorCode::FirstObjectNotRoot, "first object is not model root");

} // namespace metadata::faults

} // namespace vexa_toolkit
