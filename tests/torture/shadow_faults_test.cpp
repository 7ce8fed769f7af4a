// The exchange of settings between a client and its server, failing somewhere.
#include <win32host/control.h>

#include <filesystem>

#include "keys/shadow_keys.h"
#include "support/build_folders.h"
#include "torture/fault_test.h"

namespace {

namespace fs = std::filesystem;
using namespace win32host;

class ShadowFaults : public FaultTest {
protected:
    void SetUp() override {
        ConnectToDock3("SRV1", PRINTER_ATTRIBUTE_SHARED | PRINTER_ATTRIBUTE_ENABLE_BIDI);
        OnServer("SRV1", [] {
            prtreg("Dock3").SetInt("Presets:v", 1);
            prtreg("Dock3").SetInt("Presets:w", 2);
            prtreg("Dock3").SetInt("STOCK:v", 3);
        });
        ORegistry().SetString("PRINT:Environments/Windows NT x86/Drivers/Version-3/Model 1/Monitor",
                              "qstmon");
        fs::copy_file(Built("/bin/qstmon.dll"),
                      OnDriveC("WINDOWS\\system32\\spool\\drivers\\w32x86\\3\\qstmon.dll"),
                      fs::copy_options::overwrite_existing);
    }

    // The shared keys in the user's copy and on the server. Each is all or nothing on its own.
    static std::vector<std::string> Both() {
        std::vector<std::string> parts;
        AddKeys("\\\\SRV1\\Dock3", parts);
        const std::string home = Root();
        SetRoot(home + "/machines/SRV1");
        AddKeys("Dock3", parts);
        SetRoot(home);
        return parts;
    }

    static void AddKeys(const char* printer, std::vector<std::string>& parts) {
        prtreg registry{OString(printer)};
        for (const char* key : {"Presets:", "STOCK:"}) parts.push_back(Exported(registry, key));
    }
};

} // namespace

TEST_F(ShadowFaults, LeaveTheCopyAsItWasOrAsTheServersIs) {
    AtEveryPoint(
        kStoreFaults, [] { CreateShadow("\\\\SRV1\\Dock3"); }, Both);
}

TEST_F(ShadowFaults, LeaveTheServersSettingsAsTheyWereOrAsTheCopyIs) {
    CreateShadow("\\\\SRV1\\Dock3");
    prtreg("\\\\SRV1\\Dock3").SetInt("Presets:v", 10);
    prtreg("\\\\SRV1\\Dock3").SetInt("STOCK:w", 11);
    AtEveryPoint(
        kStoreFaults, [] { CommitShadow("\\\\SRV1\\Dock3"); }, Both);
}
