// VEXAReader with all handlers over any bytes: that each handler's events follow its grammar, and
// that a stream which can't seek tells the same.

#include "support.h"

#include <vexa/vexa.h>

#include <boost/make_shared.hpp>
#include <boost/smart_ptr/shared_ptr.hpp>

#include <array>

namespace {

using fuzz::digestOf;
using fuzz::require;
using fuzz::Trail;

/// All handlers but the error handler. Brackets must be closed in turn.
class Everything : public DullMXFStructureHandler,
                   public VEXAMetadataHandler,
                   public MXFIndexHandler,
                   public DullMXFGCStructureHandler,
                   public MXFGCEssenceHandler,
                   public MXFGCChunkedEssenceHandler,
                   public MXFSDTICPSystemHandler,
                   public MXFQZProxySystemHandler {
public:
    Everything(Trail& trail, const fuzz::Input& input) : trail_(trail), choice_(input.choice) {}

    bool isIdle() const { return open_.empty(); }

    void startPartition(const KLVKey& key, const MXFPartitionPack&, std::uint64_t) override {
        enter('P', "");
        trail_.add("partition", {digestOf(key)});
    }
    void endPartition(const KLVKey&) override { leave('P'); }
    void startMetadata() override { enter('M', "P"); }
    void endMetadata() override { leave('M'); }
    void model(const std::vector<boost::shared_ptr<MetadataRoot>>& roots) override {
        require(in('M') && !roots.empty(), "a model has a root");
        trail_.add("model", {roots.size()});
    }
    void xmlMetadata(const char* data, std::size_t size) override {
        require(in('M') && (data == nullptr) == (size == 0), "a document lies in metadata");
        trail_.add("xml", {digestOf(data, size)});
    }
    void startIndexTable() override { enter('I', "P"); }
    void endIndexTable() override { leave('I'); }
    void indexTableSegment(const MXFIndexTableSegment& segment) override {
        require(in('I'), "a segment lies in an index table");
        trail_.add("segment", {segment.indexEntryArray.size(), segment.deltaEntryArray.size()});
    }
    void startStream(std::uint64_t) override { enter('G', "P"); }
    void endStream() override { leave('G'); }
    void startEditUnit() override {
        if (in('U')) { // one in which no element is valid has no end
            open_.pop_back();
        }
        enter('U', "PG");
    }
    void endEditUnit() override { leave('U'); }
    bool wantsEssence(const KLVKey& key, std::uint64_t length, std::uint8_t** buffer) override {
        require(in('U') && *buffer == nullptr, "an element lies in an edit unit");
        trail_.add("wants", {digestOf(key), length});
        if ((choice_ & 1) != 0 && length <= buffer_.size()) {
            *buffer = buffer_.data();
        }
        return (choice_ & 2) != 0;
    }
    void pictureElement(const KLVKey&, const std::uint8_t* data, std::uint64_t size) override {
        element(data, size);
    }
    void soundElement(const KLVKey&, const std::uint8_t* data, std::uint64_t size) override {
        element(data, size);
    }
    void dataElement(const KLVKey&, const std::uint8_t* data, std::uint64_t size) override {
        element(data, size);
    }
    void compoundElement(const KLVKey&, const std::uint8_t* data, std::uint64_t size) override {
        element(data, size);
    }
    void essenceLengthForm(std::uint8_t form) override { trail_.add("form", {form}); }
    bool wantsChunkedEssence(const KLVKey&, std::uint64_t) override { return (choice_ & 4) != 0; }
    void endChunkedEssence(const KLVKey&) override { trail_.add("chunked", {}); }
    void systemMetadataPack(const MXFSDTICPSystemMetadata& pack) override {
        system("pack", pack.continuityCount);
    }
    void packageMetadata(const Items& items) override { system("package", items.size()); }
    void pictureMetadata(const Items& items) override { system("picture", items.size()); }
    void soundMetadata(const Items& items) override { system("sound", items.size()); }
    void dataMetadata(const Items& items) override { system("data", items.size()); }
    void controlData(std::uint32_t tag, const std::vector<std::uint8_t>&) override {
        system("control", tag);
    }
    void proxySystemItem(std::uint32_t frames, const std::vector<MXFTimecode>&) override {
        system("proxy", frames);
    }

private:
    bool in(char what) const { return !open_.empty() && open_.back() == what; }
    void enter(char what, const char* around) {
        require(open_ == around, "brackets nest");
        open_ += what;
        trail_.add("enter", {static_cast<std::uint64_t>(what)});
    }
    void leave(char what) {
        if (what == 'G' && in('U')) {
            open_.pop_back();
        }
        require(in(what), "brackets are closed in turn");
        open_.pop_back();
        trail_.add("leave", {static_cast<std::uint64_t>(what)});
    }
    void element(const std::uint8_t* data, std::uint64_t size) {
        require(in('U'), "an element lies in an edit unit");
        trail_.add("element", {size});
        if (data != nullptr && (choice_ & 4) == 0) { // pieces depend on the stream
            trail_.add("value", {digestOf(data, size)});
        }
    }
    void system(const char* what, std::uint64_t number) {
        require(in('U'), "a system item lies in an edit unit");
        trail_.add(what, {number});
    }

    Trail& trail_;
    unsigned choice_;
    std::string open_;
    std::array<std::uint8_t, 512> buffer_{};
};

/// Counts reports. A section that a failure cuts short may be judged after the fatal error.
class Reports : public ErrorHandler {
public:
    explicit Reports(Trail& trail) : trail_(trail) {}
    void setLocator(const Locator*) override {}
    void startParse() override {}
    void endParse() override {}
    void warning(const MXFUID& code, const std::string&) override { add(code); }
    void error(const MXFUID& code, const std::string&) override { add(code); }
    void fatalError(const MXFUID& code, const std::string&) override { add(code); }

private:
    void add(const MXFUID& code) { trail_.add("report", {digestOf(&code, sizeof(code))}); }
    Trail& trail_;
};

} // namespace

void fuzz::testInput(const Input& input) {
    readEachWay(input, [&](std::istream& stream, Run& run) {
        const boost::shared_ptr<std::istream> shared(&stream, [](std::istream*) {});
        const auto everything = boost::make_shared<Everything>(run.trail, input);
        const auto reader = createVEXAReader(shared);
        reader->setStructureHandler(everything);
        reader->setMetadataHandler(everything);
        reader->setIndexHandler(everything);
        reader->setGCStructureHandler(everything);
        reader->setSDTICPSystemHandler(everything);
        reader->setQZProxySystemHandler(everything);
        reader->setEssenceHandler(everything);
        if (input.withErrorHandler) {
            reader->setErrorHandler(boost::make_shared<Reports>(run.trail));
        }
        try {
            reader->read();
        } catch (const klvutil::parse_error& error) {
            run.failure = error.what();
        } catch (const util::assertion_failure& failure) {
            run.failure = failure.what();
            require(run.failure == "assertion failure: before primed set", failure.what());
        }
        require(everything->isIdle(), "all brackets are closed");
    });
}
