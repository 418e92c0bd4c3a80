#include "support.h"

namespace fuzz {

Input::Input(const std::uint8_t* data, std::size_t size)
    : bytes(data, data + size - 1), wants(static_cast<Wants>(data[size - 1] & 3)),
      withErrorHandler((data[size - 1] & 4) == 0), readSize((data[size - 1] & 8) != 0 ? 7 : 4096),
      failAt((data[size - 1] & 0x18) == 0x18 ? bytes.size() / 2 : UINT64_MAX),
      choice(data[size - 1] >> 5) {}

Run readEachWay(const Input& input, const std::function<void(std::istream&, Run&)>& read) {
    const auto runOn = [&](bool seekable, bool beyondEnd) {
        TestStream stream(input.bytes, {seekable, input.readSize, input.failAt, beyondEnd});
        Run run;
        read(stream, run);
        return run;
    };
    const Run first = runOn(false, false);
    const bool lacksBytes = first.failure == "unsuccessful ignore()";
    for (const bool beyondEnd : {false, true}) {
        const Run run = runOn(true, beyondEnd);
        if (input.failAt != UINT64_MAX) {
            continue; // a seek may cross the place where reading fails
        }
        if (lacksBytes && beyondEnd) {
            // The seek in place of the failed skip leads beyond the end, which is noticed later.
            require(run.stopped || !run.failure.empty(), "a value cut short is noticed");
            continue;
        }
        require(run.failure == (lacksBytes ? "unsuccessful seekg()" : first.failure),
                "same failure, seekable or not");
        require(first.trail.digest() == run.trail.digest(), "same events, seekable or not");
    }
    return first;
}

} // namespace fuzz
