// labelhost shows the jobs that programs have printed.

#include "support/labelhost_test.h"

#include <windows.h>
#include <winspool.h>

namespace {

using LabelhostJobs = Labelhost;

TEST_F(LabelhostJobs, ShowsWhatWasPrintedAndWhyItWaits) {
    ASSERT_EQ(
        Run({"install", "Dock3", "--model", "Valdrick X4 300 dpi", "--port", "C:\\no\\out"}).status,
        0);
    // As a program prints that uses the driver.
    const HDC dc = CreateDCW(TEXT("WINSPOOL"), TEXT("Dock3"), nullptr, nullptr);
    ASSERT_NE(dc, nullptr) << GetLastError();
    EXPECT_EQ(GetDeviceCaps(dc, LOGPIXELSX), 300);
    const DOCINFOW info = {sizeof info, TEXT("Größe"), nullptr, nullptr, 0};
    EXPECT_EQ(StartDocW(dc, &info), 1);
    StartPage(dc);
    EXPECT_GT(ExtEscape(dc, 15001, 6, "\4\0^XA\n", 0, nullptr), 0);
    EXPECT_GT(EndDoc(dc), 0);
    DeleteDC(dc);

    const Json jobs = RunJson({"jobs", "Dock3"});
    ASSERT_EQ(jobs.size(), 1u);
    EXPECT_EQ(jobs[0]["id"], 1);
    EXPECT_EQ(jobs[0]["name"], "Größe");
    EXPECT_EQ(jobs[0]["bytes"], 4);
    EXPECT_EQ(BytesOf(jobs[0]["file"]), "^XA\n");
    EXPECT_EQ(jobs[0]["state"].get<std::string>().rfind("error: cannot open C:\\no\\out", 0), 0u);

    WriteFile("no\\other", "");
    EXPECT_EQ(Run({"jobs", "Dock3", "--restart", "1"}).output, "");
    EXPECT_EQ(BytesOf(OnDriveC("no\\out")), "^XA\n");
    EXPECT_EQ(Run({"jobs", "Dock3", "--delete", "1"}).status, 1);
    EXPECT_EQ(Run({"jobs", "Nowhere"}).status, 1);
}

TEST_F(LabelhostJobs, HaveTextsAsRectangles) {
    ASSERT_EQ(Run({"install", "Dock3", "--model", "Valdrick X4 300 dpi"}).status, 0);
    const HDC dc = CreateDCW(TEXT("WINSPOOL"), TEXT("Dock3"), nullptr, nullptr);
    const HFONT font = CreateFontW(100, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, TEXT("Arial"));
    const HGDIOBJ before = SelectObject(dc, font);
    const DOCINFOW info = {sizeof info, TEXT("Text"), nullptr, nullptr, 0};
    StartDocW(dc, &info);
    EXPECT_FALSE(TextOutW(dc, 0, 0, TEXT("I"), 1)) << "there is no page";
    StartPage(dc);
    EXPECT_TRUE(TextOutW(dc, 10, 200, TEXT(" "), 1));
    EXPECT_TRUE(TextOutW(dc, 10, 400, TEXT("I"), 1));
    EndPage(dc);
    EndDoc(dc);
    EXPECT_EQ(SelectObject(dc, before), font);
    DeleteObject(font);
    DeleteDC(dc);

    const std::string job = BytesOf(RunJson({"jobs", "Dock3"})[0]["file"]);
    const size_t blank = job.find("^FO10,200^GB");
    const size_t letter = job.find("^FO10,400^GB");
    ASSERT_TRUE(blank < letter && letter < job.size()) << job;
    EXPECT_EQ(job.find("\n", blank) + 1, letter) << job;
    EXPECT_EQ(job.find(",100,", letter), job.find(',', letter + 10)) << job;
    EXPECT_NE(job.find("^FS\r\n^FO", letter), std::string::npos) << "there is no ink: " << job;
}

TEST_F(LabelhostJobs, PrintsPagesOfTheSizesThatTheDriverKnows) {
    ASSERT_EQ(Run({"install", "Dock3", "--model", "Valdrick X4 300 dpi"}).status, 0);
    const auto ask = [](WORD capability, void* output) {
        return DeviceCapabilitiesW(TEXT("Dock3"), nullptr, capability, static_cast<LPWSTR>(output),
                                   nullptr);
    };
    const int count = ask(DC_PAPERS, nullptr);
    ASSERT_GT(count, 1);
    std::vector<WORD> numbers(static_cast<size_t>(count));
    std::vector<POINT> sizes(numbers.size());
    ask(DC_PAPERS, numbers.data());
    ask(DC_PAPERSIZE, sizes.data());
    const size_t last = numbers.size() - 1;

    DEVMODEW by_number = {}, by_size = {};
    by_number.dmFields = DM_PAPERSIZE;
    by_number.dmPaperSize = static_cast<SHORT>(numbers[last]);
    by_size.dmFields = DM_PAPERWIDTH | DM_PAPERLENGTH | DM_ORIENTATION | DM_PRINTQUALITY;
    by_size.dmPaperWidth = 254;
    by_size.dmPaperLength = 508;
    by_size.dmOrientation = DMORIENT_LANDSCAPE;
    by_size.dmPrintQuality = 100;
    const auto expect = [](DEVMODEW& settings, LONG width, LONG height) {
        settings.dmSize = sizeof settings;
        const HDC dc = CreateICW(TEXT("WINSPOOL"), TEXT("Dock3"), nullptr, &settings);
        EXPECT_EQ(GetDeviceCaps(dc, HORZRES), width);
        EXPECT_EQ(GetDeviceCaps(dc, VERTRES), height);
        DeleteDC(dc);
    };
    const auto dots = [](LONG tenths) { return (tenths * 300 + 127) / 254; };
    expect(by_number, dots(sizes[last].x), dots(sizes[last].y));
    expect(by_size, 200, 100);
}

} // namespace
