// Jobs whose printing fails somewhere.

#include <netinet/in.h>
#include <sys/socket.h>
#include <thread>
#include <unistd.h>

#include "printer/prtstream.h"
#include "printer/ui_printer.h"
#include "torture/fault_test.h"
#include "torture/memory_faults.h"

namespace {

using namespace win32host;

constexpr FaultKindOfRun kFaults[] = {
    {"an operation of the spooler fails", FAULT_SPOOLER},
    {"writing stops half way", FAULT_SPOOL_WRITE | FAULT_PORT_WRITE, true},
    {"the disk is full", FAULT_SPOOL_WRITE | FAULT_SPOOL_END, true, true},
    {"the registry cannot be changed any more", FAULT_REGISTRY_CHANGES, false, true},
    {"a registry operation fails", FAULT_REGISTRY},
};

// A printer on the network that takes every connection to its end.
class Listener {
public:
    Listener()
        : socket_(::socket(AF_INET, SOCK_STREAM | SOCK_CLOEXEC, 0)) {
        sockaddr_in address = {};
        address.sin_family = AF_INET;
        address.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
        bind(socket_, reinterpret_cast<sockaddr*>(&address), sizeof address);
        listen(socket_, 16);
        socklen_t size = sizeof address;
        getsockname(socket_, reinterpret_cast<sockaddr*>(&address), &size);
        port_ = ntohs(address.sin_port);
        thread_ = std::thread([this] { Serve(); });
    }
    ~Listener() {
        shutdown(socket_, SHUT_RDWR);
        thread_.join();
        close(socket_);
    }
    int Port() const { return port_; }

private:
    void Serve() const {
        for (int client; (client = accept4(socket_, nullptr, nullptr, SOCK_CLOEXEC)) >= 0;) {
            char block[4096];
            while (recv(client, block, sizeof block, 0) > 0) {
            }
            close(client);
        }
    }

    const int socket_;
    int port_ = 0;
    std::thread thread_;
};

class SpoolFaults : public FaultTest {
protected:
    void SetUp() override { InstallPrinter(); }

    void UsePort(const OString& port) {
        const HANDLE opened = OpenDock3();
        DWORD needed = 0;
        GetPrinterW(opened, 2, nullptr, 0, &needed);
        std::vector<BYTE> buffer(needed);
        ASSERT_TRUE(GetPrinterW(opened, 2, buffer.data(), needed, &needed));
        auto& info = *reinterpret_cast<PRINTER_INFO_2W*>(buffer.data());
        info.pPortName = const_cast<WCHAR*>(port.wstring());
        info.Attributes |= PRINTER_ATTRIBUTE_KEEPPRINTEDJOBS;
        ASSERT_TRUE(SetPrinterW(opened, 2, buffer.data(), 0));
        ClosePrinter(opened);
    }

    // Prints 20,000 bytes, which are several packets, in a job.
    static void Print() {
        struct Printer : UIPrinter {
        } printer;
        printer.printer_name = "Dock 3";
        prtstream stream;
        stream.init(&printer);
        stream.StartJob("Faults");
        for (int i = 0; i < 2000; ++i) stream << "0123456789";
        stream.EndJob();
    }
};

} // namespace

TEST_F(SpoolFaults, LeaveNoJobThatLacksBytes) {
    AtEveryPoint(kFaults, Print, SpooledJobs);
}

TEST_F(SpoolFaults, KeepTheJobThatDoesNotReachTheNetwork) {
    const Listener listener;
    UsePort(OString("IP_127.0.0.1:") << listener.Port());
    AtEveryPoint(kFaults, Print, SpooledJobs);
}

TEST_F(SpoolFaults, LeaveTheOldFileOfAFilePortOrTheNewOne) {
    UsePort("C:\\files\\label.prn");
    WriteFile("files\\label.prn", "the old label");
    AtEveryPoint(kFaults, Print, [this] { return FilesIn("files"); });
}
