// Settings whose storing, exporting or importing fails somewhere.
#include "torture/fault_test.h"
#include "torture/memory_faults.h"
#include "torture/sample_lists.h"

namespace {

using namespace win32host;

class SettingsFaults : public FaultTest {
protected:
    void SetUp() override {
        InstallPrinter();
        Save(0);
        prtreg("Dock 3").SetInt("Settings:Old", 1);
    }

    static void Save(int version) {
        WithSettings([version](HANDLE settings) {
            auto& ui = *static_cast<prtui*>(settings);
            if (!ui.model) return;
            const NoAllocationFaults edited;
            MakeLists(ui, version);
        });
    }
};

constexpr FaultKindOfRun kFileFaults[] = {
    {"a file operation fails", FAULT_FILES},
    {"the disk is full", FAULT_FILE_WRITE | FAULT_FILE_OPEN, true, true},
    {"a file is read by half", FAULT_FILE_READ, false, true},
};

constexpr char kOptions[] = "<driver version='6.6'>\r\n<options model='Model 1'>\r\n"
                            "[DATA:\\Settings]\r\n\"New\"=dword:00000001\r\n\"Text\"=\"x\"\r\n"
                            "[DATA:\\Settings\\Status]\r\n\"Interval\"=dword:00000005\r\n"
                            "</options>\r\n";

} // namespace

TEST_F(SettingsFaults, LeaveEveryStoredListWhole) {
    AtEveryPoint(
        kStoreFaults, [] { Save(1); }, StoredSettings);
}

TEST_F(SettingsFaults, LeaveTheOldSettingsFileOrTheNewOne) {
    WriteFile("files\\out.kds", "the old one");
    const auto work = [] {
        WithSettings([](HANDLE settings) {
            DAL_Settings_Export(settings, TEXT("C:\\files\\out.kds"), 0x10F);
        });
    };
    const auto files = [this] { return FilesIn("files"); };
    AtEveryPoint(std::span(kFileFaults).first(2), work, files);
}

TEST_F(SettingsFaults, StoreAllOfAnImportedFileOrNothing) {
    WriteFile("files\\in.kds", "");
    WithSettings([](HANDLE settings) {
        MakeLists(*static_cast<prtui*>(settings), 1);
        DAL_Settings_Export(settings, TEXT("C:\\files\\in.kds"), 0x00F);
        DAL_Settings_Load(settings);
    });
    // A second load would leave the stocks as they are, so the printer is opened for each run.
    const auto work = [] {
        WithSettings([](HANDLE settings) {
            DAL_Settings_Import(settings, TEXT("C:\\files\\in.kds"), 0x00F);
        });
    };
    AtEveryPoint(std::span(kFileFaults).last(1), work, StoredSettings);
    AtEveryPoint(kStoreFaults, work, StoredSettings);
}

TEST_F(SettingsFaults, TakeAllOptionsOrNone) {
    WriteFile("files\\in.kds", kOptions);
    const auto work = [] {
        WithSettings([](HANDLE settings) {
            DAL_Settings_Import(settings, TEXT("C:\\files\\in.kds"), DAL_SETTINGS_OPTIONS);
        });
    };
    AtEveryPoint(std::span(kFileFaults).last(1), work, StoredSettings);
    AtEveryPoint(kStoreFaults, work, StoredSettings);
}

TEST_F(SettingsFaults, ApplyARegistryTextWholeOrNotAtAll) {
    // Each value needs more room than the one before it.
    OStringArray lines;
    for (const char* line :
         {"[HKEY_LOCAL_MACHINE\\SOFTWARE\\Torture]", "\"a\"=dword:00000001",
          "\"b\"=\"a text of some length\"", "\"d\"=hex(7):61,00,00,00,62,00,00,00,00,00", "",
          "[HKEY_LOCAL_MACHINE\\SOFTWARE\\Torture\\Below\\Deep]", "\"c\"=hex:\\"})
        lines.Add(line);
    for (int i = 0; i < 20; ++i) lines.Add("01,02,03,04,05,06,07,08,09,\\");
    for (const char* line : {"0a", "", "[-HKEY_LOCAL_MACHINE\\SOFTWARE\\Tortured]", ""})
        lines.Add(line);
    const auto work = [&] { ORegistry().Import(lines); };
    ORegistry().SetString("LOCAL_MACHINE:SOFTWARE/Torture/old", "1");
    ORegistry().SetString("LOCAL_MACHINE:SOFTWARE/Tortured/Below/old", "1");
    const auto state = [] {
        ORegistry registry;
        return std::vector{Exported(registry, "LOCAL_MACHINE:SOFTWARE/Torture") +
                           Exported(registry, "LOCAL_MACHINE:SOFTWARE/Tortured")};
    };
    AtEveryPoint(kStoreFaults, work, state);
}
