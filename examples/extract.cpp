// Writes each essence track of an MXF file to a file of its own: extract FILE DIR gives
// DIR/picture-15010500.bin and so on, the number being the last four bytes of the elements' key.
// Holds one element at a time in memory, and of very large ones a piece.

#include <vexa/vexa.h>

#include <boost/iostreams/stream.hpp>
#include <boost/make_shared.hpp>

#include <algorithm>
#include <exception>
#include <filesystem>
#include <fstream>
#include <iomanip>
#include <iostream>
#include <map>
#include <optional>
#include <sstream>
#include <stdexcept>
#include <string>
#include <utility>
#include <vector>

namespace {

class Extractor : public DullMXFStructureHandler,
                  public MXFGCEssenceHandler,
                  public MXFGCChunkedEssenceHandler {
public:
    explicit Extractor(std::filesystem::path directory) : directory_(std::move(directory)) {}

    void startPartition(const KLVKey&, const MXFPartitionPack& pack, std::uint64_t) override {
        bodySID_ = pack.bodySID;
    }

    /// Whole elements come into a buffer of ours; larger ones than a reader holds, in pieces.
    bool wantsEssence(const KLVKey&, std::uint64_t length, std::uint8_t** buffer) override {
        constexpr std::uint64_t largestWhole = 0xFFFFFF;
        if (length <= largestWhole) {
            element_.resize(std::max<std::size_t>(element_.size(), length + 1));
            *buffer = element_.data();
        }
        return true;
    }
    bool wantsChunkedEssence(const KLVKey&, std::uint64_t) override { return true; }
    void endChunkedEssence(const KLVKey&) override {}

    void pictureElement(const KLVKey& key, const std::uint8_t* data, std::uint64_t size) override {
        write("picture", key, data, size);
    }
    void soundElement(const KLVKey& key, const std::uint8_t* data, std::uint64_t size) override {
        write("sound", key, data, size);
    }
    void dataElement(const KLVKey& key, const std::uint8_t* data, std::uint64_t size) override {
        write("data", key, data, size);
    }
    void compoundElement(const KLVKey& key, const std::uint8_t* data, std::uint64_t size) override {
        write("compound", key, data, size);
    }
    void essenceLengthForm(std::uint8_t) override {}

    /// Says what was written.
    void finish() {
        for (auto& [track, output] : outputs_) {
            output.file.close();
            if (!output.file) {
                throw std::runtime_error("can't write " + output.path.string());
            }
            std::cout << output.path.filename().string() << ' ' << output.bytes << " bytes\n";
        }
    }

private:
    struct Output {
        std::filesystem::path path;
        std::ofstream file;
        std::uint64_t bytes = 0;
    };

    /// Tracks of a second essence stream carry its number as well.
    Output& outputOf(const char* kind, const KLVKey& key) {
        std::ostringstream number;
        number << std::hex << std::setfill('0');
        for (std::size_t i = 12; i < KLVKey::size; ++i) {
            number << std::setw(2) << unsigned{key[i]};
        }
        Output& output = outputs_[{bodySID_, number.str()}];
        if (!output.file.is_open()) {
            firstBodySID_ = firstBodySID_.value_or(bodySID_);
            const std::string stream =
                bodySID_ == *firstBodySID_ ? "" : "-" + std::to_string(bodySID_);
            output.path = directory_ / (kind + ("-" + number.str()) + stream + ".bin");
            output.file.open(output.path, std::ios_base::binary);
        }
        return output;
    }

    void write(const char* kind, const KLVKey& key, const std::uint8_t* data, std::uint64_t size) {
        Output& output = outputOf(kind, key);
        if (!output.file.write(reinterpret_cast<const char*>(data),
                               static_cast<std::streamsize>(size))) {
            throw std::runtime_error("can't write " + output.path.string());
        }
        output.bytes += size;
    }

    std::filesystem::path directory_;
    std::uint32_t bodySID_ = 0;
    std::optional<std::uint32_t> firstBodySID_;
    std::vector<std::uint8_t> element_;
    std::map<std::pair<std::uint32_t, std::string>, Output> outputs_;
};

void extract(const std::string& path, const std::filesystem::path& directory) {
    using FileStream = boost::iostreams::stream<vexa::file_source>;
    const auto reader = createVEXAReader(boost::make_shared<FileStream>(vexa::file_source(path)));
    std::filesystem::create_directories(directory);
    const auto extractor = boost::make_shared<Extractor>(directory);
    reader->setStructureHandler(extractor);
    reader->setEssenceHandler(extractor);
    reader->read();
    extractor->finish();
}

} // namespace

int main(int argc, char* argv[]) {
    if (argc != 3) {
        std::cerr << "usage: extract FILE DIR\n";
        return 2;
    }
    try {
        extract(argv[1], argv[2]);
        return 0;
    } catch (const std::exception& failure) {
        std::cerr << "extract: " << argv[1] << ": " << failure.what() << '\n';
        return 2;
    }
}
