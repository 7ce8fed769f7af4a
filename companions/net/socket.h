// TCP connections, the same on every system.
#pragma once

#include <cstddef>
#include <cstdint>
#include <functional>
#include <string>
#include <utility>

namespace net {

// One connection or one listening port, closed by the destructor. It can be moved but not copied.
// Waiting times are in milliseconds; a negative one waits forever.
class Socket {
public:
    // Asked several times a second while a socket waits. True ends the wait as if its time were
    // over.
    using GivesUp = std::function<bool()>;

    Socket() = default;
    Socket(Socket&& other) noexcept
        : handle_(std::exchange(other.handle_, kNone))
        , gives_up_(std::move(other.gives_up_)) {}
    Socket& operator=(Socket&& other) noexcept {
        std::swap(handle_, other.handle_);
        std::swap(gives_up_, other.gives_up_);
        return *this;
    }
    ~Socket();

    // Listens on this machine's loopback address, on any free port if `port` is 0. Not open if the
    // port is taken.
    static Socket Listen(uint16_t port);
    // Connects to a host by name or address. Not open if nobody answers in time. `gives_up`, which
    // may be empty, is for this wait and all later ones.
    static Socket Connect(const std::string& host, uint16_t port, int milliseconds,
                          const GivesUp& gives_up = {});

    bool IsOpen() const { return handle_ != kNone; }
    // The port of a listening socket; 0 if it is not open.
    uint16_t Port() const;

    // The next connection to a listening socket; not open on failure.
    Socket Accept() const;

    // Sends all bytes. False if the other side is gone or takes too long over any of them.
    bool Send(const void* data, size_t size, int milliseconds);

    // Waits for bytes. Answers how many came, at most `size`; 0 if the other side closed or broke
    // the connection, -1 if the time is over.
    int Receive(void* data, size_t size, int milliseconds);

private:
    static constexpr intptr_t kNone = -1;

    explicit Socket(intptr_t handle)
        : handle_(handle) {}
    // True if bytes can be read (written) in time.
    bool Wait(bool write, int milliseconds) const;

    intptr_t handle_ = kNone;
    GivesUp gives_up_;
};

} // namespace net
