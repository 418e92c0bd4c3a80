#pragma once

#include <vexa/Export.h>
#include <vexa/io/file_stream_buffer.h>

#include <boost/iostreams/categories.hpp>
#include <boost/shared_ptr.hpp>

#include <ios>
#include <string>

inline namespace vexa_toolkit {

namespace vexa {

/// Carried by the category of a device that has an `alignment()`.
struct aligned_tag {};

/// A seekable boost::iostreams device over an operating system file. Streams over it have a
/// file_streambuf; a class that derives from it asks for one by VEXA_FILE_STREAM_BUFFER.
///
/// Copies share the open file and its one position, so they belong to one thread. A seek only
/// notes the position; the system is asked to seek when a read or write needs it. Every failure is
/// a `std::ios_base::failure` whose text is one of "not open", "bad openmode", "bad open",
/// "bad close", "bad read", "bad write", "bad seek", "bad truncate" and
/// "bad partial offset/duration", with the system's reason as its code where the system has one.
/// All operations but open, close and is_open throw "not open" on a closed device.
class VEXA_EXPORT file_device {
public:
    /// What the device is made of.
    typedef char char_type;

    /// What the device can do, as boost::iostreams reads it.
    struct category : boost::iostreams::device_tag,
                      boost::iostreams::seekable,
                      boost::iostreams::closable_tag,
                      boost::iostreams::optimally_buffered_tag,
                      aligned_tag {};

    /// Hint bits. All but `SmallReads` act at open only.
    enum hint {
        /// One read call returns at most 512 bytes, else at most 32 MiB.
        SmallReads = 0x01,
        /// Asks the system not to keep what is read and written in its cache.
        NoCache = 0x02,
        /// Asks the system to read ahead; wins over NoReadAhead.
        ReadAhead = 0x04,
        /// Asks the system not to read ahead.
        NoReadAhead = 0x08,
        /// Set by the device: the file was opened with a partial range.
        PartialRange = 0x40
    };

    /// A closed device.
    file_device();

    /// A device on the file at `path`, opened as by open().
    file_device(const std::string& path, std::ios_base::openmode mode, int hints = 0);

    /// The same with a wide path.
    file_device(const std::wstring& path, std::ios_base::openmode mode, int hints = 0);

    /// Opens the file at `path`, in the system's narrow encoding. `in` alone reads, `out` alone
    /// creates or empties the file, `out` and `app` create it or begin at its end, `in` and `out`
    /// change a file that exists; other mode bits don't matter. Throws "bad openmode" or "bad
    /// open", and the device then keeps the file that it had.
    void open(const std::string& path, std::ios_base::openmode mode, int hints);

    /// The same with a wide path of one code point per element, which becomes UTF-8.
    void open(const std::wstring& path, std::ios_base::openmode mode, int hints);

    /// Opens the file as above, and selects the stretch of `duration` from `offset` on file systems
    /// that offer this, in the file system's unit (bytes or frames). Throws "bad partial
    /// offset/duration" when it is refused, or where the platform has no such call, and no file is
    /// created or emptied then.
    void open(unsigned long offset, unsigned long duration, const std::string& path,
              std::ios_base::openmode mode, int hints);

    /// The same with a wide path.
    void open(unsigned long offset, unsigned long duration, const std::wstring& path,
              std::ios_base::openmode mode, int hints);

    /// Closes the file for all copies; does nothing when closed. The device is closed afterwards
    /// even if this throws "bad close".
    void close();

    /// Whether the file is open; false once any copy was closed.
    bool is_open() const;

    /// Reads up to `count` bytes and returns how many came, -1 at the end of the file, or 0 when
    /// `count` is 0. Throws "bad seek" or "bad read".
    long read(char* buffer, long count);

    /// Writes up to `count` bytes and returns how many were taken. Throws "bad seek" or
    /// "bad write".
    long write(const char* buffer, long count);

    /// Moves the position and returns it. From the end, a device that only writes counts up to the
    /// furthest byte that it wrote. Throws "bad seek" for a position before the start or beyond
    /// 2^63 - 1, and on what can't seek, a pipe for example. The position is unusable then, until
    /// the next seek that succeeds.
    std::streampos seek(long offset, std::ios_base::seekdir way);

    /// Cuts the file, or extends it with zeros, to the position. Throws "bad truncate".
    void truncate();

    /// The buffer size that suits the device: 65,536 bytes.
    long optimal_buffer_size() const;

    /// The alignment in bytes that buffers need: 0, none.
    long alignment() const;

    /// The hint bits.
    int hints() const;

    /// Sets all hint bits that can change on an open device: bit 0 and those from bit 8 upward.
    /// Returns the hint bits from before.
    int hints(int value);

    /// The same, and of those bits only the ones in `mask`.
    int hints(int value, int mask);

private:
    class impl;

    impl& opened() const;

    boost::shared_ptr<impl> impl_;
};

/// A file_device that boost::iostreams reads from.
class VEXA_EXPORT file_source : public file_device {
public:
    /// What the device can do, as boost::iostreams reads it.
    struct category : boost::iostreams::device_tag,
                      boost::iostreams::input_seekable,
                      boost::iostreams::closable_tag,
                      boost::iostreams::optimally_buffered_tag,
                      aligned_tag {};

    /// A closed device.
    file_source();

    /// A device on the file at `path`, opened as by open().
    explicit file_source(const std::string& path,
                         std::ios_base::openmode mode = std::ios_base::in | std::ios_base::binary,
                         int hints = 0);

    /// The same with a wide path.
    explicit file_source(const std::wstring& path,
                         std::ios_base::openmode mode = std::ios_base::in | std::ios_base::binary,
                         int hints = 0);
};

/// A file_device that boost::iostreams writes to.
class VEXA_EXPORT file_sink : public file_device {
public:
    /// What the device can do, as boost::iostreams reads it.
    struct category : boost::iostreams::device_tag,
                      boost::iostreams::output_seekable,
                      boost::iostreams::closable_tag,
                      boost::iostreams::optimally_buffered_tag,
                      aligned_tag {};

    /// A closed device.
    file_sink();

    /// A device on the file at `path`, opened as by open().
    explicit file_sink(const std::string& path,
                       std::ios_base::openmode mode = std::ios_base::out | std::ios_base::binary,
                       int hints = 0);

    /// The same with a wide path.
    explicit file_sink(const std::wstring& path,
                       std::ios_base::openmode mode = std::ios_base::out | std::ios_base::binary,
                       int hints = 0);
};

} // namespace vexa

} // namespace vexa_toolkit

VEXA_FILE_STREAM_BUFFER(vexa::file_device)
VEXA_FILE_STREAM_BUFFER(vexa::file_source)
VEXA_FILE_STREAM_BUFFER(vexa::file_sink)
