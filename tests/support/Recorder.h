#pragma once

#include <vexa/vexa.h>

#include <functional>
#include <ostream>
#include <string>
#include <vector>

using Lines = std::vector<std::string>;

/// Each line with a line end.
std::string joined(const Lines& lines);
/// Without positions where these mean nothing: at a form, where a reader's two ways to tell them
/// differ, and at the end of a stream that failed.
Lines comparable(Lines lines);

/// The lines that recorders write; several may share one, and so show the order between them.
class Recording {
public:
    void add(const std::string& line);
    /// Something to do, such as to throw, in place of whoever adds the line of that index first.
    void interfere(std::size_t index, std::function<void()> call);
    const Lines& lines() const { return lines_; }
    std::string text() const { return joined(lines_); }

private:
    Lines lines_;
    std::size_t interferenceIndex_ = 0;
    std::function<void()> interference_;
};

/// Tells one place.
struct FixedLocator : Locator {
    explicit FixedLocator(std::streamoff at) : position(at) {}
    const std::streampos& getPosition() const override { return position; }
    std::streampos position;
};

/// What start events answer. Buffers are for values, Small for those up to 1 KiB, of which alone
/// something is wanted.
enum class Wants { Everything, Nothing, Buffered, Small, Something };

/// Writes each KLV event as a line, with the name in front where it has one:
///
///     name: startIndividualItem 7E01 10 @20
///
/// A key is the 4 hexadecimal digits of its bytes 8 and 9, or fill, partition or random-index. What
/// stands behind @ is the position, for events at which it is meaningful. Where only some elements
/// are wanted, `skipped` stands behind the others; * behind a value in this recorder's buffer.
class KLVRecorder : public KLVHandler {
public:
    explicit KLVRecorder(Recording& recording, std::string name = {});

    void want(Wants wants) { wants_ = wants; }

    void setLocator(const Locator* locator) override;
    void startStream(bool accurateLengths) override;
    void endStream(bool aborted) override;
    void berLengthForm(std::uint8_t form) override;
    bool startIndividualItem(const KLVKey& key, std::uint64_t length, std::uint8_t** to) override {
        return start("IndividualItem " + nameOf(key), length, to);
    }
    void endIndividualItem(const KLVKey& key) override { add("endIndividualItem " + nameOf(key)); }
    bool startLabel(const KLVKey& key) override {
        add("startLabel " + nameOf(key));
        return wants_ != Wants::Nothing;
    }
    void endLabel(const KLVKey& key) override { add("endLabel " + nameOf(key)); }
    bool startUniversalSet(const KLVKey& key, std::uint64_t length) override {
        return start("UniversalSet " + nameOf(key), length);
    }
    void endUniversalSet(const KLVKey& key) override { add("endUniversalSet " + nameOf(key)); }
    bool startLocalSet(const KLVKey& key, std::uint64_t length, TagType tagType,
                       LengthType lengthType) override;
    void endLocalSet(const KLVKey& key) override { add("endLocalSet " + nameOf(key)); }
    bool startLocalItem(std::uint32_t tag, std::uint64_t length, std::uint8_t** to) override {
        return start("LocalItem " + nameOf(tag), length, to);
    }
    void endLocalItem(std::uint32_t tag) override { add("endLocalItem " + nameOf(tag)); }
    bool startFixedLengthPack(const KLVKey& key, std::uint64_t length, std::uint8_t** to) override {
        return start("FixedLengthPack " + nameOf(key), length, to);
    }
    void endFixedLengthPack(const KLVKey& key) override {
        add("endFixedLengthPack " + nameOf(key));
    }
    bool startVariableLengthPack(const KLVKey& key, std::uint64_t length,
                                 LengthType lengthType) override {
        return start("VariableLengthPack " + nameOf(key), length, nullptr,
                     " length " + std::to_string(lengthType));
    }
    void endVariableLengthPack(const KLVKey& key) override {
        add("endVariableLengthPack " + nameOf(key));
    }
    bool startVariableLengthItem(std::uint64_t length, std::uint8_t** to) override {
        return start("VariableLengthItem", length, to);
    }
    void endVariableLengthItem() override { add("endVariableLengthItem"); }
    bool startWrapper(const KLVKey& key, std::uint64_t length, bool simple,
                      std::uint8_t** to) override {
        return start("Wrapper " + nameOf(key), length, to, simple ? " simple" : "");
    }
    void endWrapper(const KLVKey& key) override { add("endWrapper " + nameOf(key)); }
    void value(const std::uint8_t* data, std::uint64_t size) override;

private:
    static std::string nameOf(const KLVKey& key);
    static std::string nameOf(std::uint32_t tag);
    void add(const std::string& event);
    bool start(const std::string& what, std::uint64_t length, std::uint8_t** to = nullptr,
               const std::string& rest = {});

    Recording& recording_;
    std::string name_;
    const Locator* locator_ = nullptr;
    Wants wants_ = Wants::Everything;
    std::vector<std::uint8_t> buffer_;
};

/// Writes each structure event as a line, such as `startPartition header 4 this 0 packByteCount
/// 128` or `randomIndex 0:0 1:512`.
class StructureRecorder : public MXFStructureHandler {
public:
    explicit StructureRecorder(Recording& recording) : recording_(recording) {}

    void runIn(std::uint64_t length) override;
    void startStructure() override;
    void endStructure(bool aborted) override;
    void startPartition(const KLVKey& key, const MXFPartitionPack& pack,
                        std::uint64_t packByteCount) override;
    void endPartition(const KLVKey& key) override;
    void randomIndex(const MXFRandomIndex& table) override;

private:
    Recording& recording_;
};

/// Keeps what is reported; with a recording, writes it there, too, as a line such as
/// `warning 4C4C0104 @1234 incorrect thisPartition`.
class KeepingErrorHandler : public ErrorHandler {
public:
    enum class Severity { Warning, Error, Fatal };
    struct Report {
        Severity severity;
        MXFUID code;
        std::string text;
        std::streamoff position;
    };

    KeepingErrorHandler() = default;
    explicit KeepingErrorHandler(Recording& recording) : recording_(&recording) {}

    const std::vector<Report>& reports() const { return reports_; }
    /// All reports in the form of the lines.
    std::string text() const;

    void setLocator(const Locator* locator) override;
    void startParse() override;
    void endParse() override;
    void warning(const MXFUID& code, const std::string& text) override;
    void error(const MXFUID& code, const std::string& text) override;
    void fatalError(const MXFUID& code, const std::string& text) override;

private:
    void keep(Severity severity, const MXFUID& code, const std::string& text);

    Recording* recording_ = nullptr;
    const Locator* locator_ = nullptr;
    std::vector<Report> reports_;
};
