#include "gc/MXFGCEssenceCoder.h"

#include "klv/writeElements.h"
#include "util/check.h"

inline namespace vexa_toolkit {

MXFGCEssenceCoder::MXFGCEssenceCoder(KLVHandler& next) : next_(&next) {}

MXFGCEssenceCoder::~MXFGCEssenceCoder() = default;

void MXFGCEssenceCoder::startStream() {
    chunkKey_.reset();
}

std::uint8_t MXFGCEssenceCoder::formFor(std::uint64_t length) const {
    if (lengthForm_ != klvutil::noBERForm) {
        return lengthForm_;
    }
    return length > klvutil::longestInDefaultForm ? klvutil::longBERForm : klvutil::defaultBERForm;
}

void MXFGCEssenceCoder::writeElement(const KLVKey& key, const std::uint8_t* data,
                                     std::uint64_t length) {
    util::check(data != nullptr || length == 0, "has essence data");
    if (chunkKey_) {
        writePiece(key, data, length);
        return;
    }
    next_->berLengthForm(formFor(length));
    klvutil::writeIndividualItem(*next_, key, data, static_cast<std::size_t>(length));
}

void MXFGCEssenceCoder::writePiece(const KLVKey& key, const std::uint8_t* data,
                                   std::uint64_t length) {
    util::check(key == *chunkKey_, "correct chunked essence key");
    if (chunkRemaining_ != unknownLength) {
        util::check(length <= chunkRemaining_, "correct chunked length");
        chunkRemaining_ -= length;
    }
    next_->value(data, length);
}

bool MXFGCEssenceCoder::wantsEssence(const KLVKey&, std::uint64_t, std::uint8_t**) {
    return true;
}

void MXFGCEssenceCoder::pictureElement(const KLVKey& key, const std::uint8_t* data,
                                       std::uint64_t length) {
    writeElement(key, data, length);
}

void MXFGCEssenceCoder::soundElement(const KLVKey& key, const std::uint8_t* data,
                                     std::uint64_t length) {
    writeElement(key, data, length);
}

void MXFGCEssenceCoder::dataElement(const KLVKey& key, const std::uint8_t* data,
                                    std::uint64_t length) {
    writeElement(key, data, length);
}

void MXFGCEssenceCoder::compoundElement(const KLVKey& key, const std::uint8_t* data,
                                        std::uint64_t length) {
    writeElement(key, data, length);
}

void MXFGCEssenceCoder::essenceLengthForm(std::uint8_t form) {
    lengthForm_ = form;
}

bool MXFGCEssenceCoder::wantsChunkedEssence(const KLVKey& key, std::uint64_t length) {
    util::check(!chunkKey_, "not in chunked essence");
    next_->berLengthForm(formFor(length));
    std::uint8_t* buffer = nullptr;
    const std::uint64_t written = length == unknownLength ? 0 : length;
    util::check(next_->startIndividualItem(key, written, &buffer), "wants essence");
    chunkKey_ = key;
    chunkRemaining_ = length;
    return true;
}

void MXFGCEssenceCoder::endChunkedEssence(const KLVKey& key) {
    util::check(chunkKey_ && key == *chunkKey_, "in chunked essence");
    util::check(chunkRemaining_ == 0 || chunkRemaining_ == unknownLength, "correct chunked length");
    chunkKey_.reset();
    next_->endIndividualItem(key);
}

} // namespace vexa_toolkit
