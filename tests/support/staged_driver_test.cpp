#include "support/staged_driver_test.h"

#include <filesystem>

#include "support/build_folders.h"

namespace fs = std::filesystem;

namespace {

// The folder to put a driver's files in.
OString StageFolder() {
    WCHAR folder[MAX_PATH] = {};
    DWORD needed = 0;
    EXPECT_TRUE(GetPrinterDriverDirectoryW(nullptr, nullptr, 1, reinterpret_cast<BYTE*>(folder),
                                           sizeof folder, &needed));
    return folder;
}

} // namespace

void (*StagedDriverTest::Find(const char* name))() {
    const HMODULE module = LoadLibraryW((DriverFolder() + "\\zplui.dll").wstring());
    const auto found =
        module ? reinterpret_cast<void (*)()>(GetProcAddress(module, name)) : nullptr;
    EXPECT_TRUE(found) << name;
    return found;
}

OString StagedDriverTest::DriverFolder() {
    return StageFolder() + "\\3";
}

void StagedDriverTest::Install(const ModelTables& tables) {
    const std::string stage = std::string(StageFolder().nstring()).substr(3) + "\\";
    for (const char* file : {"zplui.hlp", "zplrender.dll", "zplvenu.dll", "zplqv.ddt"})
        WriteFile(stage + file, file);
    fs::copy_file(Built("/bin/zplui.dll"), OnDriveC(stage + "zplui.dll"));
    ASSERT_TRUE(AddDriverFrom("", "Model 1", "zplqv.ddt"));
    WriteFile(stage + "3\\zpl.ddt", ModelDataFile(tables));
    ASSERT_TRUE(AddPrinter("Dock 3", "Model 1"));
}
