// The fixture of tests that use the module as the spooler loads it.
#pragma once

#include <string>

#include "support/model_test.h"

class StagedDriverTest : public PrinterTest {
protected:
    // Installs the module of the build in `binary_folder` as the driver "Model 1" with a model data
    // file of these tables, and a printer "Dock 3" of it.
    void Install(const std::string& binary_folder, const ModelTables& tables);

    // DeviceCapabilitiesW and DocumentPropertiesW. Wine's spooler hands the module no printer;
    // there these ask the installed module as other spoolers do.
    static int Capabilities(const WCHAR* printer, WORD capability, WCHAR* output,
                            const DEVMODEW* dev_mode);
    static LONG Properties(HANDLE printer, DEVMODEW* output, DEVMODEW* input, DWORD mode);

    // The folder of version-3 drivers as a Windows path.
    static OString DriverFolder();
};
