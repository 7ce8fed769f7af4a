#include "net/socket.h"

#include <algorithm>
#include <cstring>

#ifdef _WIN32
#include <winsock2.h>
#include <ws2tcpip.h>
#else
#include <cerrno>
#include <fcntl.h>
#include <netdb.h>
#include <netinet/in.h>
#include <poll.h>
#include <sys/socket.h>
#include <unistd.h>
#endif

namespace net {
namespace {

#ifdef _WIN32

using Handle = SOCKET;
using Length = int;
constexpr int kSendFlags = 0;

int Poll(WSAPOLLFD* item, int milliseconds) {
    return WSAPoll(item, 1, milliseconds);
}

void CloseHandle(Handle handle) {
    closesocket(handle);
}

void MakeNonBlocking(Handle handle) {
    u_long on = 1;
    ioctlsocket(handle, static_cast<long>(FIONBIO), &on);
}

bool WouldBlock() {
    return WSAGetLastError() == WSAEWOULDBLOCK;
}

// The library must be started once. It stays loaded as long as the process lives.
bool Start() {
    static const bool started = [] {
        WSADATA data;
        return WSAStartup(MAKEWORD(2, 2), &data) == 0;
    }();
    return started;
}

#else

using Handle = int;
using Length = size_t;
using WSAPOLLFD = pollfd;
constexpr int kSendFlags = MSG_NOSIGNAL;

int Poll(pollfd* item, int milliseconds) {
    int ready = 0;
    do ready = poll(item, 1, milliseconds);
    while (ready < 0 && errno == EINTR);
    return ready;
}

void CloseHandle(Handle handle) {
    close(handle);
}

void MakeNonBlocking(Handle handle) {
    fcntl(handle, F_SETFL, fcntl(handle, F_GETFL) | O_NONBLOCK);
}

bool WouldBlock() {
    return errno == EAGAIN || errno == EWOULDBLOCK || errno == EINPROGRESS || errno == EINTR;
}

bool Start() {
    return true;
}

#endif

// How long it may take until giving up is noticed, in milliseconds.
constexpr int kSlice = 50;

// A size that every system's send and recv accept in one call.
constexpr size_t kPiece = 1 << 20;

} // namespace

Socket::~Socket() {
    if (IsOpen()) CloseHandle(static_cast<Handle>(handle_));
}

Socket Socket::Listen(uint16_t port) {
    if (!Start()) return {};
    Socket socket(static_cast<intptr_t>(::socket(AF_INET, SOCK_STREAM, IPPROTO_TCP)));
    if (!socket.IsOpen()) return {};
    const auto handle = static_cast<Handle>(socket.handle_);
#ifndef _WIN32
    // A port may be reused right after its last user has left. Windows allows that anyway.
    const int on = 1;
    setsockopt(handle, SOL_SOCKET, SO_REUSEADDR, &on, sizeof on);
#endif
    sockaddr_in address = {};
    address.sin_family = AF_INET;
    address.sin_port = htons(port);
    address.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
    if (bind(handle, reinterpret_cast<const sockaddr*>(&address), sizeof address) != 0 ||
        listen(handle, 16) != 0)
        return {};
    return socket;
}

Socket Socket::Connect(const std::string& host, uint16_t port, int milliseconds,
                       const GivesUp& gives_up) {
    if (!Start()) return {};
    addrinfo hints = {};
    hints.ai_socktype = SOCK_STREAM;
    addrinfo* found = nullptr;
    if (getaddrinfo(host.c_str(), std::to_string(port).c_str(), &hints, &found) != 0) return {};
    Socket connected;
    for (const addrinfo* at = found; at && !connected.IsOpen(); at = at->ai_next) {
        Socket socket(
            static_cast<intptr_t>(::socket(at->ai_family, at->ai_socktype, at->ai_protocol)));
        if (!socket.IsOpen()) continue;
        socket.gives_up_ = gives_up;
        const auto handle = static_cast<Handle>(socket.handle_);
        MakeNonBlocking(handle);
        if (connect(handle, at->ai_addr, static_cast<socklen_t>(at->ai_addrlen)) != 0) {
            if (!WouldBlock() || !socket.Wait(true, milliseconds)) continue;
            int error = 0;
            socklen_t size = sizeof error;
            getsockopt(handle, SOL_SOCKET, SO_ERROR, reinterpret_cast<char*>(&error), &size);
            if (error != 0) continue;
        }
        connected = std::move(socket);
    }
    freeaddrinfo(found);
    return connected;
}

uint16_t Socket::Port() const {
    sockaddr_in address = {};
    socklen_t size = sizeof address;
    if (!IsOpen() || getsockname(static_cast<Handle>(handle_),
                                 reinterpret_cast<sockaddr*>(&address), &size) != 0)
        return 0;
    return ntohs(address.sin_port);
}

Socket Socket::Accept() const {
    if (!IsOpen()) return {};
    Socket socket(static_cast<intptr_t>(::accept(static_cast<Handle>(handle_), nullptr, nullptr)));
    if (socket.IsOpen()) MakeNonBlocking(static_cast<Handle>(socket.handle_));
    return socket;
}

bool Socket::Wait(bool write, int milliseconds) const {
    WSAPOLLFD item = {};
    item.fd = static_cast<Handle>(handle_);
    item.events = static_cast<short>(write ? POLLOUT : POLLIN);
    if (!gives_up_) return Poll(&item, milliseconds) > 0;
    for (int left = milliseconds; !gives_up_();) {
        const int slice = left < 0 ? kSlice : std::min(left, kSlice);
        if (const int ready = Poll(&item, slice); ready != 0) return ready > 0;
        if (left >= 0 && (left -= slice) == 0) return false;
    }
    return false;
}

bool Socket::Send(const void* data, size_t size, int milliseconds) {
    if (!IsOpen()) return false;
    const char* next = static_cast<const char*>(data);
    while (size > 0) {
        const auto sent = send(static_cast<Handle>(handle_), next,
                               static_cast<Length>(std::min(size, kPiece)), kSendFlags);
        if (sent > 0) {
            next += sent;
            size -= static_cast<size_t>(sent);
        } else if (!WouldBlock() || !Wait(true, milliseconds)) {
            return false;
        }
    }
    return true;
}

int Socket::Receive(void* data, size_t size, int milliseconds) {
    if (!IsOpen()) return 0;
    for (;;) {
        const auto received = recv(static_cast<Handle>(handle_), static_cast<char*>(data),
                                   static_cast<Length>(std::min(size, kPiece)), 0);
        if (received >= 0) return static_cast<int>(received);
        if (!WouldBlock()) return 0;
        if (!Wait(false, milliseconds)) return -1;
    }
}

} // namespace net
