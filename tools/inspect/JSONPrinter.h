#pragma once

#include "inspect/InspectionPrinter.h"

#include <nlohmann/json.hpp>
#include <string>

/// Gathers one document, and prints it at the end as one line of standard output.
/// docs/inspect-json.md describes its fields.
class JSONPrinter : public InspectionPrinter {
public:
    explicit JSONPrinter(const std::string& file);

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
    nlohmann::ordered_json document_;
};
