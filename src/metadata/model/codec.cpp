#include "metadata/model/codec.h"

#include "util/utf.h"

#include <algorithm>

inline namespace vexa_toolkit {

namespace metadata {

void decode(byte_reader& in, UMID& umid) {
    const std::size_t size = in.remaining();
    util::check(size == UMID::basicSize || size == UMID::extendedSize, "valid size");
    umid.extended = size == UMID::extendedSize;
    std::copy_n(in.take(size, "valid size"), size, umid.bytes.begin());
}

void encode(Bytes& out, const UMID& umid) {
    out.insert(out.end(), umid.bytes.begin(),
               umid.bytes.begin() + static_cast<std::ptrdiff_t>(umid.size()));
}

void decode(byte_reader& in, MXFTimestamp& time) {
    decode(in, time.year);
    decode(in, time.month);
    decode(in, time.day);
    decode(in, time.hour);
    decode(in, time.minute);
    decode(in, time.second);
    decode(in, time.millisecondsBy4);
}

void encode(Bytes& out, const MXFTimestamp& time) {
    encode(out, time.year);
    encode(out, time.month);
    encode(out, time.day);
    encode(out, time.hour);
    encode(out, time.minute);
    encode(out, time.second);
    encode(out, time.millisecondsBy4);
}

void decode(byte_reader& in, MXFProductVersion& version) {
    decode(in, version.majorVersion);
    decode(in, version.minorVersion);
    decode(in, version.patchVersion);
    decode(in, version.buildVersion);
    decode(in, version.releaseVersion);
}

void encode(Bytes& out, const MXFProductVersion& version) {
    encode(out, version.majorVersion);
    encode(out, version.minorVersion);
    encode(out, version.patchVersion);
    encode(out, version.buildVersion);
    encode(out, version.releaseVersion);
}

void decode(byte_reader& in, RGBALayout& layout) {
    for (RGBALayout::Component& component : layout.components) {
        decode(in, component.code);
        decode(in, component.depth);
    }
}

void encode(Bytes& out, const RGBALayout& layout) {
    for (const RGBALayout::Component& component : layout.components) {
        encode(out, component.code);
        encode(out, component.depth);
    }
}

void decode(byte_reader& in, std::wstring& text) {
    const std::size_t size = in.remaining();
    text = util::wideFromUtf16(in.take(size, "successful read()"), size);
}

void encode(Bytes& out, const std::wstring& text) {
    util::appendUtf16(out, text);
}

void decode(byte_reader& in, std::string& text) {
    const std::size_t size = in.remaining();
    const std::uint8_t* const bytes = in.take(size, "successful read()");
    text.assign(bytes, bytes + size);
}

void encode(Bytes& out, const std::string& text) {
    out.insert(out.end(), text.begin(), text.end());
}

} // namespace metadata

} // namespace vexa_toolkit
