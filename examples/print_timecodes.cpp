// Prints the timecode of each edit unit of an MXF file whose system items have one.

#include <vexa/vexa.h>

#include <boost/make_shared.hpp>

#include <exception>
#include <iostream>

class TimecodePrinter : public DullMXFSDTICPSystemHandler {
public:
    void systemMetadataPack(const MXFSDTICPSystemMetadata& pack) override {
        if (const auto timecode = gcsystem::timecodeOf(pack.userStamp)) {
            std::cout << toString(gcsystem::numbersOf(*timecode)) << '\n';
        }
    }
};

int main(int argc, char* argv[]) {
    try {
        const auto reader = createVEXAReader(argc > 1 ? argv[1] : "");
        reader->setSDTICPSystemHandler(boost::make_shared<TimecodePrinter>());
        reader->read();
    } catch (const std::exception& failure) {
        std::cerr << failure.what() << '\n';
        return 1;
    }
}
