// The check whether the module fits the system.

#include "driver/version_check.h"

#include <tuple>

#include <win32host/control.h>

#include "spooler/platform_flags.h"
#include "support/printer_test.h"

using VersionCheck = PrinterTest;

TEST_F(VersionCheck, FailsOnNewerSystemsUnlessTheDriverIsOfVersionThree) {
    const std::tuple<DWORD, DWORD, bool> cases[] = {{4, 0, true},  {4, 10, true}, {5, 0, true},
                                                    {5, 1, false}, {5, 2, false}, {6, 0, true},
                                                    {6, 1, false}, {10, 0, true}};
    for (const auto& [major, minor, fits] : cases) {
        win32host::SetVersion(2, major, minor, 2600);
        SetPlatformFlags("C:\\drivers\\2");
        EXPECT_EQ(CheckWindowsVersion(), fits) << major << "." << minor;
        SetPlatformFlags("C:\\drivers\\3");
        EXPECT_TRUE(CheckWindowsVersion()) << major << "." << minor;
    }
}
