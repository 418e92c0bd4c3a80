// Reads a model with tracks, in a program that has a Track and a Sequence of its own.

#include <vexa/vexa.h>

#include <boost/make_shared.hpp>

#include <exception>
#include <iostream>

int lengthOfOwnNames();

namespace {

class TrackCounter : public DullVEXAMetadataHandler {
public:
    int tracks = 0;
    int sequences = 0;

    void model(const std::vector<boost::shared_ptr<MetadataRoot>>& roots) override {
        const auto preface = boost::dynamic_pointer_cast<Preface>(roots.front());
        for (const auto& package : preface->getContentStorage()->getPackages()) {
            for (const boost::shared_ptr<Track>& track : package->getTracks()) {
                ++tracks;
                sequences += boost::dynamic_pointer_cast<Sequence>(track->getSegment()) ? 1 : 0;
            }
        }
    }
};

} // namespace

/// Takes the file, and the tracks that it must have.
int main(int, char* argv[]) {
    try {
        const auto reader = createVEXAReader(argv[1]);
        const auto counter = boost::make_shared<TrackCounter>();
        reader->setMetadataHandler(counter);
        reader->read();
        std::cout << counter->tracks << " tracks, " << counter->sequences << " sequences\n";
        const int expected = std::stoi(argv[2]);
        return counter->tracks == expected && counter->sequences == expected &&
                       lengthOfOwnNames() == 13
                   ? 0
                   : 1;
    } catch (const std::exception& failure) {
        std::cerr << failure.what() << '\n';
        return 1;
    }
}
