#include "torture/fault_test.h"

#include <win32host/control.h>

#include <algorithm>
#include <filesystem>
#include <numeric>
#include <span>

#include "support/torture_rounds.h"
#include "torture/memory_faults.h"

#ifdef __SANITIZE_ADDRESS__
#include <sanitizer/lsan_interface.h>
#endif

namespace fs = std::filesystem;

namespace {

// Copies registry, spool and drive C. Modules are links, as a copy would be another module.
void CopyRoot(const fs::path& from, const fs::path& to) {
    fs::create_directories(to);
    for (const fs::directory_entry& entry : fs::directory_iterator(from)) {
        const fs::path target = to / entry.path().filename();
        if (entry.is_symlink())
            fs::create_directory_symlink(to.parent_path() / "machines" / entry.path().filename(),
                                         target);
        else if (entry.is_directory())
            CopyRoot(entry.path(), target);
        else if (entry.path().extension() == ".dll")
            fs::create_symlink(entry.path(), target);
        else
            fs::copy_file(entry.path(), target);
    }
}

// Leaves a root folder, so that its registry is closed.
void EnterRoot(const std::string& root) {
    RegFlushKey(HKEY_LOCAL_MACHINE);
    win32host::SetRoot(root);
    HKEY key = nullptr;
    RegOpenKeyExW(HKEY_LOCAL_MACHINE, TEXT("SOFTWARE"), 0, KEY_READ, &key);
    if (key) RegCloseKey(key);
}

} // namespace

void FaultTest::InstallPrinter() {
    Install({.model = "Resolution=203\nStock.Maximum.X=110 mm\n"
                      "Stock.Maximum.Y=990 mm\n"});
}

HANDLE FaultTest::OpenDock3(ACCESS_MASK access) {
    PRINTER_DEFAULTSW defaults = {nullptr, nullptr, access};
    WCHAR name[] = TEXT("Dock 3");
    HANDLE printer = nullptr;
    OpenPrinterW(name, &printer, &defaults);
    return printer;
}

std::vector<std::string> FaultTest::StoredSettings() {
    prtreg registry("Dock 3");
    std::vector<std::string> parts;
    for (const char* key : {"Presets:", "STOCK:", "Fonts:", "DATA:Data Fonts", "Settings:"})
        parts.push_back(Exported(registry, key));
    return parts;
}

std::string FaultTest::Exported(ORegistry& registry, const char* key) {
    OStringArray lines;
    registry.Export(key, lines);
    std::string text;
    for (int i = 0; i < lines.GetSize(); ++i) text.append(Text(lines[i])) += '\n';
    return text;
}

std::vector<std::string> FaultTest::FilesIn(const std::string& folder) const {
    std::vector<std::string> files;
    std::error_code ignored;
    for (const auto& entry :
         fs::directory_iterator(win32host::Root() + "/drive_c/" + folder, ignored))
        files.push_back(entry.path().filename().string() + '\n' + BytesOf(entry.path().string()));
    std::sort(files.begin(), files.end());
    return {std::accumulate(files.begin(), files.end(), std::string())};
}

std::vector<std::string> FaultTest::SpooledJobs() {
    const HANDLE printer = OpenDock3(PRINTER_ACCESS_USE);
    DWORD needed = 0, count = 0;
    EnumJobsW(printer, 0, 100, 1, nullptr, 0, &needed, &count);
    std::vector<BYTE> buffer(needed);
    EnumJobsW(printer, 0, 100, 1, buffer.data(), needed, &needed, &count);
    ClosePrinter(printer);
    std::string jobs;
    for (DWORD i = 0; i < count; ++i) {
        const auto& info = reinterpret_cast<const JOB_INFO_1W*>(buffer.data())[i];
        char file[32];
        std::snprintf(file, sizeof file, "/spool/%05u.SPL", unsigned{info.JobId});
        if (!(info.Status & JOB_STATUS_SPOOLING))
            jobs += "a job: " + BytesOf(win32host::Root() + file);
    }
    return {jobs};
}

std::vector<std::string> FaultTest::OnCopy(const std::function<std::vector<std::string>()>& work) {
    const std::string copy = root() + ".copy";
    CopyRoot(root(), copy);
    EnterRoot(copy);
    // A run without memory may have left something in them.
    Forget();
    const auto result = work();
    EnterRoot(root());
    fs::remove_all(copy);
    return result;
}

void FaultTest::Run(const FaultKindOfRun& fault, DWORD point, const std::function<void()>& work) {
    if (fault.kinds) {
        win32host::PlanFault({fault.kinds, point, 0, fault.partly, fault.from_then, false});
        work();
    } else {
        FailAllocation(point, fault.from_then);
        work();
        FailAllocation(0);
    }
}

void FaultTest::AtEveryPoint(std::span<const FaultKindOfRun> faults,
                             const std::function<void()>& work,
                             const std::function<std::vector<std::string>()>& state) {
    RegFlushKey(HKEY_LOCAL_MACHINE);
    const auto before = OnCopy(state);
    const auto after = OnCopy([&] {
        work();
        return state();
    });
    ASSERT_EQ(before.size(), after.size());
    ASSERT_NE(before, after) << "the work does nothing";

    for (const FaultKindOfRun& fault : faults) {
        SCOPED_TRACE(fault.what);
        DWORD points = 0;
        OnCopy([&] {
            Run(fault, 0xFFFFFFFF, work);
            points = fault.kinds ? win32host::FaultPoints() : AllocationCount();
            win32host::ForgetFaults();
            return state();
        });
        ASSERT_GT(points, 0u);
        const DWORD runs = std::min(points, static_cast<DWORD>(TortureRounds(12)));
        for (DWORD run = 0; run < runs; ++run) {
            const auto point = static_cast<DWORD>(1 + uint64_t{run} * points / runs);
            SCOPED_TRACE("point " + std::to_string(point) + " of " + std::to_string(points));
            OnCopy([&] {
                const size_t handles = win32host::OpenHandles(), keys = win32host::OpenKeys();
                Run(fault, point, work);
                win32host::ForgetFaults();
                EXPECT_EQ(win32host::OpenHandles(), handles);
                EXPECT_EQ(win32host::OpenKeys(), keys);
                const auto now = state();
                EXPECT_EQ(now.size(), before.size());
                for (size_t i = 0; i < now.size() && i < before.size(); ++i)
                    EXPECT_TRUE(now[i] == before[i] || now[i] == after[i])
                        << "part " << i << " was\n"
                        << before[i] << "and would be\n"
                        << after[i] << "but is\n"
                        << now[i];
                return now;
            });
            if (HasFailure()) return;
        }
    }
#ifdef __SANITIZE_ADDRESS__
    EXPECT_EQ(__lsan_do_recoverable_leak_check(), 0);
#endif
}
