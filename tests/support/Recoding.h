#pragma once

#include "front/VEXASystemCoder.h"
#include "front/VEXASystemParser.h"
#include "gc/MXFGCSplitter.h"
#include "gc/MXFGCSystemCoder.h"
#include "index/MXFIndexCoder.h"
#include "index/MXFIndexParser.h"
#include "klv/GenericKLVReader.h"
#include "klv/GenericKLVWriter.h"
#include "support/EventRecorder.h"
#include "support/KLVBytes.h"
#include "support/TestStream.h"

#include <sstream>

using Segments = std::vector<MXFIndexTableSegment>;

/// An index table as it is coded.
template <class Coder = MXFIndexCoder> struct SegmentCoding {
    std::ostringstream text;
    GenericKLVWriter writer{text};
    Coder coder{writer};

    Bytes code(const Segments& segments) {
        coder.startIndexTable();
        for (const MXFIndexTableSegment& segment : segments) {
            coder.indexTableSegment(segment);
        }
        coder.endIndexTable();
        const std::string bytes = text.str();
        return {bytes.begin(), bytes.end()};
    }
};

inline Segments parseSegments(const Bytes& bytes, ErrorHandler* errors = nullptr) {
    Recording recording;
    EventRecorder recorder(recording);
    MXFIndexParser parser(recorder);
    parser.setErrorHandler(errors);
    TestStream stream(bytes);
    GenericKLVReader(parser).parse(stream);
    return recorder.segments;
}

/// A parser of system items of both formats before a coder that writes KLV.
struct SystemRecoding {
    std::ostringstream out;
    GenericKLVWriter writer{out};
    MXFGCSystemCoder elements{writer};
    VEXASystemCoder coder{elements};
    VEXASystemParser parser;
    MXFGCSplitter splitter{nullptr, &parser, nullptr};
    KeepingErrorHandler errors;

    SystemRecoding() {
        writer.startStream(true);
        parser.setErrorHandler(errors);
        parser.setSDTICPSystemHandler(*coder.getSDTICPSystemHandler());
        parser.setQZProxySystemHandler(*coder.getQZProxySystemHandler());
    }
};
