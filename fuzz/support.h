#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <istream>
#include <limits>
#include <streambuf>
#include <string>
#include <vector>
#include <vexa/klv/ErrorHandler.h>
#include <vexa/klv/KLVHandler.h>
#include <vexa/klv/parse_error.h>

/// What the fuzz targets share: streams over the input, handlers that hold the events against their
/// grammar, and a digest of the events by which two runs are compared.
namespace fuzz {

/// Ends the process with `expectation` on standard error unless it holds: that is a finding.
void require(bool holds, const char* expectation);
[[noreturn]] void finding(const std::string& text);

/// For as long as it lives, one allocation of more than `most` bytes is a finding.
class AllocationLimit {
public:
    explicit AllocationLimit(std::size_t most);
    ~AllocationLimit();
    AllocationLimit(const AllocationLimit&) = delete;
    AllocationLimit& operator=(const AllocationLimit&) = delete;

    /// What may be needed to parse so many bytes: some space per byte, whatever the bytes say.
    static std::size_t forInput(std::size_t size) { return 256 * 1024 + 16 * size; }
};

/// The input but for its last byte, which chooses the target's options: what real files begin with
/// stays where it is when they are taken as input.
struct Input {
    const std::uint8_t* data;
    std::size_t size;
};

enum class Seeking {
    None,
    /// As in memory: a seek beyond the end fails.
    WithinData,
    /// As in a file: a seek beyond the end works.
    Anywhere
};

class InputStreambuf : public std::streambuf {
public:
    /// Brings at most `readSize` bytes at a time; the read of the byte at `failAt` throws.
    InputStreambuf(Input input, Seeking seeking, std::size_t readSize, std::size_t failAt);

protected:
    int_type underflow() override;
    pos_type seekoff(off_type offset, std::ios_base::seekdir way,
                     std::ios_base::openmode which) override;
    pos_type seekpos(pos_type position, std::ios_base::openmode which) override;

private:
    Input input_;
    Seeking seeking_;
    std::size_t readSize_;
    std::size_t failAt_;
    /// Offset of the byte behind the get area.
    std::uint64_t offset_ = 0;
};

class InputStream : public std::istream {
public:
    static constexpr std::size_t never = std::numeric_limits<std::size_t>::max();

    InputStream(Input input, Seeking seeking, std::size_t readSize, std::size_t failAt = never);

private:
    InputStreambuf buffer_;
};

/// A digest of all events of a run.
class Trail {
public:
    /// Also keeps what digest() was after `watched` events.
    explicit Trail(std::uint64_t watched = 0) : watched_(watched) {}

    void add(const char* event, std::initializer_list<std::uint64_t> numbers);
    /// Comes before the first event that belongs to a failure, and may come again.
    void markFailure();

    std::uint64_t digest() const { return digest_; }
    std::uint64_t digestAtWatched() const { return digestAtWatched_; }
    std::uint64_t countBeforeFailure() const { return countBeforeFailure_; }
    std::uint64_t digestBeforeFailure() const { return digestBeforeFailure_; }

private:
    static constexpr std::uint64_t start = 1;

    void mix(std::uint64_t number);

    std::uint64_t watched_;
    std::uint64_t count_ = 0;
    std::uint64_t digest_ = start;
    std::uint64_t digestAtWatched_ = start;
    bool failed_ = false;
    std::uint64_t countBeforeFailure_ = 0;
    std::uint64_t digestBeforeFailure_ = start;
};

std::uint64_t digestOf(const void* data, std::uint64_t size);
std::uint64_t digestOf(const std::string& text);
std::uint64_t digestOf(const KLVKey& key);

enum class Wants { Everything, Nothing, SmallValuesInBuffer, Something };

/// Holds the events of a KLV stream against the grammar of KLVHandler and against each other: the
/// elements must lie in the stream without a gap, as long as announced.
class CheckingKLVHandler : public KLVHandler {
public:
    CheckingKLVHandler(Trail& trail, Wants wants) : trail_(trail), wants_(wants) {}

    /// Sets the flag at the end of that many elements.
    void stopAfter(unsigned elements, bool* stop);
    bool isOpen() const { return open_; }

    void setLocator(const Locator* locator) override;
    void startStream(bool accurateLengths) override;
    void endStream(bool aborted) override;
    void berLengthForm(std::uint8_t form) override;
    bool startIndividualItem(const KLVKey& key, std::uint64_t length,
                             std::uint8_t** buffer) override;
    void endIndividualItem(const KLVKey& key) override;
    bool startLabel(const KLVKey& key) override;
    void endLabel(const KLVKey& key) override;
    bool startUniversalSet(const KLVKey& key, std::uint64_t length) override;
    void endUniversalSet(const KLVKey& key) override;
    bool startLocalSet(const KLVKey& key, std::uint64_t length, TagType tagType,
                       LengthType lengthType) override;
    void endLocalSet(const KLVKey& key) override;
    bool startLocalItem(std::uint32_t tag, std::uint64_t length, std::uint8_t** buffer) override;
    void endLocalItem(std::uint32_t tag) override;
    bool startFixedLengthPack(const KLVKey& key, std::uint64_t length,
                              std::uint8_t** buffer) override;
    void endFixedLengthPack(const KLVKey& key) override;
    bool startVariableLengthPack(const KLVKey& key, std::uint64_t length,
                                 LengthType lengthType) override;
    void endVariableLengthPack(const KLVKey& key) override;
    bool startVariableLengthItem(std::uint64_t length, std::uint8_t** buffer) override;
    void endVariableLengthItem() override;
    bool startWrapper(const KLVKey& key, std::uint64_t length, bool simple,
                      std::uint8_t** buffer) override;
    void endWrapper(const KLVKey& key) override;
    void value(const std::uint8_t* data, std::uint64_t size) override;

protected:
    virtual void streamStarted() {}
    /// At top level; the offset is that of the key, from the stream's start.
    virtual void elementStarted(std::uint64_t /*offset*/) {}
    virtual void streamEnded(bool /*aborted*/, std::uint64_t /*byteCount*/) {}

private:
    enum class Form {
        Item,
        Label,
        Universal,
        Local,
        LocalItem,
        Pack,
        Variable,
        VariableItem,
        Wrap
    };
    struct Element {
        Form form;
        /// The digest of the key, or the tag.
        std::uint64_t name;
        std::uint64_t start;
        std::uint64_t length;
        std::uint64_t received;
        bool wanted;
        bool valueSeen;
        TagType tagType;
        LengthType lengthType;
        const std::uint8_t* buffer;
    };

    std::uint64_t position() const;
    std::uint64_t lengthOctets(LengthType lengthType, std::uint64_t length) const;
    bool open(Form form, const KLVKey& key, std::uint64_t length, std::uint8_t** buffer = nullptr,
              TagType tagType = 0, LengthType lengthType = 0);
    bool push(Element element, std::uint64_t head, std::uint8_t** buffer);
    bool isWanted(const Element& element) const;
    void close(Form form, std::uint64_t name);

    Trail& trail_;
    Wants wants_;
    unsigned elementsLeft_ = 0;
    bool* stop_ = nullptr;
    const Locator* locator_ = nullptr;
    bool open_ = false;
    std::uint8_t berForm_ = 0;
    std::uint64_t streamStart_ = 0;
    /// Where the next key, tag or length must begin.
    std::uint64_t next_ = 0;
    std::vector<Element> elements_;
    std::array<std::uint8_t, 1024> buffer_{};
};

/// Holds the reports against the grammar of ErrorHandler.
class CheckingErrorHandler : public ErrorHandler {
public:
    explicit CheckingErrorHandler(Trail& trail) : trail_(trail) {}

    /// The error that left the parse must be the one that was reported.
    void checkFailed(const klvutil::parse_error& error) const;
    void checkSucceeded() const;

    void setLocator(const Locator* locator) override;
    void startParse() override;
    void endParse() override;
    void warning(const MXFUID& code, const std::string& text) override;
    void error(const MXFUID& code, const std::string& text) override;
    void fatalError(const MXFUID& code, const std::string& text) override;

private:
    void add(const char* severity, const MXFUID& code, const std::string& text);

    Trail& trail_;
    const Locator* locator_ = nullptr;
    bool inParse_ = false;
    bool failed_ = false;
    MXFUID fatalCode_;
    std::string fatalText_;
};

/// Runs a parse. Only klvutil::parse_error may leave it, and the error handler, which may be null,
/// must know it. Returns its text, or an empty one.
template <class Parse> std::string failureOf(const CheckingErrorHandler* errors, Parse parse) {
    try {
        parse();
    } catch (const klvutil::parse_error& error) {
        require(*error.what() != '\0', "a failure has a text");
        if (errors != nullptr) {
            errors->checkFailed(error);
        }
        return error.what();
    } catch (const std::exception& error) {
        finding(std::string("unexpected exception: ") + error.what());
    }
    if (errors != nullptr) {
        errors->checkSucceeded();
    }
    return {};
}

/// Whether two runs over the same bytes tell the same: one on a stream without seeking, and one
/// with it, whose trail watched for the first one's count before its failure.
struct Run {
    Trail trail;
    std::string failure;
    /// By the handler.
    bool stopped = false;
};
void checkSame(const Run& unseekable, const Run& seekable, Seeking seeking);

} // namespace fuzz
