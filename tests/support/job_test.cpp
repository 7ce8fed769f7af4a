#include "support/job_test.h"

#include <cstdio>
#include <filesystem>
#include <ostream>

#include "spooler/driver_utility.h"
#include "support/build_folders.h"

namespace fs = std::filesystem;

void PrintTo(const PrintedJob& job, std::ostream* out) {
    *out << '"' << job.name << "\" with " << job.bytes.size()
         << " bytes: " << job.bytes.substr(0, 200);
}

void JobTest::Install(const ModelTables& tables) {
    ModelTest::Install(tables);
    WCHAR folder[MAX_PATH] = {};
    DWORD needed = 0;
    ASSERT_TRUE(GetPrinterDriverDirectoryW(nullptr, nullptr, 1, reinterpret_cast<BYTE*>(folder),
                                           sizeof folder, &needed));
    fs::copy_file(Built("/bin/zplrender.dll"),
                  OnDriveC(std::string(OString(folder).nstring()).substr(3) + "\\3\\zplrender.dll"),
                  fs::copy_options::overwrite_existing);
    PRINTER_DEFAULTSW access = {nullptr, nullptr, PRINTER_ALL_ACCESS};
    WCHAR name[] = TEXT("Dock 3");
    ASSERT_TRUE(OpenPrinterW(name, &printer_, &access));
}

void JobTest::InstallLanguage() const {
    const std::string folder = Text(DriverUtility::GetDriverDirectory()).substr(3);
    fs::copy_file(Built("/product/zplvenu.dll"), OnDriveC(folder + "\\zplvenu.dll"));
}

std::unique_ptr<prtui> JobTest::OpenUI(const DEVMODEW* in, uint32_t mode) const {
    std::unique_ptr<prtui> ui(prtui::new_ext());
    ui->init(printer_, in, mode);
    return ui;
}

JobTest::~JobTest() {
    if (printer_) ClosePrinter(printer_);
}

void JobTest::NeedRenderingModule() {
    SkipUnderWine("GDI draws by itself and loads no rendering module");
}

std::vector<PrintedJob> JobTest::TakeJobs(HANDLE printer) const {
    NeedRenderingModule();
    DWORD needed = 0, count = 0;
    EnumJobsW(printer, 0, 1000, 1, nullptr, 0, &needed, &count);
    std::vector<BYTE> buffer(needed);
    EXPECT_TRUE(EnumJobsW(printer, 0, 1000, 1, buffer.data(), needed, &needed, &count));
    const auto* infos = reinterpret_cast<const JOB_INFO_1W*>(buffer.data());
    std::vector<PrintedJob> jobs;
    for (DWORD i = 0; i < count; ++i) {
        char file[32];
        std::snprintf(file, sizeof file, "/spool/%05u.SPL", unsigned{infos[i].JobId});
        jobs.push_back({Text(OString(infos[i].pDocument)), BytesOf(root() + file)});
        EXPECT_EQ(infos[i].Status, 0u);
        EXPECT_TRUE(SetJobW(printer, infos[i].JobId, 0, nullptr, JOB_CONTROL_DELETE));
    }
    return jobs;
}
