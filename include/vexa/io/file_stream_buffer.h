#pragma once

#include <vexa/Export.h>

#include <boost/core/typeinfo.hpp>
#include <boost/iostreams/categories.hpp>
#include <boost/iostreams/detail/streambuf/linked_streambuf.hpp>

#include <ios>
#include <memory>
#include <streambuf>
#include <string>
#include <type_traits>

namespace boost {
namespace iostreams {

template <typename T, typename Tr, typename Alloc, typename Mode> class stream_buffer;

} // namespace iostreams
} // namespace boost

inline namespace vexa_toolkit {

namespace vexa {

class file_device;

/// The stream buffer under every boost::iostreams stream over a file device.
///
/// It does what Boost's own does, but has one buffer for both directions, since a device has one
/// position, which nobody else may move meanwhile. Large transfers go straight between the caller's
/// memory and the device. Behind one, or behind a value that is skipped, as much is read ahead as
/// small reads used before it; behind other seeks little, and more as they go on.
///
/// No failed write goes unnoticed: a seek that has to write what is buffered answers -1 when that
/// fails, and keeps it. A seek that the device refuses answers -1, too, and changes nothing. Other
/// failures of the device pass through as its exceptions.
class VEXA_EXPORT file_streambuf : public boost::iostreams::detail::linked_streambuf<char> {
public:
    file_streambuf(const file_streambuf&) = delete;
    file_streambuf& operator=(const file_streambuf&) = delete;

    /// Closes the device if auto_close() is set, else writes what is buffered. Failures are lost:
    /// a caller that wants them calls close() or flushes.
    ~file_streambuf() override;

    /// True from an open until the buffer is closed, whatever became of the device.
    bool is_open() const;

    /// Writes what is buffered and closes the device; rethrows the first failure of the two. The
    /// buffer is closed afterwards in any case.
    void close();

    /// Whether the destructor closes the device: true at first.
    bool auto_close() const override;

    /// Sets what auto_close() answers.
    void set_auto_close(bool close) override;

    /// Writes what is buffered. False if that failed.
    bool strict_sync() override;

protected:
    /// A closed buffer.
    file_streambuf();

    /// Takes the device. A negative size means the default. Throws `std::ios_base::failure`
    /// "already open" on an open buffer, and "not open" on a closed device.
    void attach(const std::shared_ptr<file_device>& device, bool output, std::streamsize bufferSize,
                std::streamsize putbackSize);

    /// The device, null when closed.
    file_device* device() const;

private:
    int_type underflow() override;
    int_type pbackfail(int_type c) override;
    int_type overflow(int_type c) override;
    std::streamsize xsgetn(char* buffer, std::streamsize count) override;
    std::streamsize xsputn(const char* buffer, std::streamsize count) override;
    int sync() override;
    pos_type seekoff(off_type offset, std::ios_base::seekdir way,
                     std::ios_base::openmode which) override;
    pos_type seekpos(pos_type position, std::ios_base::openmode which) override;
    void close_impl(std::ios_base::openmode which) override;

    file_device& opened() const;
    void planNextFill(std::streamsize used);
    void emptyGetArea(const char* last, std::streamsize kept);
    void dropAreas();
    void detach();
    off_type seekDevice(off_type offset, std::ios_base::seekdir way);
    void beginReading();
    void beginWriting();
    void giveBackUnread();
    void deviceMoved(std::streamsize count);
    std::streamsize read(char* buffer, std::streamsize count);
    std::streamsize readDirectly(char* buffer, std::streamsize count);
    std::streamsize write(const char* buffer, std::streamsize count);
    void flushPutArea();
    pos_type tell();

    std::shared_ptr<file_device> device_;
    std::unique_ptr<char[]> memory_;
    std::streamsize putbackSize_ = 0;
    std::streamsize bufferSize_ = 0; // 1 when unbuffered
    std::streamsize readAhead_ = 0;  // the most that is read into the buffer at once
    std::streamsize nextFill_ = 0;   // how much the next read into the buffer asks for
    std::streamsize filled_ = 0;     // how much came into it since the last large read or seek
    off_type devicePosition_ = -1;   // -1 if it can't be told
    bool output_ = false;
    bool autoClose_ = true;
};

/// A file_streambuf over a device of type `Device`, with the operations that
/// boost::iostreams::stream asks of its buffer.
template <typename Device> class file_stream_buffer : public file_streambuf {
public:
    /// A closed buffer.
    file_stream_buffer() = default;

    /// A buffer opened as by open().
    explicit file_stream_buffer(const Device& device, std::streamsize bufferSize = -1,
                                std::streamsize putbackSize = -1) {
        open(device, bufferSize, putbackSize);
    }

    /// Takes a copy of the device. A negative size means the default, a buffer size below 2 no
    /// buffering. Throws `std::ios_base::failure` "already open" on an open buffer, and "not open"
    /// on a closed device.
    void open(const Device& device, std::streamsize bufferSize = -1,
              std::streamsize putbackSize = -1) {
        attach(std::make_shared<Device>(device),
               std::is_convertible<typename Device::category, boost::iostreams::output>::value,
               bufferSize, putbackSize);
    }

    /// The device, null when closed.
    Device* component() { return static_cast<Device*>(device()); }

    /// The device of an open buffer.
    Device& operator*() { return *component(); }

    /// The device of an open buffer.
    Device* operator->() { return component(); }

private:
    const boost::core::typeinfo& component_type() const override {
        return BOOST_CORE_TYPEID(Device);
    }
    void* component_impl() override { return component(); }
};

} // namespace vexa

} // namespace vexa_toolkit

/// Makes boost::iostreams::stream, stream_buffer and chains use a file_stream_buffer over `Device`.
/// Stands after the class, outside all namespaces, where every user of the class sees it.
#define VEXA_FILE_STREAM_BUFFER(Device)                                                            \
    namespace boost {                                                                              \
    namespace iostreams {                                                                          \
    template <typename Alloc, typename Mode>                                                       \
    class stream_buffer<Device, std::char_traits<char>, Alloc, Mode>                               \
        : public vexa::file_stream_buffer<Device> {                                                \
    public:                                                                                        \
        struct category : Mode, closable_tag, streambuf_tag {};                                    \
        using vexa::file_stream_buffer<Device>::file_stream_buffer;                                \
    };                                                                                             \
    }                                                                                              \
    }
