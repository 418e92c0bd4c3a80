#pragma once

#include "klv/DullKLVFilter.h"
#include "klv/UniversalSetNesting.h"

#include <ios>

inline namespace vexa_toolkit {

/// Fences a parse into one partition: passes on what comes from the present position up to the next
/// partition pack, which isn't passed on, or up to a stop position, whichever comes first, and ends
/// the reader's parse there through its stop flag. It lives for one parse.
class MXFPartitionFilter : public KLVForwarding<MXFPartitionFilter, DullKLVFilter> {
public:
    /// `stopAt` is -1 for none. `stop` is the flag that the reader shares; it isn't owned.
    MXFPartitionFilter(std::streampos stopAt, bool* stop);
    MXFPartitionFilter(std::streampos stopAt, bool* stop, KLVHandler& next);
    ~MXFPartitionFilter() override;

    /// The end of the last element passed on: when the parse has stopped, the first byte that
    /// wasn't.
    const std::streampos& getPosition() const { return position_; }
    bool stoppedAtPartition() const { return stoppedAtPartition_; }

    void setLocator(const Locator* locator) override;
    /// The checks are "has locator" and "has accurate lengths". Nothing is passed on of a stream
    /// that is to stop at once.
    void startStream(bool accurateLengths) override;
    void endStream(bool aborted) override;

private:
    friend KLVForwarding<MXFPartitionFilter, DullKLVFilter>;

    template <class Call> bool startElement(const KLVStart& start, Call call) {
        const bool wanted = passesStart(start) && pass(call);
        return start.coding == Coding::UniversalSet ? universalSets_.start(wanted) : wanted;
    }
    template <class Call> void endElement(Coding coding, Call call) {
        if (coding == Coding::UniversalSet) {
            universalSets_.end();
        }
        if (passesEnd()) {
            pass(call);
        }
    }
    template <class Call> auto pass(Call call) { return call(DullKLVFilter::getHandler()); }

    void testStop();
    bool passesStart(const KLVStart& start);
    bool passesEnd();

    std::streampos stopAt_;
    bool* stop_;
    const Locator* locator_ = nullptr;
    std::streampos position_ = std::streampos(std::streamoff(0));
    bool started_ = false;
    bool stoppedAtPartition_ = false;
    UniversalSetNesting universalSets_;
};

} // namespace vexa_toolkit
