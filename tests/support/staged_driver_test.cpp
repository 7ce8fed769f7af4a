#include "support/staged_driver_test.h"

#include <filesystem>

namespace fs = std::filesystem;

OString StagedDriverTest::DriverFolder() {
    WCHAR folder[MAX_PATH] = {};
    DWORD needed = 0;
    EXPECT_TRUE(GetPrinterDriverDirectoryW(nullptr, nullptr, 1, reinterpret_cast<BYTE*>(folder),
                                           sizeof folder, &needed));
    return OString(folder) + "\\3";
}

void StagedDriverTest::Install(const std::string& binary_folder, const ModelTables& tables) {
    // The made-up driver's empty files are replaced where drivers lie, before anyone loads them.
    ASSERT_TRUE(AddDriver("Model 1", "zplqv.ddt"));
    const std::string folder = std::string(DriverFolder().nstring()).substr(3);
    fs::copy_file(binary_folder + "/bin/zplui.dll", OnDriveC(folder + "\\zplui.dll"),
                  fs::copy_options::overwrite_existing);
    WriteFile(folder + "\\zpl.ddt", ModelDataFile(tables));
    ASSERT_TRUE(AddPrinter("Dock 3", "Model 1"));
}
