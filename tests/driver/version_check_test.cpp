// The check whether the module fits the system.

#include "driver/version_check.h"

#include <tuple>

#include <win32host/control.h>
#include <winspool.h>

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

TEST_F(VersionCheck, MarksThePrinterAndWarnsInOneBox) {
    ASSERT_TRUE(AddDriver("Model 1", "zplqv.ddt"));
    ASSERT_TRUE(AddPrinter("Dock 3", "Model 1"));
    WCHAR printer[] = TEXT("Dock 3");
    PRINTER_DEFAULTSW all = {nullptr, nullptr, PRINTER_ALL_ACCESS};
    HANDLE handle = nullptr;
    ASSERT_TRUE(OpenPrinterW(printer, &handle, &all));
    WriteVersionError(handle);
    WCHAR name[] = TEXT("Self-Destruct Sequence Initiated");
    DWORD type = 0;
    DWORD size = 0;
    BYTE mark[8] = {};
    EXPECT_EQ(GetPrinterDataW(handle, name, &type, mark, sizeof mark, &size), DWORD{ERROR_SUCCESS});
    EXPECT_EQ(type, static_cast<DWORD>(REG_BINARY));
    EXPECT_EQ(size, 1u);
    EXPECT_EQ(mark[0], 0xFF);
    ClosePrinter(handle);
    WriteVersionError(nullptr); // harmless
    DisplayVersionWarning();
    const auto boxes = win32host::TakeMessageBoxes();
    ASSERT_EQ(boxes.size(), 1u);
    EXPECT_EQ(boxes[0].type, static_cast<UINT>(MB_ICONERROR | MB_OK));
    EXPECT_EQ(boxes[0].caption, TEXT("Incorrect Driver Version"));
}
