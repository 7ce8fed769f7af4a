// TCP connections, the same on every system.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <utility>

namespace net {

// One connection or one listening port; closed with the object. Only moved, not copied. Waiting
// times are in milliseconds; a negative one waits without end.
class Socket {
public:
    Socket() = default;
    Socket(Socket&& other) noexcept
        : handle_(std::exchange(other.handle_, kNone)) {}
    Socket& operator=(Socket&& other) noexcept {
        std::swap(handle_, other.handle_);
        return *this;
    }
    ~Socket();

    // Listens on this machine's loopback address, on a free port when `port` is 0. Not open when
    // the port is taken.
    static Socket Listen(uint16_t port);
    // Connects to a host by name or address. Not open when nobody answers in time.
    static Socket Connect(const std::string& host, uint16_t port, int milliseconds);

    bool IsOpen() const { return handle_ != kNone; }
    // The port that a listening socket has; 0 when it is not open.
    uint16_t Port() const;

    // The next connection to a listening socket; not open when that fails.
    Socket Accept() const;

    // Sends all bytes; false when the other side is gone or takes too long over any of them.
    bool Send(const void* data, size_t size, int milliseconds);

    // Waits for bytes: how many came, at most `size`; 0 when the other side closed or broke the
    // connection, -1 when the time is over.
    int Receive(void* data, size_t size, int milliseconds);

private:
    static constexpr intptr_t kNone = -1;

    explicit Socket(intptr_t handle)
        : handle_(handle) {}
    // Whether bytes can be read (written) in time.
    bool Wait(bool write, int milliseconds) const;

    intptr_t handle_ = kNone;
};

} // namespace net
