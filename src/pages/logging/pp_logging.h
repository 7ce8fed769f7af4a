// The dialogs for the log of a printer and the recordings of its jobs.
#pragma once

#include "model/driver_settings.h"
#include "ui/prtpage.h"
#include "ui/ucheck_box.h"

// What both dialogs have: the settings, which the printing side follows. The dialog edits a copy of
// them, which only OK stores. A user with restricted rights changes nothing, and OK stores nothing.
//
// An empty folder or log file is proposed: "C:\Log Files\" and the printer's name, and "Log.txt"
// there.
class ppLogging : public prtpage {
public:
    enum ControlId : uint16_t {
        RECORD_JOBS = 513,
        FOLDER = 515,
        BROWSE_LOG_FILE = 517,
        OVERWRITE = 519,
        LOG_FILE = 529,
        KEEP_LOG = 531,
        BROWSE_FOLDER = 532,
        LOG_FILE_LABEL = 538,
        FOLDER_LABEL = 539,
        RECORDING_FRAME = 684
    };

    void Refresh(bool all) override;
    bool Command(uint16_t id, uint16_t code, LPARAM value) override;
    void Init() override;
    bool Apply() override;
    const char* HelpTopic() override { return "/base/Logging.html"; }

protected:
    DriverSettings settings_;

private:
    void ProposePlaces();
    // Take what is in a field, if it is something else.
    void TakeLogFile();
    void TakeFolder();

    uint32_t proposed_ = 0; // the checksum of the settings that were first shown
    UCheckBox log_box_;
    UCheckBox record_box_;
    UCheckBox overwrite_box_;
};

// The dialog for a printer of another machine, whose files are not here.
class ppLoggingClient : public ppLogging {
public:
    static constexpr DLGPROC WinProc = prtpage::WinProcOf<ppLoggingClient>;
};
