// vexa extract: each essence track in a file of its own. Holds one element at a time in memory, and
// of very large ones a piece.

#include "Subcommand.h"
#include "extract/EssenceFormats.h"
#include "extract/aes3.h"
#include "extract/wave.h"
#include "support/OutputFile.h"
#include "support/ProgressLine.h"
#include "support/Reports.h"
#include "support/counted.h"
#include "support/elementKey.h"
#include "support/input.h"
#include "support/interrupt.h"

#include <vexa/vexa.h>

#include <boost/make_shared.hpp>

#include <cstdint>
#include <exception>
#include <filesystem>
#include <functional>
#include <iomanip>
#include <iostream>
#include <map>
#include <memory>
#include <optional>
#include <set>
#include <sstream>
#include <stdexcept>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace {

namespace fs = std::filesystem;

struct Options {
    std::string file;
    std::string directory = ".";
    /// As in the names of the files; empty for all.
    std::string track;
    /// Of the one track.
    std::string output;
    bool raw = false;
};

/// A track on its way into its file.
class TrackFile {
public:
    TrackFile(const fs::path& path, const fs::path& input, const EssenceFormat& format)
        : format_(format), file_(path, input) {
        if (format_.wave) {
            writeHeader(file_.isSeekable() ? std::optional<std::uint64_t>(0) : std::nullopt);
        }
    }

    const OutputFile& file() const { return file_; }
    bool isAES3() const { return format_.isAES3; }

    void write(const std::uint8_t* data, std::uint64_t size) {
        if (format_.isAES3) {
            pcm_.clear();
            appendPCM(data, size, format_.wave->channels, format_.wave->bytesPerSample, pcm_);
            file_.write(pcm_.data(), pcm_.size());
        } else {
            file_.write(data, size);
        }
    }

    void finish() {
        if (format_.wave && file_.isSeekable()) {
            const std::uint64_t samples = file_.bytes() - headerSize_;
            if (samples % 2 != 0) {
                file_.write("", 1);
            }
            file_.rewrite(waveHeader(*format_.wave, samples));
        }
        file_.finish();
    }

private:
    void writeHeader(std::optional<std::uint64_t> size) {
        const std::string header = waveHeader(*format_.wave, size);
        headerSize_ = header.size();
        file_.write(header.data(), headerSize_);
    }

    EssenceFormat format_;
    OutputFile file_;
    std::uint64_t headerSize_ = 0;
    std::vector<std::uint8_t> pcm_;
};

class Extractor : public DullMXFStructureHandler,
                  public DullVEXAMetadataHandler,
                  public DullMXFGCEssenceHandler,
                  public DullMXFGCChunkedEssenceHandler {
public:
    Extractor(Options options, std::function<void()> onElement)
        : options_(std::move(options)), onElement_(std::move(onElement)) {}

    void startPartition(const KLVKey&, const MXFPartitionPack& pack, std::uint64_t) override {
        bodySID_ = pack.bodySID;
    }

    void model(const std::vector<boost::shared_ptr<MetadataRoot>>& roots) override {
        formats_.setPreface(roots.empty() ? nullptr
                                          : boost::dynamic_pointer_cast<Preface>(roots.front()));
    }

    /// Partitions mostly repeat it.
    void xmlMetadata(const char* data, std::size_t size) override {
        const std::string_view document(data, size);
        if (!options_.track.empty() ||
            !documents_.insert(std::hash<std::string_view>()(document)).second) {
            return;
        }
        const std::string number =
            documents_.size() == 1 ? "" : '-' + std::to_string(documents_.size());
        TrackFile& file = open("metadata" + number + ".xml", {});
        file.write(reinterpret_cast<const std::uint8_t*>(data), size);
    }

    bool wantsEssence(const KLVKey& key, std::uint64_t, std::uint8_t**) override {
        onElement_();
        track_ = find(key);
        return track_ != nullptr;
    }

    /// AES3 elements are never that large.
    bool wantsChunkedEssence(const KLVKey&, std::uint64_t) override { return !track_->isAES3(); }

    void pictureElement(const KLVKey&, const std::uint8_t* data, std::uint64_t size) override {
        write(data, size);
    }
    void soundElement(const KLVKey&, const std::uint8_t* data, std::uint64_t size) override {
        write(data, size);
    }
    void dataElement(const KLVKey&, const std::uint8_t* data, std::uint64_t size) override {
        write(data, size);
    }
    void compoundElement(const KLVKey&, const std::uint8_t* data, std::uint64_t size) override {
        write(data, size);
    }

    /// Gives the files their names, and says what was written.
    void finish() {
        for (const auto& file : files_) {
            file->finish();
            if (options_.output != "-") {
                std::cout << file->file().path().filename().string() << ' '
                          << counted(file->file().bytes(), "byte") << '\n';
            }
        }
    }

    bool hasFiles() const { return !files_.empty(); }

private:
    void write(const std::uint8_t* data, std::uint64_t size) {
        if (data != nullptr) {
            track_->write(data, size);
        }
    }

    /// Null for a track that isn't wanted.
    TrackFile* find(const KLVKey& key) {
        const auto [place, isNew] =
            tracks_.insert({{bodySID_, MXFGCElementKey::trackNumber(key)}, nullptr});
        if (isNew) {
            firstBodySID_ = firstBodySID_.value_or(bodySID_);
            const std::string number = describe(key);
            if (options_.track.empty() || options_.track == number) {
                const auto format = options_.raw ? EssenceFormat() : formats_.find(bodySID_, key);
                place->second = &open(kindOf(key) + ('-' + number) + format.extension, format);
            }
        }
        return place->second;
    }

    /// The number of the track, with that of its essence stream if it isn't the first one.
    std::string describe(const KLVKey& key) const {
        std::ostringstream text;
        text << std::hex << std::setfill('0') << std::setw(8) << MXFGCElementKey::trackNumber(key);
        if (bodySID_ != *firstBodySID_) {
            text << '-' << std::dec << bodySID_;
        }
        return text.str();
    }

    TrackFile& open(const std::string& name, const EssenceFormat& format) {
        const fs::path path = options_.output.empty() ? fs::path(options_.directory) / name
                                                      : fs::path(options_.output);
        files_.push_back(std::make_unique<TrackFile>(path, options_.file, format));
        return *files_.back();
    }

    Options options_;
    std::function<void()> onElement_;
    EssenceFormats formats_;
    std::uint32_t bodySID_ = 0;
    std::optional<std::uint32_t> firstBodySID_;
    std::set<std::size_t> documents_;
    std::vector<std::unique_ptr<TrackFile>> files_;
    std::map<std::pair<std::uint32_t, std::uint32_t>, TrackFile*> tracks_;
    TrackFile* track_ = nullptr;
};

Status read(const Options& options) {
    const auto file = openInput(options.file);
    const auto reports = boost::make_shared<Reports>(
        false, [](const Report& report) { std::cerr << lineOf(report) << '\n'; });
    ProgressLine progress(options.file);
    const auto extractor = boost::make_shared<Extractor>(options, [&] { progress.tell(*reports); });
    const auto reader = createVEXAReader(file);
    reader->setStructureHandler(extractor);
    reader->setMetadataHandler(extractor);
    reader->setEssenceHandler(extractor);
    reader->setErrorHandler(reports);
    std::string failed;
    try {
        readInterruptibly(*reader);
    } catch (const OutputFailure&) {
        throw;
    } catch (const std::exception& failure) {
        failed = explain(failure, *file);
    }
    extractor->finish(); // also what could be read of a broken file
    reports->tellKeptBack([](const Report& report, std::uint64_t count) {
        std::cerr << lineOf(report) << " ... " << count << " more\n";
    });
    if (!failed.empty()) {
        throw std::runtime_error(failed);
    }
    if (!options.track.empty() && !extractor->hasFiles()) {
        throw std::runtime_error("has no track " + options.track);
    }
    return reports->hasErrors() ? ErrorsReported : Sound;
}

Status extract(const Options& options) {
    try {
        return read(options);
    } catch (const OutputFailure&) {
        throw;
    } catch (const std::exception& failure) {
        throw std::runtime_error(options.file + ": " + failure.what());
    }
}

} // namespace

Work configureExtract(CLI::App& app) {
    const auto options = std::make_shared<Options>();
    app.add_option("FILE", options->file, "The MXF file")->required();
    app.add_option("DIR", options->directory,
                   "Where the files go, made if need be; without it the current directory");
    app.add_flag("--raw", options->raw, "Write elements as they are, into .bin files");
    auto* const track =
        app.add_option("--track", options->track, "Write this track alone, as 15010500")
            ->transform([](const std::string& text) { return CLI::detail::to_lower(text); });
    auto* const output = app.add_option("-o,--output", options->output,
                                        "The file of the one track; - is standard output");
    output->needs(track);
    return [options] { return extract(*options); };
}
