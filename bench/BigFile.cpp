#include "BigFile.h"

#include "gc/MXFGCMuxer.h"
#include "gc/system/MXFSDTICPSystemCoder.h"
#include "klv/GenericKLVWriter.h"
#include "klv/berLength.h"
#include "klv/keyLiteral.h"
#include "measure.h"
#include "mxf/keys.h"
#include "mxf/partitionPack.h"
#include "mxf/randomIndex.h"

#include <vexa/mxf/MXFPartitionKey.h>

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <map>
#include <random>
#include <sstream>
#include <stdexcept>
#include <tuple>
#include <vector>

namespace {

using klvutil::operator""_key;

constexpr std::uint8_t berForm = klvutil::defaultBERForm;

/// A picture element of the Generic Container (SMPTE 379M).
constexpr KLVKey pictureElement{
    {0x06, 0x0E, 0x2B, 0x34, 0x01, 0x02, 0x01, 0x01, 0x0D, 0x01, 0x03, 0x01, 0x15, 0x01, 0x05}};

/// A specialized pattern: any run-in would be allowed, and nothing is to be reported.
constexpr KLVKey operationalPattern{
    {0x06, 0x0E, 0x2B, 0x34, 0x04, 0x01, 0x01, 0x02, 0x0D, 0x01, 0x02, 0x01, 0x10}};

class TemporaryDirectory {
public:
    TemporaryDirectory() {
        std::random_device random;
        path_ = std::filesystem::temp_directory_path() / ("vexa_bench." + std::to_string(random()));
        if (!std::filesystem::create_directory(path_)) {
            throw std::runtime_error("can't make a temporary directory");
        }
    }
    ~TemporaryDirectory() {
        std::error_code ignored;
        std::filesystem::remove_all(path_, ignored);
    }
    TemporaryDirectory(const TemporaryDirectory&) = delete;
    TemporaryDirectory& operator=(const TemporaryDirectory&) = delete;

    std::string file(const std::string& name) const { return (path_ / name).string(); }

private:
    std::filesystem::path path_;
};

const TemporaryDirectory& directory() {
    static const TemporaryDirectory only;
    return only;
}

/// Writes whole aligned blocks, as a file is mostly written that comes from elsewhere: how a file
/// was written decides how the system caches it, and so what reading it costs.
class BlockWriter {
public:
    explicit BlockWriter(const std::string& path) : file_(path, O_WRONLY | O_CREAT | O_TRUNC) {}

    void append(const std::uint8_t* data, std::size_t size) {
        for (std::size_t done = 0; done < size;) {
            const std::size_t step = std::min(size - done, block_.size() - used_);
            std::copy_n(data + done, step, block_.data() + used_);
            done += step;
            used_ += step;
            if (used_ == block_.size()) {
                flush();
            }
        }
    }

    void append(const std::vector<std::uint8_t>& bytes) { append(bytes.data(), bytes.size()); }

    void skip(std::uint64_t size) {
        flush();
        file_.skip(size);
    }

    void flush() {
        file_.write(block_.data(), used_);
        used_ = 0;
    }

private:
    BareFile file_;
    std::vector<char> block_ = std::vector<char>(1 << 20);
    std::size_t used_ = 0;
};

void appendHead(BlockWriter& out, const KLVKey& key, std::uint64_t length) {
    std::ostringstream head;
    head.write(reinterpret_cast<const char*>(key.bytes.data()), KLVKey::size);
    klvutil::writeBERLength(head, length, berForm);
    const std::string bytes = head.str();
    out.append({bytes.begin(), bytes.end()});
}

void appendElement(BlockWriter& out, const KLVKey& key, const std::vector<std::uint8_t>& value) {
    appendHead(out, key, value.size());
    out.append(value);
}

void build(const std::string& path, const BigFileLayout& layout) {
    BlockWriter out(path);
    MXFPartitionPack pack;
    pack.bodySID = 1;
    pack.operationalPattern = operationalPattern;
    appendElement(out, MXFPartitionKey::closedCompleteHeader, mxf::encodePartitionPack(pack));
    std::vector<std::uint8_t> value(layout.valueSize);
    std::mt19937 engine(1); // NOLINT(bugprone-random-generator-seed): the same file each time
    std::generate(value.begin(), value.end(), [&] { return static_cast<std::uint8_t>(engine()); });
    for (std::uint64_t i = 0; i < layout.elements; ++i) {
        if (layout.sparse) {
            appendHead(out, pictureElement, layout.valueSize);
            out.skip(layout.valueSize);
        } else {
            appendElement(out, pictureElement, value);
        }
    }
    appendElement(out, mxf::keys::randomIndex, mxf::encodeRandomIndex({{1, 0}}, berForm));
    out.flush();
}

/// The elements of some edit units, as they lie in the body of a file.
std::string cameraGroup() {
    using namespace camerafile;
    std::ostringstream out;
    GenericKLVWriter writer(out);
    MXFGCMuxer to(writer);
    MXFGCStructureHandler& structure = to.getStructureHandler();
    MXFSDTICPSystemCoder system(to.getSystemHandler());
    const std::vector<std::uint8_t> essence(largestPicture, 0x55);
    const auto aligned = [&](auto write) {
        structure.startAlignedElement(0);
        write();
        structure.endAlignedElement();
    };
    structure.startStream(512);
    for (std::uint64_t editUnit = 0; editUnit < editUnitsPerGroup; ++editUnit) {
        MXFSDTICPSystemMetadata pack;
        pack.continuityCount = static_cast<std::uint16_t>(editUnit);
        aligned([&] {
            system.systemMetadataPack(pack);
            system.packageMetadata({{0x88, std::vector<std::uint8_t>(109)}});
        });
        aligned([&] {
            to.getEssenceHandler().pictureElement("060E2B34.01020101.0D010301.15010500"_key,
                                                  essence.data(), pictureSize(editUnit));
        });
        KLVKey soundKey = "060E2B34.01020101.0D010301.16080300"_key;
        for (std::size_t i = 0; i < soundsPerEditUnit; ++i, ++soundKey[15]) {
            aligned(
                [&] { to.getEssenceHandler().soundElement(soundKey, essence.data(), soundSize); });
        }
    }
    structure.endStream();
    return out.str();
}

void buildCameraFile(const std::string& path, std::uint64_t groups) {
    std::ifstream sample(VEXA_TEST_DATA_DIR "/longgop_25p_2ch.mxf", std::ios_base::binary);
    const std::vector<char> bytes((std::istreambuf_iterator<char>(sample)), {});
    // Its footer partition follows its body partition, whose pack is followed by essence alone.
    constexpr std::size_t bodyPartition = 7168;
    constexpr std::size_t footerPartition = 754176;
    BlockWriter out(path);
    const auto append = [&](const char* from, const char* to) {
        out.append(reinterpret_cast<const std::uint8_t*>(from),
                   static_cast<std::size_t>(to - from));
    };
    append(bytes.data(), bytes.data() + bodyPartition + 512);
    const std::string group = cameraGroup();
    for (std::uint64_t i = 0; i < groups; ++i) {
        append(group.data(), group.data() + group.size());
    }
    append(bytes.data() + footerPartition, bytes.data() + bytes.size());
    out.flush();
}

/// The path of a file that is built when it is asked for first.
template <class Key, class Build> const std::string& builtOnce(const Key& key, Build buildAt) {
    static std::map<Key, std::string> built;
    std::string& path = built[key];
    if (path.empty()) {
        const std::string name =
            scratchFile(std::to_string(sizeof(Key)) + "-" + std::to_string(built.size()) + ".mxf");
        buildAt(name);
        path = name;
    }
    return path;
}

} // namespace

const std::string& bigFile(const BigFileLayout& layout) {
    return builtOnce(std::tuple(layout.elements, layout.valueSize, layout.sparse),
                     [&](const std::string& path) { build(path, layout); });
}

const std::string& camerafile::path(std::uint64_t groups) {
    return builtOnce(groups, [&](const std::string& path) { buildCameraFile(path, groups); });
}

std::string scratchFile(const std::string& name) {
    return directory().file(name);
}
