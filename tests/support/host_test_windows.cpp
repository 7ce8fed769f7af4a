// One machine serves all tests: a Wine prefix of the build's own. Each test finds it without the
// files, printers and registry entries of others.
#include "support/host_test.h"

#include <windows.h>
#include <winspool.h>

#include <win32host/control.h>

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <set>
#include <string>
#include <vector>

namespace fs = std::filesystem;

namespace {

constexpr const WCHAR* kMachine = TEXT("Software\\ZpluiTest\\Machine");
constexpr const WCHAR* kUser = TEXT("Software\\ZpluiTest\\User");
constexpr const WCHAR* kPrint = TEXT("System\\CurrentControlSet\\Control\\Print");

// The names below a folder in a new prefix.
const std::set<std::string> kDriveC = {"Program Files", "Program Files (x86)", "ProgramData",
                                       "users", "windows"};

void RemoveStrangers(const fs::path& folder, const std::set<std::string>& natives) {
    std::error_code ignored;
    for (const fs::directory_entry& entry : fs::directory_iterator(folder, ignored))
        if (!natives.count(entry.path().filename().string())) {
            SetFileAttributesW(entry.path().c_str(), FILE_ATTRIBUTE_NORMAL);
            fs::remove_all(entry.path(), ignored);
        }
}

void RemoveFilesOfOthers() {
    RemoveStrangers("C:\\", kDriveC);
    const fs::path drivers = "C:\\windows\\system32\\spool\\drivers\\x64";
    RemoveStrangers(drivers, {"3"});
    RemoveStrangers(drivers / "3", {});
    // The folder of the module if a library of the system stands for it.
    std::error_code ignored;
    for (const fs::directory_entry& entry :
         fs::directory_iterator("C:\\windows\\system32", ignored))
        if (const fs::path file = entry.path().filename();
            file.extension() == ".kds" || file.string().rfind("zpl", 0) == 0)
            fs::remove(entry.path(), ignored);
}

HKEY FreshKey(const WCHAR* path) {
    HKEY key = nullptr;
    RegDeleteTreeW(HKEY_CURRENT_USER, path);
    if (RegCreateKeyW(HKEY_CURRENT_USER, path, &key) != ERROR_SUCCESS) std::abort();
    return key;
}

// Lets this process see an empty registry, except for the spooler's own entries.
void EnterFreshRegistry() {
    RegOverridePredefKey(HKEY_LOCAL_MACHINE, nullptr);
    RegOverridePredefKey(HKEY_CURRENT_USER, nullptr);
    RegOverridePredefKey(HKEY_CLASSES_ROOT, nullptr);
    const HKEY machine = FreshKey(kMachine), user = FreshKey(kUser);
    HKEY from = nullptr, to = nullptr;
    if (RegOpenKeyW(HKEY_LOCAL_MACHINE, kPrint, &from) == ERROR_SUCCESS) {
        RegCreateKeyW(machine, kPrint, &to);
        RegCopyTreeW(from, nullptr, to);
        RegCloseKey(from);
        RegCloseKey(to);
    }
    RegCreateKeyW(machine, TEXT("Software\\Microsoft\\Windows NT\\CurrentVersion\\Ports"), &to);
    RegSetValueExW(to, TEXT("FILE:"), 0, REG_SZ, reinterpret_cast<const BYTE*>(TEXT("")),
                   sizeof(WCHAR));
    RegCloseKey(to);
    RegOverridePredefKey(HKEY_LOCAL_MACHINE, machine);
    RegOverridePredefKey(HKEY_CURRENT_USER, user);
    RegCreateKeyW(machine, TEXT("Software\\Classes"), &to);
    RegOverridePredefKey(HKEY_CLASSES_ROOT, to);
    for (const HKEY key : {machine, user, to}) RegCloseKey(key);
}

} // namespace

HostTest::HostTest() {
    // The tests write anywhere on drive C.
    if (!std::getenv("ZPLUI_TEST_MACHINE")) {
        std::fputs("These tests need a machine of their own; ctest makes one.\n", stderr);
        std::exit(1);
    }
    root_ = "C:";
    RemoveFilesOfOthers();
    EnterFreshRegistry();
    win32host::ResetControl();
}

HostTest::~HostTest() {
    win32host::ResetControl();
    RegOverridePredefKey(HKEY_LOCAL_MACHINE, nullptr);
    RegOverridePredefKey(HKEY_CURRENT_USER, nullptr);
    RegOverridePredefKey(HKEY_CLASSES_ROOT, nullptr);
    RemoveFilesOfOthers();
}

std::string HostTest::OnDriveC(const std::string& windows_path) const {
    std::string path = windows_path;
    std::replace(path.begin(), path.end(), '\\', '/');
    return "C:/" + path;
}
