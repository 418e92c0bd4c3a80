// Copies the first picture track of an MXF file to another file, as it lies there, large elements
// in pieces.

#include <vexa/vexa.h>

#include <boost/make_shared.hpp>

#include <exception>
#include <fstream>
#include <iostream>
#include <optional>

class PictureCopier : public DullMXFGCEssenceHandler, public DullMXFGCChunkedEssenceHandler {
public:
    explicit PictureCopier(const char* path) : out_(path, std::ios_base::binary) {
        out_.exceptions(std::ios_base::failbit | std::ios_base::badbit);
    }

    bool wantsEssence(const KLVKey& key, std::uint64_t, std::uint8_t**) override {
        if (!track_ && MXFGCElementKey::isPicture(key)) {
            track_ = key;
        }
        return track_ == key;
    }

    void pictureElement(const KLVKey&, const std::uint8_t* data, std::uint64_t length) override {
        out_.write(reinterpret_cast<const char*>(data), static_cast<std::streamsize>(length));
    }

    void close() { out_.close(); }

private:
    std::ofstream out_;
    std::optional<KLVKey> track_;
};

int main(int argc, char* argv[]) {
    try {
        const auto reader = createVEXAReader(argc > 1 ? argv[1] : "");
        const auto copier = boost::make_shared<PictureCopier>(argc > 2 ? argv[2] : "");
        reader->setEssenceHandler(copier);
        reader->read();
        copier->close();
    } catch (const std::exception& failure) {
        std::cerr << failure.what() << '\n';
        return 1;
    }
}
