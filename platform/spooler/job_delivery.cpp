#include "spooler/job_delivery.h"

#include "host/fault_point.h"
#include "host/text.h"
#include "spooler/language_monitor.h"
#include "spooler/ports.h"
#include "spooler/printer_record.h"

#include <winspool.h>

#include <cerrno>
#include <cstdio>
#include <system_error>

#include <fcntl.h>
#include <netdb.h>
#include <poll.h>
#include <sys/file.h>
#include <sys/socket.h>
#include <sys/stat.h>
#include <unistd.h>

namespace win32host {
namespace {

constexpr int kConnectMilliseconds = 10000;
constexpr int kSendSeconds = 30;
constexpr int kDrainMilliseconds = 1000;

class File {
public:
    explicit File(int descriptor)
        : descriptor_(descriptor) {}
    ~File() {
        if (descriptor_ >= 0) close(descriptor_);
    }
    File(const File&) = delete;
    File& operator=(const File&) = delete;
    int get() const { return descriptor_; }
    explicit operator bool() const { return descriptor_ >= 0; }

private:
    int descriptor_;
};

std::string Reason(int error) {
    return std::generic_category().message(error);
}

// Copies the rest of `from`; 0 or an errno value.
template <class Write>
int CopyRest(int from, const Write& write_some) {
    char block[16384];
    for (;;) {
        const ssize_t count = read(from, block, sizeof block);
        if (count == 0) return 0;
        if (count < 0) {
            if (errno == EINTR) continue;
            return errno;
        }
        for (ssize_t done = 0; done < count;) {
            const Fault fault = FaultAt(FAULT_PORT_WRITE);
            const auto left = static_cast<size_t>(count - done);
            const ssize_t written = write_some(block + done, fault ? fault.Part(left) : left);
            if (fault) {
                fault.Happen();
                return ECONNRESET;
            }
            if (written >= 0)
                done += written;
            else if (errno != EINTR)
                return errno;
        }
    }
}

// 0 or an errno value.
int Connect(int socket, const addrinfo& address) {
    fcntl(socket, F_SETFL, O_NONBLOCK);
    if (connect(socket, address.ai_addr, address.ai_addrlen) != 0) {
        if (errno != EINPROGRESS) return errno;
        pollfd wait = {socket, POLLOUT, 0};
        const int ready = poll(&wait, 1, kConnectMilliseconds);
        if (ready == 0) return ETIMEDOUT;
        if (ready < 0) return errno;
        int error = 0;
        socklen_t size = sizeof error;
        getsockopt(socket, SOL_SOCKET, SO_ERROR, &error, &size);
        if (error) return error;
    }
    fcntl(socket, F_SETFL, 0);
    return 0;
}

// Signals the end and reads the printer's answer. Closing a connection with an unread answer may
// discard data that the printer has not read yet.
void Finish(int socket) {
    shutdown(socket, SHUT_WR);
    char answer[1024];
    pollfd wait = {socket, POLLIN, 0};
    while (poll(&wait, 1, kDrainMilliseconds) > 0 && recv(socket, answer, sizeof answer, 0) > 0) {
    }
}

// The functions below answer what went wrong, or an empty text.
std::string SendToNetwork(const NetworkAddress& port, int job) {
    const std::string number = std::to_string(port.port);
    const std::string place = port.host + ':' + number;
    addrinfo hints = {};
    hints.ai_socktype = SOCK_STREAM;
    addrinfo* found = nullptr;
    if (FailureAt(FAULT_PORT_OPEN))
        return "cannot connect to " + place + ": " + Reason(ECONNREFUSED);
    if (const int error = getaddrinfo(port.host.c_str(), number.c_str(), &hints, &found))
        return "cannot find " + port.host + ": " + gai_strerror(error);
    int error = 0;
    for (const addrinfo* address = found; address; address = address->ai_next) {
        const File socket_file(
            socket(address->ai_family, SOCK_STREAM | SOCK_CLOEXEC, address->ai_protocol));
        if (!socket_file) {
            error = errno;
            continue;
        }
        error = Connect(socket_file.get(), *address);
        if (error) continue;
        freeaddrinfo(found);
        const timeval limit = {kSendSeconds, 0};
        setsockopt(socket_file.get(), SOL_SOCKET, SO_SNDTIMEO, &limit, sizeof limit);
        error = CopyRest(job, [&](const char* bytes, size_t size) {
            return send(socket_file.get(), bytes, size, MSG_NOSIGNAL);
        });
        if (error) return "cannot send to " + place + ": " + Reason(error);
        Finish(socket_file.get());
        return {};
    }
    freeaddrinfo(found);
    return "cannot connect to " + place + ": " + Reason(error);
}

std::string SendToPath(const PrintServer& server, const std::u16string& port, int job) {
    const auto path = server.HostPath(port);
    if (!path) return "cannot find " + Utf8(port);
    // A file is written aside, so that the old one stays until the new one is complete.
    struct stat info = {};
    const bool is_file = stat(path->c_str(), &info) != 0 || S_ISREG(info.st_mode);
    const std::string name = is_file ? *path + ".new" + std::to_string(getpid()) : *path;
    // Without O_NONBLOCK a pipe that nobody reads would block forever.
    const File target(FailureAt(FAULT_PORT_OPEN)
                          ? (errno = ENOSPC, -1)
                          : open(name.c_str(),
                                 O_WRONLY | O_CREAT | O_TRUNC | O_NONBLOCK | O_NOCTTY | O_CLOEXEC,
                                 0666));
    if (!target) return "cannot open " + Utf8(port) + ": " + Reason(errno);
    fcntl(target.get(), F_SETFL, 0);
    int error = CopyRest(
        job, [&](const char* bytes, size_t size) { return write(target.get(), bytes, size); });
    if (is_file) {
        if (!error && info.st_mode) fchmod(target.get(), info.st_mode & 0777);
        if (!error && rename(name.c_str(), path->c_str()) != 0) error = errno;
        if (error) unlink(name.c_str());
    }
    return error ? "cannot write to " + Utf8(port) + ": " + Reason(error) : std::string();
}

std::string Send(const PrintServer& server, const std::u16string& port, int job) {
    if (const auto address = NetworkAddressOf(server, port)) return SendToNetwork(*address, job);
    if (IsPathPort(port)) return SendToPath(server, port, job);
    return "there is no way to the port " + Utf8(port);
}

// True if the driver's monitor takes the job itself.
bool IsForMonitor(const PrintServer& server, const std::u16string& printer, int job) {
    const auto monitor = LanguageMonitor::Of(server, printer);
    char start[64];
    const ssize_t size = monitor ? pread(job, start, sizeof start, 0) : 0;
    return size > 0 && monitor->TakesJob({start, static_cast<size_t>(size)});
}

} // namespace

DWORD DeliverJob(const PrintServer& server, const std::u16string& printer, DWORD job) {
    const auto owner = ReadPrinter(server, printer);
    auto record = ReadJob(server, printer, job);
    if (!owner || !record) return ERROR_INVALID_PARAMETER;
    if (KeepsJobs(owner->port)) return ERROR_SUCCESS;

    const File file(open(SpoolFile(server, job).c_str(), O_RDONLY | O_CLOEXEC));
    if (file && flock(file.get(), LOCK_EX | LOCK_NB) != 0) return ERROR_BUSY;
    if (file && IsForMonitor(server, printer, file.get())) return ERROR_SUCCESS;
    const std::string fault =
        file ? Send(server, owner->port, file.get()) : "the job's file cannot be read";
    record->status_text = Utf16(fault);
    record->status = fault.empty() ? JOB_STATUS_PRINTED : JOB_STATUS_ERROR;
    if (fault.empty() && !(owner->attributes & PRINTER_ATTRIBUTE_KEEPPRINTEDJOBS))
        return static_cast<DWORD>(EraseJob(server, printer, job));
    return static_cast<DWORD>(WriteJob(server, printer, *record, true));
}

} // namespace win32host
