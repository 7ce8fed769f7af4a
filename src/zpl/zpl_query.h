// What a ZPL II printer says about itself.
#pragma once

#include <windows.h>

#include <cstdint>

#include "core/ostring_array.h"
#include "model/property_set.h"
#include "zpl/host_status.h"

class extstream;

// Asks the printer's questions of one list in one job and keeps what came back. Built for one run.
class ZPLQuery {
public:
    // The questions, in the order in which they are asked. The two lists of files answer under one
    // name: asked for together, one of them is lost.
    enum Question : int {
        IDENTIFICATION = 1,
        STATUS = 2,
        MEMORY = 4,
        ALL_FILES = 8,
        FONT_FILES = 16,
        // The answers to these are left where the status monitor stores them.
        XML_FORMAT_SETTINGS = 32,
        XML_DIRECTORY = 64,
        XML_STATUS = 128,
        XML_ALL = 256,
        CONFIGURATION = 512,
    };

    // Both are borrowed. `parent` is the window that the status monitor may stand in front of; null
    // for none.
    ZPLQuery(HWND parent, extstream* stream)
        : stream_(stream)
        , parent_(parent) {}
    ZPLQuery(const ZPLQuery&) = delete;
    ZPLQuery& operator=(const ZPLQuery&) = delete;

    // Asks the questions of a mask, once no other query is under way on this machine. False, and
    // nothing is known, when the mask has none or the printer cannot be asked; without a job when
    // its port has no way back. What was not answered, or not to be understood, is left out.
    bool RunQuery(int mask);

    // "E:LOGO.GRF;1234;P", see ReadFileList; "PRINT WIDTH@832", see ReadConfigurationList; the
    // properties of the three answers in zpl/host_status.h.
    OStringArray files;
    OStringArray configuration;
    OPropertySet properties;

private:
    void Read(int question, const char* name);

    extstream* const stream_;
    const HWND parent_;
};

// For the power management page: asks a printer with a battery for its readings. The names of the
// job and of the question are texts of the user's language (TEXT_POWER_QUERY_JOB and
// TEXT_POWER_QUERY). False when the printer cannot be asked, as with RunQuery; a reading that was
// not answered is empty.
bool RunPowerQuery(HWND parent, extstream& stream, const OString& job_name,
                   const OString& query_name, PowerReadings& readings);
