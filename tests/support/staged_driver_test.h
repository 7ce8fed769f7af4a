// The fixture of tests that use the module as the spooler loads it.
#pragma once

#include <string>

#include "support/model_test.h"

// Bytes of the driver's DEVMODE, private part included.
constexpr size_t DEV_MODE_SIZE = 1508;

class StagedDriverTest : public PrinterTest {
protected:
    // Installs the module as the driver "Model 1" with a model data file of these tables, and a
    // printer "Dock 3" of it. As in a set-up, the files are put where the spooler says.
    void Install(const ModelTables& tables);

    // An export of the installed module. Null, and a failure of the test, if there is none.
    template <class Function>
    static Function* Export(const char* name) {
        return reinterpret_cast<Function*>(Find(name));
    }

    // The folder of installed version-3 drivers as a Windows path.
    static OString DriverFolder();

private:
    static void (*Find(const char* name))();
};
