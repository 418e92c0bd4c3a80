#include <vexa/gc/system/userStamp.h>

#include <algorithm>

inline namespace vexa_toolkit {

namespace gcsystem {

namespace {

constexpr std::uint8_t timecodeStamp = 0x81;

} // namespace

MXFSystemStamp stampOf(const MXFTimecode& timecode) {
    MXFSystemStamp stamp{timecodeStamp};
    std::copy(timecode.bytes.begin(), timecode.bytes.end(), stamp.begin() + 1);
    return stamp;
}

boost::optional<MXFTimecode> timecodeOf(const MXFSystemStamp& stamp) {
    if (stamp[0] != timecodeStamp) {
        return boost::none;
    }
    MXFTimecode timecode;
    std::copy_n(stamp.begin() + 1, MXFTimecode::size, timecode.bytes.begin());
    return timecode;
}

} // namespace gcsystem

} // namespace vexa_toolkit
