// labelhost shows what programs have printed.

#include "support/host_test.h"
#include "support/program.h"

#include <windows.h>
#include <winspool.h>

#include <nlohmann/json.hpp>

namespace {

using Json = nlohmann::json;

class LabelhostJobs : public HostTest {
protected:
    ProgramResult Run(std::vector<std::string> words) const {
        words.insert(words.begin(), {"--root", root()});
        return RunProgram(TEST_BINARY_DIR, "labelhost", words);
    }

    Json Jobs() const { return Json::parse(Run({"jobs", "Dock3", "--json"}).output); }
};

TEST_F(LabelhostJobs, ShowsWhatWasPrintedAndWhyItWaits) {
    ASSERT_EQ(
        Run({"install", "Dock3", "--model", "Valdrick X4 300 dpi", "--port", "C:\\no\\out"}).status,
        0);
    EXPECT_EQ(Jobs(), Json::array());
    // As a program does it that prints through the driver.
    const HDC dc = CreateDCW(TEXT("WINSPOOL"), TEXT("Dock3"), nullptr, nullptr);
    ASSERT_NE(dc, nullptr) << GetLastError();
    EXPECT_EQ(GetDeviceCaps(dc, LOGPIXELSX), 300);
    const DOCINFOW info = {sizeof info, TEXT("Größe"), nullptr, nullptr, 0};
    EXPECT_EQ(StartDocW(dc, &info), 1);
    StartPage(dc);
    EXPECT_GT(ExtEscape(dc, 15001, 6, "\4\0^XA\n", 0, nullptr), 0);
    EXPECT_GT(EndDoc(dc), 0);
    DeleteDC(dc);

    const Json jobs = Jobs();
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

} // namespace
