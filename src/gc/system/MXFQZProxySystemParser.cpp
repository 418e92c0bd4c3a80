#include "gc/system/MXFQZProxySystemParser.h"

#include "gc/system/faults.h"
#include "gc/system/proxySystemItem.h"
#include "util/check.h"
#include "util/hex.h"

#include <string>
#include <vector>

inline namespace vexa_toolkit {

using klvutil::Fault;
namespace faults = gcsystem::faults;

namespace {

/// What the items of one set say.
class ProxyItems {
public:
    explicit ProxyItems(ErrorHandler* errorHandler) : errorHandler_(errorHandler) {}

    std::uint32_t frameCount = 0;
    std::vector<MXFTimecode> timecodes;

    void add(const MXFGCSystemHandler::LocalItem& item) {
        const MXFGCSystemHandler::Bytes& value = item.second;
        if (item.first == gcsystem::frameCountTag) {
            read("frameCount", faults::repeatedFrameCount, frameCountSeen_,
                 [&] { frameCount = gcsystem::decodeFrameCount(value); });
        } else if (item.first == gcsystem::timecodesTag) {
            read("timecodes", faults::repeatedTimecodes, timecodesSeen_,
                 [&] { gcsystem::decodeTimecodes(value, timecodes); });
        } else {
            klvutil::report(errorHandler_, faults::unrecognizedProxyItem, textOf(item.first));
        }
    }

    void checkWhole() const {
        if (!frameCountSeen_ && !(timecodesSeen_ && timecodes.size() == 1)) {
            klvutil::reportOf(errorHandler_, faults::missingProxyProperty, "frameCount");
        }
        if (!timecodesSeen_) {
            klvutil::reportOf(errorHandler_, faults::missingProxyProperty, "timecodes");
        }
        if (frameCountSeen_ && timecodesSeen_ && frameCount != timecodes.size()) {
            klvutil::report(errorHandler_, faults::inconsistentFrameCount);
        }
    }

private:
    template <class Decode>
    void read(const char* name, const Fault& repeated, bool& seen, Decode decode) {
        if (seen) {
            klvutil::report(errorHandler_, repeated);
            return;
        }
        seen = true;
        try {
            decode();
        } catch (const util::assertion_failure& failure) {
            klvutil::reportOf(errorHandler_, faults::invalidProxyProperty, name, failure.what());
        }
    }

    static std::string textOf(std::uint32_t tag) {
        return util::hexByte(static_cast<std::uint8_t>(tag >> 8)) + '.' +
               util::hexByte(static_cast<std::uint8_t>(tag));
    }

    ErrorHandler* errorHandler_;
    bool frameCountSeen_ = false;
    bool timecodesSeen_ = false;
};

} // namespace

MXFQZProxySystemParser::MXFQZProxySystemParser(MXFQZProxySystemHandler& handler)
    : handler_(handler) {}

MXFQZProxySystemParser::~MXFQZProxySystemParser() = default;

bool MXFQZProxySystemParser::wantsSystem(const KLVKey& key) {
    if (key == gcsystem::proxySystemKey) {
        return true;
    }
    klvutil::report(errorHandler_, faults::invalidProxyElement, klvutil::describe(key));
    return false;
}

void MXFQZProxySystemParser::systemLocalSet(const KLVKey& key, const LocalItems& items) {
    util::check(key == gcsystem::proxySystemKey, "valid QZProxy local set");
    ProxyItems read(errorHandler_);
    for (const LocalItem& item : items) {
        read.add(item);
    }
    read.checkWhole();
    handler_.proxySystemItem(read.frameCount, read.timecodes);
}

void MXFQZProxySystemParser::systemFixedLengthPack(const KLVKey&, const Bytes&) {
    util::check(false, "valid QZProxy fixed length pack");
}

void MXFQZProxySystemParser::systemVariableLengthPack(const KLVKey&, const PackItems&) {
    util::check(false, "valid QZProxy variable length pack");
}

void MXFQZProxySystemParser::setErrorHandler(ErrorHandler* errorHandler) {
    errorHandler_ = errorHandler;
}

} // namespace vexa_toolkit
