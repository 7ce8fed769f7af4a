#include "platform/registry_support.h"
#include "platform/spooler_test.h"

#include <filesystem>

namespace {

namespace fs = std::filesystem;

class SpoolerJobs : public LabelsTest {
protected:
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

    int Set(DWORD job, DWORD command) const {
        return ErrorOf(SetJobW(printer_, job, 0, nullptr, command));
    }
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

} // namespace
