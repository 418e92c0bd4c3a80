#include "klv/GenericKLVWriter.h"

#include "klv/bigEndian.h"
#include "klv/fillItem.h"
#include "klv/smpte.h"
#include "util/check.h"

#include <array>
#include <limits>

inline namespace vexa_toolkit {

GenericKLVWriter::GenericKLVWriter(std::ostream& stream) : stream_(&stream) {}

GenericKLVWriter::~GenericKLVWriter() = default;

void GenericKLVWriter::checkStarted() const {
    util::check(started_, "has started");
}

void GenericKLVWriter::write(const void* data, std::uint64_t size) {
    stream_->write(static_cast<const char*>(data), static_cast<std::streamsize>(size));
    util::check(stream_->good(), "successful write()");
}

void GenericKLVWriter::writeKey(const KLVKey& key) {
    write(key.bytes.data(), KLVKey::size);
}

void GenericKLVWriter::writeHead(const KLVKey& key, std::uint64_t length) {
    checkStarted();
    writeKey(key);
    klvutil::writeBERLength(*stream_, length, form_);
}

void GenericKLVWriter::writeInteger(std::uint64_t value, std::uint8_t octets) {
    util::check(value >> (8 * octets) == 0, "enough octets");
    std::array<std::uint8_t, 4> bytes{};
    klvutil::toOctets(value, bytes.data(), octets);
    write(bytes.data(), octets);
}

void GenericKLVWriter::writeItemLength(std::uint64_t length) {
    if (lengthType_ == 0) {
        klvutil::writeBERLength(*stream_, length, form_);
    } else {
        writeInteger(length, klvutil::innerLengthSize(lengthType_, form_));
    }
}

KLVKey GenericKLVWriter::fillKey(const KLVKey& key) {
    if (!fillKeyVersion_) {
        fillKeyVersion_ = klvutil::fillKeyVersion(*stream_);
    }
    KLVKey versioned = key;
    if (*fillKeyVersion_ != 0) {
        versioned[KLVKey::versionByte] = *fillKeyVersion_;
    }
    return versioned;
}

void GenericKLVWriter::setLocator(const Locator*) {}

void GenericKLVWriter::startStream(bool accurateLengths) {
    util::check(!started_, "has not started");
    util::check(accurateLengths, "unbuffered output is possible");
    fillKeyVersion_.reset();
    started_ = true;
}

void GenericKLVWriter::endStream(bool) {
    checkStarted();
    started_ = false;
}

void GenericKLVWriter::berLengthForm(std::uint8_t form) {
    util::check(klvutil::isBERForm(form), "valid form");
    form_ = form;
}

bool GenericKLVWriter::startIndividualItem(const KLVKey& key, std::uint64_t length,
                                           std::uint8_t**) {
    writeHead(key == klvutil::fillItemKey ? fillKey(key) : key, length);
    return true;
}

void GenericKLVWriter::endIndividualItem(const KLVKey&) {}

bool GenericKLVWriter::startLabel(const KLVKey& key) {
    checkStarted();
    writeKey(key);
    return true;
}

void GenericKLVWriter::endLabel(const KLVKey&) {}

bool GenericKLVWriter::startUniversalSet(const KLVKey& key, std::uint64_t length) {
    writeHead(key, length);
    return true;
}

void GenericKLVWriter::endUniversalSet(const KLVKey&) {}

bool GenericKLVWriter::startLocalSet(const KLVKey& key, std::uint64_t length, TagType tagType,
                                     LengthType lengthType) {
    checkStarted();
    const auto widths = klvutil::localSetWidths(key);
    util::check(widths && widths->tagType == tagType && widths->lengthType == lengthType,
                "correct local item type and length");
    writeHead(key, length);
    tagType_ = tagType;
    lengthType_ = lengthType;
    return true;
}

void GenericKLVWriter::endLocalSet(const KLVKey&) {}

bool GenericKLVWriter::startLocalItem(std::uint32_t tag, std::uint64_t length, std::uint8_t**) {
    checkStarted();
    writeInteger(tag, klvutil::tagSize(tagType_));
    writeItemLength(length);
    return true;
}

void GenericKLVWriter::endLocalItem(std::uint32_t) {}

bool GenericKLVWriter::startFixedLengthPack(const KLVKey& key, std::uint64_t length,
                                            std::uint8_t**) {
    writeHead(key, length);
    return true;
}

void GenericKLVWriter::endFixedLengthPack(const KLVKey&) {}

bool GenericKLVWriter::startVariableLengthPack(const KLVKey& key, std::uint64_t length,
                                               LengthType lengthType) {
    writeHead(key, length);
    lengthType_ = lengthType;
    return true;
}

void GenericKLVWriter::endVariableLengthPack(const KLVKey&) {}

bool GenericKLVWriter::startVariableLengthItem(std::uint64_t length, std::uint8_t**) {
    checkStarted();
    writeItemLength(length);
    return true;
}

void GenericKLVWriter::endVariableLengthItem() {}

bool GenericKLVWriter::startWrapper(const KLVKey& key, std::uint64_t length, bool, std::uint8_t**) {
    writeHead(key, length);
    return true;
}

void GenericKLVWriter::endWrapper(const KLVKey&) {}

void GenericKLVWriter::value(const std::uint8_t* data, std::uint64_t size) {
    checkStarted();
    util::check(size <= std::numeric_limits<std::streamsize>::max(), "valid streamsize");
    write(data, size);
}

} // namespace vexa_toolkit
