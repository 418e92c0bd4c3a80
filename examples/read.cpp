// Lists the partitions of an MXF file.

#include <vexa/vexa.h>

#include <boost/make_shared.hpp>

#include <exception>
#include <iostream>

class PartitionLister : public DullMXFStructureHandler {
public:
    void startPartition(const KLVKey& key, const MXFPartitionPack& pack, std::uint64_t) override {
        std::cout << pack.thisPartition << ": essence stream " << pack.bodySID
                  << (MXFPartitionKey::isClosed(key) ? "" : ", still open") << '\n';
    }
};

int main(int argc, char* argv[]) {
    try {
        const auto reader = createVEXAReader(argc > 1 ? argv[1] : "");
        reader->setStructureHandler(boost::make_shared<PartitionLister>());
        reader->read();
    } catch (const std::exception& failure) {
        std::cerr << failure.what() << '\n';
        return 1;
    }
}
