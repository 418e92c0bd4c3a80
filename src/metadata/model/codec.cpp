#include "metadata/model/codec.h"

#include "util/utf.h"

#include <algorithm>

inline namespace vexa_toolkit {

namespace metadata {

namespace {

// Fields in the order of the wire.

template <class Time, class Visit> void visitTimestamp(Time& time, Visit visit) {
    visit(time.year);
    visit(time.month);
    visit(time.day);
    visit(time.hour);
    visit(time.minute);
    visit(time.second);
    visit(time.millisecondsBy4);
}

template <class Version, class Visit> void visitVersion(Version& version, Visit visit) {
    visit(version.majorVersion);
    visit(version.minorVersion);
    visit(version.patchVersion);
    visit(version.buildVersion);
    visit(version.releaseVersion);
}

} // namespace

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
    visitTimestamp(time, [&in](auto& field) { decode(in, field); });
}

void encode(Bytes& out, const MXFTimestamp& time) {
    visitTimestamp(time, [&out](const auto& field) { encode(out, field); });
}

void decode(byte_reader& in, MXFProductVersion& version) {
    visitVersion(version, [&in](auto& field) { decode(in, field); });
}

void encode(Bytes& out, const MXFProductVersion& version) {
    visitVersion(version, [&out](const auto& field) { encode(out, field); });
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
