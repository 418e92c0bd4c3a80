#pragma once

#include "inspect/InspectionPrinter.h"

#include <string>
#include <utility>

/// Prints lines on standard output as they come.
class TextPrinter : public InspectionPrinter {
public:
    explicit TextPrinter(std::string file) : file_(std::move(file)) {}

    void runIn(std::uint64_t length) override;
    void partition(const KLVKey& key, const MXFPartitionPack& pack) override;
    void metadata(const HeaderMetadata& metadata) override;
    void indexSegment(const MXFIndexTableSegment& segment) override;
    void editUnit(const EditUnit& unit) override;
    void randomIndex(const MXFRandomIndex& table) override;
    void report(const Report& report) override;
    void essence(const EssenceStreams& streams) override;
    void keptBack(const Report& report, std::uint64_t count) override;
    void end(Status status, const std::string& error) override;

private:
    std::string file_;
    unsigned partitions_ = 0;
};
