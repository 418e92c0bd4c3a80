#include "inspect/ModelText.h"

#include "inspect/values.h"
#include "support/counted.h"

#include <algorithm>
#include <cstdint>
#include <map>
#include <string_view>

namespace modeltext {

namespace {

using metadata::ValueKind;

/// What the numbers of a property count, by its name; without the s of the plural.
const std::map<std::string_view, const char*> counts = {
    {"duration", "edit unit"},
    {"containerDuration", "edit unit"},
    {"origin", "edit unit"},
    {"startPosition", "edit unit"},
    {"eventStartPosition", "edit unit"},
    {"storedWidth", "pixel"},
    {"sampledWidth", "pixel"},
    {"displayWidth", "pixel"},
    {"storedHeight", "line"},
    {"sampledHeight", "line"},
    {"displayHeight", "line"},
    {"componentDepth", "bit"},
    {"quantizationBits", "bit"},
    {"blockAlign", "byte"},
    {"maxGOP", "picture"},
    {"maxGOV", "picture"},
    {"decodingDelay", "picture"},
};

const std::map<std::string_view, const char*> units = {
    {"editRate", " Hz"},
    {"eventEditRate", " Hz"},
    {"sampleRate", " Hz"},
    {"audioSamplingRate", " Hz"},
    {"roundedTimecodeBase", " frames/s"},
    {"bitRate", " bits/s"},
    {"maximumBitRate", " bits/s"},
    {"averageBitRate", " bits/s"},
    {"averageBytesPerSecond", " bytes/s"},
};

/// A label by its name, where it has one, and what tells the members of a family apart.
std::string label(const std::string& text) {
    constexpr std::size_t digits = 16 * 3 - 1;
    constexpr std::size_t secondHalf = 8 * 3;
    return text.size() <= digits ? text
                                 : '\'' + text.substr(digits + 1) + "' (" +
                                       text.substr(secondHalf, digits - secondHalf) + ')';
}

/// Bytes may be very many.
std::string shortened(const std::string& text) {
    constexpr std::size_t longest = 2 * 64; // of an extended UMID
    return text.size() <= longest
               ? text
               : text.substr(0, longest) + "... (" + counted(text.size() / 2, "byte") + ')';
}

std::string valueText(std::string_view name, ValueKind kind, const std::string& text) {
    const auto count = counts.find(name);
    const auto unit = units.find(name);
    std::string value = kind == ValueKind::String  ? quoted(text)
                        : kind == ValueKind::Label ? label(text)
                        : kind == ValueKind::Other ? shortened(text)
                                                   : text;
    if (name == "version") {
        const unsigned long version = std::stoul(text);
        value = values::version(static_cast<std::uint16_t>(version >> 8),
                                static_cast<std::uint16_t>(version & 0xFF));
    } else if (name == "trackNumber") {
        value = values::hexadecimal(static_cast<std::uint32_t>(std::stoul(text)));
    } else if (count != counts.end()) {
        value += std::string(" ") + count->second + (text == "1" ? "" : "s");
    } else if (unit != units.end()) {
        value += unit->second;
    }
    return value;
}

std::string propertyText(const ModelObject& described, const ModelObject::Property& property) {
    std::string text = std::string(" ") + property.name + ' ';
    const auto* const timecode = dynamic_cast<const TimecodeComponent*>(described.object.get());
    if (timecode != nullptr && property.name == std::string_view("startTimecode")) {
        const std::string start = values::startOf(*timecode);
        return text + (start.empty() ? counted(timecode->getStartTimecode(), "frame") : start);
    }
    if (!property.isList) {
        return text + valueText(property.name, property.kind, property.values.front());
    }
    text += '[';
    for (const std::string& value : property.values) {
        text += (text.back() == '[' ? "" : ", ") + valueText(property.name, property.kind, value);
    }
    return text + ']';
}

/// Far down it is a number.
std::string indentation(std::size_t depth) {
    constexpr std::size_t deepest = 20;
    const std::string spaces(2 * std::min(depth, deepest), ' ');
    return depth > deepest ? spaces + std::to_string(depth) + ' ' : spaces;
}

struct Character {
    std::uint32_t codePoint;
    std::size_t size;
    bool isValid;
};

/// Of UTF-8; a byte that begins none is taken alone.
Character firstOf(std::string_view text) {
    const auto byte = [&](std::size_t i) { return static_cast<std::uint8_t>(text[i]); };
    constexpr Character invalid{0, 1, false};
    constexpr std::uint32_t smallest[] = {0, 0, 0x80, 0x800, 0x10000};
    const std::uint8_t lead = byte(0);
    const std::size_t size = lead < 0x80             ? 1
                             : (lead & 0xE0) == 0xC0 ? 2
                             : (lead & 0xF0) == 0xE0 ? 3
                             : (lead & 0xF8) == 0xF0 ? 4
                                                     : 0;
    if (size == 0 || size > text.size()) {
        return invalid;
    }
    std::uint32_t codePoint = size == 1 ? lead : lead & (0x7FU >> size);
    for (std::size_t i = 1; i < size; ++i) {
        if ((byte(i) & 0xC0) != 0x80) {
            return invalid;
        }
        codePoint = codePoint << 6 | (byte(i) & 0x3FU);
    }
    return codePoint < smallest[size] ? invalid : Character{codePoint, size, true};
}

bool isPlain(std::uint32_t codePoint) {
    const bool control = codePoint < 0x20 || (codePoint >= 0x7F && codePoint < 0xA0);
    const bool unseen = codePoint == 0x061C || (codePoint >= 0x200B && codePoint <= 0x200F) ||
                        (codePoint >= 0x2028 && codePoint <= 0x202E) ||
                        (codePoint >= 0x2060 && codePoint <= 0x206F) || codePoint == 0xFEFF ||
                        codePoint >= 0xE0000;
    return !control && !unseen;
}

} // namespace

std::string linesOf(const ModelObject& described, bool isFirst) {
    const MetadataRoot& object = *described.object;
    std::string text = indentation(described.depth + 1) +
                       (described.owner || isFirst ? "" : "unreferenced ") + object.getClassName();
    for (const auto& property : described.properties) {
        text += propertyText(described, property);
    }
    text += " UID " + values::digits(object.getInstanceUID());
    if (object.hasStreampos()) {
        text += " at " + std::to_string(std::streamoff(object.getStreampos()));
    }
    text += '\n';
    for (const auto& [key, bytes] : described.darkProperties) {
        text += indentation(described.depth + 2) + "dark " + values::digits(key) + ' ' +
                counted(bytes.size(), "byte") + '\n';
    }
    return text;
}

std::string quoted(const std::string& utf8) {
    std::string text = "\"";
    for (std::string_view rest = utf8; !rest.empty();) {
        const Character character = firstOf(rest);
        if (!character.isValid) {
            text += "\xEF\xBF\xBD";
        } else if (character.codePoint == '"' || character.codePoint == '\\') {
            text += std::string("\\") + rest.front();
        } else if (isPlain(character.codePoint)) {
            text += rest.substr(0, character.size);
        } else {
            text += "\\u{" + values::hexadecimal(character.codePoint, 1) + '}';
        }
        rest.remove_prefix(character.size);
    }
    return text + '"';
}

} // namespace modeltext
