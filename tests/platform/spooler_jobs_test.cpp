#include "platform/registry_support.h"
#include "platform/spooler_test.h"

#include <filesystem>
#include <map>
#include <thread>

#include <netinet/in.h>
#include <sys/socket.h>
#include <unistd.h>

namespace {

namespace fs = std::filesystem;

class SpoolerJobs : public LabelsTest {
protected:
    void UsePort(const std::u16string& port, DWORD attributes = 0) const {
        PRINTER_INFO_2W info = Wanted(u"LABELS");
        info.pPortName = Text(port);
        info.Attributes = attributes;
        ASSERT_EQ(SetInfo(printer_, info), 0);
    }

    // "1 3 0 First;2 ...": number, bytes, status, document.
    static std::u16string Jobs(HANDLE printer) {
        DWORD count = 0;
        const Answer<JOB_INFO_2W> jobs([&](LPBYTE buffer, DWORD size, LPDWORD needed) {
            return EnumJobsW(printer, 0, 100, 2, buffer, size, needed, &count);
        });
        std::u16string all;
        for (DWORD i = 0; jobs.good() && i < count; ++i) {
            EXPECT_EQ(jobs[i].Position, i + 1);
            for (const DWORD number : {jobs[i].JobId, jobs[i].Size, jobs[i].Status})
                for (const char digit : std::to_string(number) + ' ')
                    all += static_cast<char16_t>(digit);
            all += Joined({jobs[i].pDocument});
        }
        return all;
    }

    std::u16string StatusText(DWORD job) const {
        const Answer<JOB_INFO_1W> info([&](LPBYTE buffer, DWORD size, LPDWORD needed) {
            return GetJobW(printer_, job, 1, buffer, size, needed);
        });
        return info.good() && info->pStatus ? info->pStatus : u"";
    }

    int Set(DWORD job, DWORD command) const {
        return ErrorOf(SetJobW(printer_, job, 0, nullptr, command));
    }
};

// A listener on a free port of this machine that takes one connection's bytes.
class Listener {
public:
    Listener()
        : socket_(socket(AF_INET, SOCK_STREAM, 0)) {
        sockaddr_in address = {};
        address.sin_family = AF_INET;
        address.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
        socklen_t size = sizeof address;
        bind(socket_, reinterpret_cast<sockaddr*>(&address), size);
        getsockname(socket_, reinterpret_cast<sockaddr*>(&address), &size);
        port_ = ntohs(address.sin_port);
    }
    ~Listener() { close(socket_); }

    std::u16string Port() const {
        std::u16string port = u"IP_127.0.0.1:";
        for (const char digit : std::to_string(port_)) port += static_cast<char16_t>(digit);
        return port;
    }
    // What one connection brings while `work` is done.
    template <class Work>
    std::string TakeDuring(Work work) {
        listen(socket_, 1);
        std::string all;
        std::thread network([&] {
            const int connection = accept(socket_, nullptr, nullptr);
            send(connection, "an answer", 9, MSG_NOSIGNAL);
            char block[4096];
            for (ssize_t count; (count = recv(connection, block, sizeof block, 0)) > 0;)
                all.append(block, static_cast<size_t>(count));
            close(connection);
        });
        work();
        network.join();
        return all;
    }

private:
    int socket_;
    uint16_t port_;
};

TEST_F(SpoolerJobs, WaitInTheSpoolFolderOnPortFile) {
    EXPECT_EQ(Print(printer_, u"First", "abc"), 1u);
    EXPECT_EQ(Print(Open(u"LABELS", PRINTER_ACCESS_USE), u"Second", std::string(100000, 'x')), 2u);
    EXPECT_EQ(Jobs(printer_), u"1 3 0 First;2 100000 0 Second;");
    EXPECT_EQ(Spooled(1), "abc");
    EXPECT_EQ(PrinterInfo2(printer_)->cJobs, 2u);

    const Answer<JOB_INFO_1W> info([&](LPBYTE buffer, DWORD size, LPDWORD needed) {
        return GetJobW(printer_, 2, 1, buffer, size, needed);
    });
    EXPECT_EQ(Joined({info->pPrinterName, info->pMachineName, info->pUserName, info->pDatatype}),
              u"LABELS;\\\\DOCK3;root;RAW;");
    EXPECT_EQ(info->TotalPages, 1u);

    EXPECT_EQ(Set(1, JOB_CONTROL_DELETE), 0);
    EXPECT_EQ(Jobs(printer_), u"2 100000 0 Second;");
    EXPECT_TRUE(DeletePrinter(printer_));
    EXPECT_TRUE(fs::is_empty(root() + "/spool"));
}

TEST_F(SpoolerJobs, AreCompleteOrNotThere) {
    const DWORD job = Start(printer_, u"Long");
    DWORD written = 0;
    char bytes[] = "abc";
    EXPECT_TRUE(WritePrinter(printer_, bytes, 3, &written));
    EXPECT_EQ(Jobs(printer_), u"1 0 8 Long;");
    EXPECT_EQ(Spooled(job), "");
    EXPECT_EQ(Set(job, JOB_CONTROL_RESTART), ERROR_BUSY);
    EXPECT_EQ(Start(printer_, u"Another"), 0u);
    EXPECT_TRUE(AbortPrinter(printer_));
    EXPECT_EQ(ErrorOf(WritePrinter(printer_, bytes, 3, &written)), ERROR_SPL_NO_STARTDOC);
    HANDLE other = nullptr;
    ASSERT_TRUE(OpenPrinterW(Text(u"LABELS"), &other, nullptr));
    Start(other, u"Left");
    EXPECT_TRUE(ClosePrinter(other));
    EXPECT_EQ(Jobs(printer_), u"");
    EXPECT_TRUE(fs::is_empty(root() + "/spool"));
}

TEST_F(SpoolerJobs, OfProgramsThatDiedGoAway) {
    Print(printer_, u"Dead", "abc");
    Write(Make(u"SYSTEM\\CurrentControlSet\\Control\\Print\\Printers\\LABELS\\Jobs\\00001"),
          u"Status", std::string{JOB_STATUS_SPOOLING, 0, 0, 0}, REG_DWORD);
    const DWORD living = Start(printer_, u"Living");
    EXPECT_EQ(Print(Open(u"LABELS"), u"New", ""), living + 1);
    EXPECT_EQ(Jobs(printer_), u"2 0 8 Living;3 0 0 New;");
}

TEST_F(SpoolerJobs, GoToTheirPort) {
    UsePort(u"C:\\out.prn");
    Print(printer_, u"File", "long text");
    Print(printer_, u"File", "text");
    EXPECT_EQ(BytesOf(OnDriveC("out.prn")), "text");
    EXPECT_EQ(Jobs(printer_), u"");

    Listener listener;
    UsePort(listener.Port(), PRINTER_ATTRIBUTE_KEEPPRINTEDJOBS);
    const std::string bytes(300000, 'n');
    EXPECT_EQ(listener.TakeDuring([&] { Print(printer_, u"Network", bytes); }), bytes);
    EXPECT_EQ(Jobs(printer_), u"3 300000 128 Network;");
}

TEST_F(SpoolerJobs, ThatCannotBeSentWaitForAnotherTry) {
    Listener listener;
    UsePort(listener.Port());
    const DWORD job = Print(printer_, u"Retry", "abc");
    EXPECT_NE(StatusText(job).find(u"cannot connect to 127.0.0.1:"), std::u16string::npos);
    EXPECT_EQ(Set(job, JOB_CONTROL_RESTART), 0);
    EXPECT_EQ(Jobs(printer_), u"1 3 2 Retry;");
    EXPECT_EQ(listener.TakeDuring([&] { EXPECT_EQ(Set(job, JOB_CONTROL_RESTART), 0); }), "abc");
    EXPECT_EQ(Jobs(printer_), u"");

    UsePort(u"C:\\no folder\\out.prn");
    EXPECT_NE(StatusText(Print(printer_, u"x", "")).find(u"C:\\no folder\\out.prn"),
              std::u16string::npos);
}

TEST_F(SpoolerJobs, BelongToTheirUsers) {
    Print(printer_, u"Root's", "abc");
    UseGuest();
    Print(Open(u"LABELS", PRINTER_ACCESS_USE), u"Guest's", "abc");
    EXPECT_EQ(Set(1, JOB_CONTROL_DELETE), ERROR_ACCESS_DENIED);
    EXPECT_EQ(Set(2, JOB_CONTROL_DELETE), 0);
    EXPECT_EQ(Set(2, JOB_CONTROL_DELETE), ERROR_INVALID_PARAMETER);
    UseAdministrator();
    EXPECT_EQ(Set(1, JOB_CONTROL_PAUSE), ERROR_INVALID_PRINTER_COMMAND);
    EXPECT_EQ(Set(1, JOB_CONTROL_DELETE), 0);
}

using SpoolerJobsThreads = SpoolerJobs;

TEST_F(SpoolerJobsThreads, AreAllThereWhenManyPrintAtOnce) {
    std::vector<std::thread> threads;
    for (char name = 'a'; name < 'e'; ++name) {
        threads.emplace_back([name] {
            HANDLE printer = nullptr;
            EXPECT_TRUE(OpenPrinterW(Text(u"LABELS"), &printer, nullptr));
            for (int i = 0; i < 6; ++i) Print(printer, u"x", std::string(5000, name));
            EXPECT_TRUE(ClosePrinter(printer));
        });
    }
    for (std::thread& thread : threads) thread.join();
    std::map<std::string, int> files, expected;
    for (const auto& file : fs::directory_iterator(root() + "/spool"))
        ++files[BytesOf(file.path())];
    for (char name = 'a'; name < 'e'; ++name) expected[std::string(5000, name)] = 6;
    EXPECT_EQ(files, expected);
    EXPECT_EQ(PrinterInfo2(printer_)->cJobs, 24u);
}

TEST_F(SpoolerJobs, OfConnectionsWaitOnTheServer) {
    const std::string server = OnServer("SRV", [&] { AddPrinter(u"FAR"); });
    const HANDLE far_printer = Open(u"\\\\SRV\\FAR", PRINTER_ACCESS_USE);
    Print(far_printer, u"Far", "abc");
    EXPECT_EQ(BytesOf(server + "/spool/00001.SPL"), "abc");
    EXPECT_EQ(Jobs(far_printer), u"1 3 0 Far;");
    WCHAR folder[MAX_PATH] = {};
    DWORD size = 0;
    EXPECT_EQ(GetPrinterDataW(Open(u"\\\\SRV", SERVER_ACCESS_ENUMERATE),
                              Text(SPLREG_DEFAULT_SPOOL_DIRECTORY), nullptr,
                              reinterpret_cast<LPBYTE>(folder), sizeof folder, &size),
              DWORD{ERROR_SUCCESS});
    EXPECT_TRUE(std::u16string(folder).ends_with(u"\\spool"));
}

} // namespace
