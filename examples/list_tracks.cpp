// Lists the packages of an MXF file and their tracks.

#include <vexa/vexa.h>

#include <boost/make_shared.hpp>

#include <exception>
#include <iostream>

class TrackLister : public DullVEXAMetadataHandler {
public:
    explicit TrackLister(VEXAReader& reader) : reader_(reader) {}

    void model(const std::vector<boost::shared_ptr<MetadataRoot>>& roots) override {
        const auto preface = boost::dynamic_pointer_cast<Preface>(roots.front());
        if (preface != nullptr && preface->getContentStorage() != nullptr) {
            for (const auto& package : preface->getContentStorage()->getPackages()) {
                list(*package);
            }
        }
        reader_.stop(); // later partitions repeat it
    }

private:
    static void list(const GenericPackage& package) {
        std::cout << package.getClassName() << '\n';
        for (const auto& track : package.getTracks()) {
            std::cout << "  " << track->getTrackID() << ": ";
            if (const auto segment = track->getSegment()) {
                std::cout << metadata::labelName(segment->getDataDefinition());
            }
            if (const auto* name = track->findTrackName()) {
                std::cout << ", " << metadata::toUtf8(*name);
            }
            std::cout << '\n';
        }
    }

    VEXAReader& reader_;
};

int main(int argc, char* argv[]) {
    try {
        const auto reader = createVEXAReader(argc > 1 ? argv[1] : "");
        reader->setMetadataHandler(boost::make_shared<TrackLister>(*reader));
        reader->read();
    } catch (const std::exception& failure) {
        std::cerr << failure.what() << '\n';
        return 1;
    }
}
