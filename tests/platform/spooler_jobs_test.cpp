#include "platform/spooler_test.h"

#include <filesystem>
#include <map>
#include <thread>

#include <netinet/in.h>
#include <sys/socket.h>
#include <unistd.h>

namespace {

class SpoolerJobs : public SpoolerTest {
protected:
    SpoolerJobs() {
        AddDriver();
        AddPrinter(u"LABELS");
        printer_ = Open(u"LABELS");
    }

    static DWORD Start(HANDLE printer, LPCWSTR name) {
        DOC_INFO_1W info = {Text(name), nullptr, nullptr};
        return StartDocPrinterW(printer, 1, reinterpret_cast<LPBYTE>(&info));
    }

    // Prints; the number of the job.
    static DWORD Print(HANDLE printer, LPCWSTR name, std::string bytes) {
        const DWORD job = Start(printer, name);
        DWORD written = 0;
        EXPECT_TRUE(StartPagePrinter(printer));
        EXPECT_TRUE(
            WritePrinter(printer, bytes.data(), static_cast<DWORD>(bytes.size()), &written));
        EXPECT_EQ(written, bytes.size());
        EXPECT_TRUE(EndPagePrinter(printer));
        EXPECT_TRUE(EndDocPrinter(printer));
        return job;
    }

    void UsePort(const std::u16string& port, DWORD attributes = 0) const {
        PRINTER_INFO_2W info = Wanted(u"LABELS");
        info.pPortName = Text(port);
        info.Attributes = attributes;
        ASSERT_EQ(SetInfo(printer_, info), 0);
    }

    // "1 First 3 0;2 ...": number, document, bytes, status, and what went wrong.
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

    std::string Spooled(const char* file) const { return BytesOf(root() + "/spool/" + file); }

    HANDLE printer_;
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
    void Listen() { listen(socket_, 1); }
    std::string Take() const {
        const int connection = accept(socket_, nullptr, nullptr);
        send(connection, "an answer", 9, MSG_NOSIGNAL);
        std::string all;
        char block[4096];
        for (ssize_t count; (count = recv(connection, block, sizeof block, 0)) > 0;)
            all.append(block, static_cast<size_t>(count));
        close(connection);
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
    EXPECT_EQ(Spooled("00001.SPL"), "abc");
    EXPECT_EQ(PrinterInfo2(printer_)->cJobs, 2u);

    const Answer<JOB_INFO_1W> info([&](LPBYTE buffer, DWORD size, LPDWORD needed) {
        return GetJobW(printer_, 2, 1, buffer, size, needed);
    });
    EXPECT_EQ(Joined({info->pPrinterName, info->pMachineName, info->pUserName, info->pDatatype}),
              u"LABELS;\\\\DOCK3;root;RAW;");
    EXPECT_EQ(info->TotalPages, 1u);
    EXPECT_EQ(info->Position, 2u);
    EXPECT_GE(info->Submitted.wYear, 2024);

    EXPECT_EQ(Set(1, JOB_CONTROL_DELETE), 0);
    EXPECT_EQ(Jobs(printer_), u"2 100000 0 Second;");
    EXPECT_EQ(Spooled("00001.SPL"), "");
    EXPECT_TRUE(DeletePrinter(printer_));
    EXPECT_TRUE(std::filesystem::is_empty(root() + "/spool"));
}

TEST_F(SpoolerJobs, AreCompleteOrNotThere) {
    const DWORD job = Start(printer_, u"Long");
    DWORD written = 0;
    char bytes[] = "abc";
    EXPECT_TRUE(WritePrinter(printer_, bytes, 3, &written));
    EXPECT_EQ(Jobs(printer_), u"1 0 8 Long;");
    EXPECT_EQ(Spooled("00001.SPL"), "");
    EXPECT_EQ(Set(job, JOB_CONTROL_RESTART), ERROR_BUSY);
    EXPECT_EQ(Start(printer_, u"Another"), 0u);
    EXPECT_TRUE(AbortPrinter(printer_));
    EXPECT_EQ(ErrorOf(WritePrinter(printer_, bytes, 3, &written)), ERROR_SPL_NO_STARTDOC);
    HANDLE other = nullptr;
    ASSERT_TRUE(OpenPrinterW(Text(u"LABELS"), &other, nullptr));
    Start(other, u"Left");
    EXPECT_TRUE(ClosePrinter(other));
    EXPECT_EQ(Jobs(printer_), u"");
    EXPECT_TRUE(std::filesystem::is_empty(root() + "/spool"));
}

TEST_F(SpoolerJobs, OfProgramsThatDiedGoAway) {
    Print(printer_, u"Dead", "abc");
    const DWORD spooling = JOB_STATUS_SPOOLING;
    HKEY key = nullptr;
    ASSERT_EQ(
        RegOpenKeyExW(HKEY_LOCAL_MACHINE,
                      u"SYSTEM\\CurrentControlSet\\Control\\Print\\Printers\\LABELS\\Jobs\\00001",
                      0, KEY_ALL_ACCESS, &key),
        ERROR_SUCCESS);
    RegSetValueExW(key, u"Status", 0, REG_DWORD, reinterpret_cast<const BYTE*>(&spooling), 4);
    RegCloseKey(key);
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
    listener.Listen();
    UsePort(listener.Port(), PRINTER_ATTRIBUTE_KEEPPRINTEDJOBS);
    std::string received;
    std::thread network([&] { received = listener.Take(); });
    Print(printer_, u"Network", std::string(300000, 'n'));
    network.join();
    EXPECT_EQ(received, std::string(300000, 'n'));
    EXPECT_EQ(Jobs(printer_), u"3 300000 128 Network;");
}

TEST_F(SpoolerJobs, ThatCannotBeSentWaitForAnotherTry) {
    Listener listener;
    UsePort(listener.Port());
    const DWORD job = Print(printer_, u"Retry", "abc");
    EXPECT_EQ(Jobs(printer_), u"1 3 2 Retry;");
    EXPECT_NE(StatusText(job).find(u"cannot connect to 127.0.0.1:"), std::u16string::npos);
    EXPECT_EQ(Set(job, JOB_CONTROL_RESTART), 0);
    EXPECT_EQ(Jobs(printer_), u"1 3 2 Retry;");

    listener.Listen();
    std::string received;
    std::thread network([&] { received = listener.Take(); });
    EXPECT_EQ(Set(job, JOB_CONTROL_RESTART), 0);
    network.join();
    EXPECT_EQ(received, "abc");
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
    std::map<std::string, int> files;
    for (const auto& file : std::filesystem::directory_iterator(root() + "/spool"))
        ++files[BytesOf(file.path())];
    std::map<std::string, int> expected;
    for (char name = 'a'; name < 'e'; ++name) expected[std::string(5000, name)] = 6;
    EXPECT_EQ(files, expected);
    EXPECT_EQ(PrinterInfo2(printer_)->cJobs, 24u);
}

TEST_F(SpoolerJobs, OfConnectionsWaitOnTheServer) {
    namespace fs = std::filesystem;
    const std::string home = root(), machine = home + "/servers/SRV";
    fs::create_directories(machine + "/drive_c");
    fs::copy(OnDriveC("setup"), machine + "/drive_c/setup", fs::copy_options::recursive);
    win32host::SetRoot(machine);
    AddDriver();
    AddPrinter(u"FAR");
    win32host::SetRoot(home);
    const HANDLE far_printer = Open(u"\\\\SRV\\FAR", PRINTER_ACCESS_USE);
    Print(far_printer, u"Far", "abc");
    EXPECT_EQ(BytesOf(machine + "/spool/00001.SPL"), "abc");
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
