// Questions to a ZPL II printer about itself.
#pragma once

#include <windows.h>

#include <cstdint>

#include "core/ostring_array.h"
#include "model/property_set.h"
#include "zpl/host_status.h"

class extstream;

// Asks a selection of the printer's questions in one job and keeps the answers. Built for one run.
class ZPLQuery {
public:
    // The questions, in the order in which they are asked. The two lists of files answer under the
    // same name, so one of them is lost if both are asked for.
    enum Question : int {
        IDENTIFICATION = 1,
        STATUS = 2,
        MEMORY = 4,
        ALL_FILES = 8,
        FONT_FILES = 16,
        // The answers to these stay where the status monitor stores them.
        XML_FORMAT_SETTINGS = 32,
        XML_DIRECTORY = 64,
        XML_STATUS = 128,
        XML_ALL = 256,
        CONFIGURATION = 512,
    };

    // Both are borrowed. `parent` is the window in front of which the status monitor may show
    // itself, or null.
    ZPLQuery(HWND parent, extstream* stream)
        : stream_(stream)
        , parent_(parent) {}
    ZPLQuery(const ZPLQuery&) = delete;
    ZPLQuery& operator=(const ZPLQuery&) = delete;

    // Asks the questions of a mask, once no other query is running on this machine. False, with
    // nothing known, if the mask has no questions or the printer cannot be asked. No job is made if
    // its port has no way back. Missing answers and those that make no sense are left out.
    bool RunQuery(int mask);

    // The entries are as ReadFileList ("E:LOGO.GRF;1234;P") and ReadConfigurationList ("PRINT
    // WIDTH@832") make them; the properties come from the three answers in zpl/host_status.h.
    OStringArray files;
    OStringArray configuration;
    OPropertySet properties;

private:
    void Read(int question, const char* name);

    extstream* const stream_;
    const HWND parent_;
};

// For the power management page: asks a printer with a battery for its readings. The names of the
// job and of the question are texts in the user's language (TEXT_POWER_QUERY_JOB and
// TEXT_POWER_QUERY). False if the printer cannot be asked, as with RunQuery. A reading that was not
// answered is empty.
bool RunPowerQuery(HWND parent, extstream& stream, const OString& job_name,
                   const OString& query_name, PowerReadings& readings);
