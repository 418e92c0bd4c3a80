#pragma once

#include "Subcommand.h"
#include "inspect/EssenceCounter.h"
#include "inspect/HeaderMetadata.h"
#include "support/Reports.h"

#include <vexa/vexa.h>

#include <cstdint>
#include <string>

/// Prints what is found in one file, in some form.
///
/// What stands in a partition follows it, what is wrong with it comes before it. At the end come
/// the sums of the essence, the reports that were kept back, and once, whatever happened, `end`.
class InspectionPrinter {
public:
    virtual ~InspectionPrinter() = default;

    virtual void runIn(std::uint64_t length) = 0;
    virtual void partition(const KLVKey& key, const MXFPartitionPack& pack) = 0;
    virtual void metadata(const HeaderMetadata& metadata) = 0;
    virtual void indexSegment(const MXFIndexTableSegment& segment) = 0;
    virtual void editUnit(const EditUnit& unit) = 0;
    virtual void randomIndex(const MXFRandomIndex& table) = 0;
    virtual void report(const Report& report) = 0;

    virtual void essence(const EssenceStreams& streams) = 0;
    virtual void keptBack(const Report& report, std::uint64_t count) = 0;
    /// `error` says why the file could not be read, or not to its end; empty if it could.
    virtual void end(Status status, const std::string& error) = 0;
};

/// "header", "body" or "footer".
inline const char* kindOfPartition(const KLVKey& key) {
    return MXFPartitionKey::isHeader(key) ? "header"
           : MXFPartitionKey::isBody(key) ? "body"
                                          : "footer";
}
