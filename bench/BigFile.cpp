#include "BigFile.h"

#include "klv/berLength.h"
#include "measure.h"
#include "mxf/keys.h"
#include "mxf/partitionPack.h"
#include "mxf/randomIndex.h"

#include <vexa/mxf/MXFPartitionKey.h>

#include <algorithm>
#include <filesystem>
#include <map>
#include <random>
#include <sstream>
#include <stdexcept>
#include <tuple>
#include <vector>

namespace {

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
    for (std::uint8_t& byte : value) {
        byte = static_cast<std::uint8_t>(engine());
    }
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

} // namespace

const std::string& bigFile(const BigFileLayout& layout) {
    static std::map<std::tuple<std::uint64_t, std::uint64_t, bool>, std::string> built;
    std::string& path = built[{layout.elements, layout.valueSize, layout.sparse}];
    if (path.empty()) {
        const std::string name = scratchFile(std::to_string(built.size()) + ".mxf");
        build(name, layout);
        path = name;
    }
    return path;
}

std::string scratchFile(const std::string& name) {
    return directory().file(name);
}
