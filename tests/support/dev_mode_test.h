// The fixture of tests of DEVMODEs: a model to make them for, and DEVMODEs of other drivers.
#pragma once

#include <cstring>
#include <vector>

#include "settings/dev_mode.h"
#include "support/model_test.h"

// A DEVMODE of another driver in a block of exactly its size, so that reading past it is noticed.
struct ForeignDevMode {
    std::vector<char> bytes;

    ForeignDevMode(uint16_t size, uint16_t extra, const char* device = "Elsewhere")
        : bytes(static_cast<size_t>(size < 72 ? 72 : size) + extra) {
        const OString name(device);
        for (int i = 0; name.wstring()[i]; ++i) dev_mode()->dmDeviceName[i] = name.wstring()[i];
        dev_mode()->dmSpecVersion = 0x401;
        dev_mode()->dmDriverVersion = 1;
        dev_mode()->dmSize = size;
        dev_mode()->dmDriverExtra = extra;
    }
    DEVMODEW* dev_mode() { return reinterpret_cast<DEVMODEW*>(bytes.data()); }
    DEVMODEW* operator->() { return dev_mode(); }
};

class DevModeTest : public ModelTest {
protected:
    // A printer of 203 dpi and 203 x 406 dpi, black and white by default.
    static ModelTables Tables(const std::string& more_of_model = "") {
        return {.model = "Resolution=203,203x406\nStock.Default.X=4 in\nStock.Default.Y=6 in\n" +
                         more_of_model,
                .method = "Copies.Limit=500\n"};
    }
};
