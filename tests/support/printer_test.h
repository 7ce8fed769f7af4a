// The fixture of tests that need printers: installs made-up drivers and printers into the spooler.
#pragma once

#include <windows.h>
#include <winspool.h>

#include <string>

#include "core/ostring.h"
#include "support/host_test.h"

// The module's platform flags are those of a version-3 driver.
class PrinterTest : public HostTest {
protected:
    PrinterTest();
    ~PrinterTest() override;

    // Adds a driver whose files are empty: driver file "zplrender.dll", configuration file
    // "zplui.dll", help file "zplui.hlp", dependent files "zplrender.dll" and "zplvenu.dll", the
    // data file as given. Level 6 adds manufacturer "Maker", hardware id "HW1" and provider
    // "Provider".
    bool AddDriver(const OString& driver, const OString& data_file, DWORD level = 6);

    // The same with files that are in `folder` already. Without a folder they are in the one that
    // the spooler names for them, and the driver is added with their bare names.
    bool AddDriverFrom(const OString& folder, const OString& driver, const OString& data_file,
                       DWORD level = 6);

    // Adds a printer of that driver on port "FILE:".
    bool AddPrinter(const OString& name, const OString& driver, DWORD attributes = 0,
                    DEVMODEW* dev_mode = nullptr);

    // Makes another machine "\\NAME" with a root folder of its own and runs `work` there, as if
    // this test ran on it. Then it returns to this one.
    template <typename Work>
    void OnServer(const std::string& name, Work work) {
        const std::string home = EnterServer(name);
        work();
        LeaveServer(home);
    }

    // Makes that server with the shared printer "Dock3" of the driver "Model 1", and connects this
    // user to it.
    void ConnectToDock3(const std::string& server, DWORD attributes = PRINTER_ATTRIBUTE_SHARED);

private:
    std::string EnterServer(const std::string& name);
    void LeaveServer(const std::string& home);
};
