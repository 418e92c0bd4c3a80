#include "klv/KLVReader.h"

#include "klv/streams.h"

inline namespace vexa_toolkit {

KLVReader::~KLVReader() = default;

void KLVReader::parse(std::istream& stream, std::streampos stopAt) {
    bool stop = false;
    parse(stream, stopAt, stop);
}

void KLVReader::parse(std::istream& stream) {
    parse(stream, klvutil::noPosition);
}

} // namespace vexa_toolkit
