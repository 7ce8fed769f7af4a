// The dialog for the log and the recordings of a printer of this machine.
#pragma once

#include "core/ostring_array.h"
#include "pages/logging/pp_logging.h"
#include "ui/ulist_box.h"

// Shows the recorded files, asking for them every second, and views, sends and deletes them. While
// the user is in the list it is left alone.
class ppLoggingServer : public ppLogging {
public:
    static constexpr DLGPROC WinProc = prtpage::WinProcOf<ppLoggingServer>;

    enum ServerControlId : uint16_t {
        DELETE_SELECTED = 525,
        DELETE_ALL = 526,
        RECORDINGS = 527,
        DELETE_LOG_FILE = 530,
        VIEW_RECORDINGS = 533,
        SEND_RECORDINGS = 534,
        VIEW_LOG_FILE = 536
    };

    void Refresh(bool all) override;
    bool Command(uint16_t id, uint16_t code, LPARAM value) override;
    void Init() override;
    void Timer(uint16_t id) override;

private:
    bool Click(uint16_t id);
    OString LogFile() const;
    void BrowseLogFile();
    void BrowseFolder();

    // Shows the recordings that there are now. A list that the user is in changes only if `always`.
    void UpdateFileList(bool always);
    // The log can be seen and deleted while there is a file of the name in the field.
    void UpdateLogFile();

    OString PathOf(const OString& recording) const;
    void ViewSelected();
    // Each file is a job. Tells the user about those that cannot be read, which are not sent.
    void SendSelected();
    // Those that cannot be deleted stay in the list, which tells the user enough.
    void Delete(const OStringArray& recordings);

    UListBox list_;
    // The folder whose recordings the list shows, and their names.
    OString shown_folder_;
    OStringArray shown_;
};
