// Sections that are refused somewhere on their way: what coded them codes the next one as usual.

#include "front/VEXAMetadataCoder.h"
#include "index/MXFIndexCoder.h"
#include "klv/KLVForwarding.h"
#include "klv/KLVMonitor.h"
#include "klv/KLVStreamPadder.h"
#include "support/Testing.h"
#include "util/attempt.h"
#include "util/check.h"

#include <climits>

namespace {

/// Refuses one event, counted from the last call of refuse(). The end of a stream passes all the
/// same: a handler ends where its end fails, too.
class Refusing : public KLVForwarding<Refusing, KLVHandler> {
public:
    explicit Refusing(KLVHandler& next) : next_(next) {}

    void refuse(int event) { left_ = event; }
    void endStream(bool aborted) override {
        next_.endStream(aborted);
        util::check(left_-- != 0, "refused");
    }

private:
    friend KLVForwarding<Refusing, KLVHandler>;
    template <class Call> auto pass(Call call) {
        util::check(left_-- != 0, "refused");
        return call(next_);
    }

    KLVHandler& next_;
    int left_ = 0;
};

struct MetadataSection {
    explicit MetadataSection(KLVHandler& output) : coder(output, *factory) {
        preface->setVersion(0x0103);
        preface->setContentStorage(ContentStorage::create());
    }
    void start() { coder.startMetadata(); }
    void content() { coder.model({preface}); }
    void end() { coder.endMetadata(); }

    boost::shared_ptr<MXFMetadataModelFactory> factory = createVEXADefaultMetadataFactory();
    VEXAMetadataCoder coder;
    boost::shared_ptr<Preface> preface = Preface::create();
};

struct IndexSection {
    explicit IndexSection(KLVHandler& output) : coder(output) { segment.instanceUID[0] = 1; }
    void start() { coder.startIndexTable(); }
    void content() {
        coder.indexTableSegment(segment);
        coder.indexTableSegment(segment);
    }
    void end() { coder.endIndexTable(); }

    MXFIndexCoder coder;
    MXFIndexTableSegment segment;
};

/// A chain that writes sections into a room.
template <class Section> struct Chain {
    std::ostringstream out;
    GenericKLVWriter writer{out};
    Refusing refusing{writer};
    KLVMonitor monitor{refusing};
    KLVStreamPadder padder{monitor};
    Section section{padder};

    /// Ends what was begun, as a caller does. Answers what was written, or why it failed.
    std::string write(std::uint64_t room, int refused) {
        out.str("");
        padder.setLocator(&monitor.getLocator());
        padder.setFill(KLVFiller::Pad, 0, room);
        refusing.refuse(refused);
        const std::string failure = failureOf([&] {
            section.start();
            util::attempt([&] { section.content(); }, [&] { section.end(); });
            section.end();
        });
        return failure.empty() ? out.str() : failure;
    }
};

/// Each event of a section is refused, and each time the section is written once more.
template <class Section> void expectReadyForTheNext() {
    Chain<Section> chain;
    const std::string section = chain.write(4096, INT_MAX);
    ASSERT_EQ(section.size(), 4096U) << section;
    int event = 0;
    while (chain.write(4096, event) == "refused") {
        ASSERT_TRUE(chain.write(4096, INT_MAX) == section) << "event " << event;
        ++event;
    }
    EXPECT_GT(event, 20);
    EXPECT_EQ(chain.write(256, INT_MAX), "achievable padded length");
    EXPECT_TRUE(chain.write(4096, INT_MAX) == section);
}

} // namespace

TEST(RefusedSections, LeaveCodersAndPadderReady) {
    expectReadyForTheNext<MetadataSection>();
    expectReadyForTheNext<IndexSection>();
}
