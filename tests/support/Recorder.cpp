#include "support/Recorder.h"

#include "support/KLVBytes.h"
#include "util/hex.h"

#include <algorithm>
#include <utility>

namespace {

const KLVKey fillKey = smpteKey({1, 1, 1, 1, 3, 1, 2, 0x10, 1});

std::string kindOf(const KLVKey& key) {
    return MXFPartitionKey::isHeader(key) ? "header"
           : MXFPartitionKey::isBody(key) ? "body"
                                          : "footer";
}

std::string lineOf(const KeepingErrorHandler::Report& report) {
    using Severity = KeepingErrorHandler::Severity;
    const std::string severity = report.severity == Severity::Warning ? "warning"
                                 : report.severity == Severity::Error ? "error"
                                                                      : "fatal";
    const std::string code = hex(report.code.bytes.data(), 4);
    const std::string place =
        report.position < 0 ? std::string() : " @" + std::to_string(report.position);
    return severity + ' ' + code + place + ' ' + report.text;
}

} // namespace

std::string joined(const Lines& lines) {
    std::string text;
    for (const std::string& line : lines) {
        text += line + '\n';
    }
    return text;
}

Lines comparable(Lines lines) {
    for (std::string& line : lines) {
        if (line.find("form ") < 4 || line.find("endStream aborted") < 4) {
            line.resize(std::min(line.find(" @"), line.size()));
        }
    }
    return lines;
}

void Recording::add(const std::string& line) {
    if (interference_ && lines_.size() == interferenceIndex_) {
        std::exchange(interference_, nullptr)();
    }
    lines_.push_back(line);
}

void Recording::interfere(std::size_t index, std::function<void()> call) {
    interferenceIndex_ = index;
    interference_ = std::move(call);
}

KLVRecorder::KLVRecorder(Recording& recording, std::string name)
    : recording_(recording), name_(std::move(name)) {}

std::string KLVRecorder::nameOf(const KLVKey& key) {
    if (MXFPartitionKey::isPartitionKey(key)) {
        return "partition";
    }
    if (key == randomIndexKey) {
        return "random-index";
    }
    return key == fillKey ? "fill" : hex(&key.bytes[8], 2);
}

std::string KLVRecorder::nameOf(std::uint32_t tag) {
    return hex(KLVBytes().number(tag, tag >> 16 == 0 ? 2 : 4).bytes());
}

void KLVRecorder::add(const std::string& event) {
    const std::string place = locator_ == nullptr
                                  ? std::string()
                                  : " @" + std::to_string(std::streamoff(locator_->getPosition()));
    recording_.add((name_.empty() ? name_ : name_ + ": ") + event + place);
}

bool KLVRecorder::start(const std::string& what, std::uint64_t length, std::uint8_t** to,
                        const std::string& rest) {
    const bool skips = (wants_ == Wants::Small && to != nullptr && length > 1024) ||
                       (wants_ == Wants::Something && ((length ^ length >> 3) & 3) == 0);
    add("start" + what + ' ' + std::to_string(length) + rest + (skips ? " skipped" : ""));
    if (!skips && to != nullptr && (wants_ == Wants::Buffered || wants_ == Wants::Small)) {
        buffer_.resize(length + 1);
        *to = buffer_.data();
    }
    return wants_ != Wants::Nothing && !skips;
}

void KLVRecorder::setLocator(const Locator* locator) {
    recording_.add((name_.empty() ? name_ : name_ + ": ") + "setLocator");
    locator_ = locator;
}

void KLVRecorder::startStream(bool accurateLengths) {
    add(std::string("startStream ") + (accurateLengths ? "accurate" : "inaccurate"));
}

void KLVRecorder::endStream(bool aborted) {
    add(std::string("endStream") + (aborted ? " aborted" : ""));
    locator_ = nullptr;
}

void KLVRecorder::berLengthForm(std::uint8_t form) {
    add("form " + util::hexByte(form));
}

bool KLVRecorder::startLocalSet(const KLVKey& key, std::uint64_t length, TagType tagType,
                                LengthType lengthType) {
    return start("LocalSet " + nameOf(key), length, nullptr,
                 " tag " + std::to_string(tagType) + " length " + std::to_string(lengthType));
}

void KLVRecorder::value(const std::uint8_t* data, std::uint64_t size) {
    std::string text = "value " + std::to_string(size);
    for (std::uint64_t i = 0; i < size && i < 4; ++i) {
        text += ' ' + util::hexByte(data[i]);
    }
    add(text + (!buffer_.empty() && data == buffer_.data() ? "*" : ""));
}

void StructureRecorder::runIn(std::uint64_t length) {
    recording_.add("runIn " + std::to_string(length));
}

void StructureRecorder::startStructure() {
    recording_.add("startStructure");
}

void StructureRecorder::endStructure(bool aborted) {
    recording_.add(aborted ? "endStructure aborted" : "endStructure");
}

void StructureRecorder::startPartition(const KLVKey& key, const MXFPartitionPack& pack,
                                       std::uint64_t packByteCount) {
    recording_.add("startPartition " + kindOf(key) + ' ' + std::to_string(key[14]) + " this " +
                   std::to_string(pack.thisPartition) + " packByteCount " +
                   std::to_string(packByteCount));
}

void StructureRecorder::endPartition(const KLVKey& key) {
    recording_.add("endPartition " + kindOf(key));
}

void StructureRecorder::randomIndex(const MXFRandomIndex& table) {
    std::string line = "randomIndex";
    for (const MXFRandomIndexEntry& entry : table) {
        line += ' ' + std::to_string(entry.bodySID) + ':' + std::to_string(entry.byteOffset);
    }
    recording_.add(line);
}

std::string KeepingErrorHandler::text() const {
    Lines lines;
    for (const Report& report : reports_) {
        lines.push_back(lineOf(report));
    }
    return joined(lines);
}

void KeepingErrorHandler::setLocator(const Locator* locator) {
    locator_ = locator;
}

void KeepingErrorHandler::startParse() {
    if (recording_ != nullptr) {
        recording_->add("startParse");
    }
}

void KeepingErrorHandler::endParse() {
    locator_ = nullptr;
    if (recording_ != nullptr) {
        recording_->add("endParse");
    }
}

void KeepingErrorHandler::warning(const MXFUID& code, const std::string& text) {
    keep(Severity::Warning, code, text);
}

void KeepingErrorHandler::error(const MXFUID& code, const std::string& text) {
    keep(Severity::Error, code, text);
}

void KeepingErrorHandler::fatalError(const MXFUID& code, const std::string& text) {
    keep(Severity::Fatal, code, text);
}

void KeepingErrorHandler::keep(Severity severity, const MXFUID& code, const std::string& text) {
    const std::streamoff position =
        locator_ != nullptr ? std::streamoff(locator_->getPosition()) : -1;
    reports_.push_back({severity, code, text, position});
    if (recording_ != nullptr) {
        recording_->add(lineOf(reports_.back()));
    }
}
