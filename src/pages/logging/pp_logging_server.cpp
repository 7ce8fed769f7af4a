#include "pages/logging/pp_logging_server.h"

#include "core/ofile.h"
#include "locale/text_numbers.h"
#include "pages/logging/recordings.h"
#include "ui/prtui.h"
#include "ui/udirectory_dialog.h"
#include "ui/ufile_dialog.h"

namespace {

constexpr int kLookTimer = 1;
constexpr uint32_t kLookInterval = 1000; // milliseconds

constexpr char kLogPatterns[] = "*.txt;*.log";

} // namespace

void ppLoggingServer::Init() {
    ppLogging::Init();
    list_.Bind(this, RECORDINGS);
    SetTimer(kLookTimer, kLookInterval);
}

void ppLoggingServer::Timer(uint16_t) {
    UpdateFileList(false);
    WM_Refresh(false);
}

// ---- What the dialog shows ----------------------------------------------------------------------

void ppLoggingServer::Refresh(bool all) {
    const HWND focus = ::GetFocus();
    ppLogging::Refresh(all);
    if (all) UpdateFileList(false);
    UpdateLogFile();
    const bool may_change = !IsRestricted();
    const int selected = list_.GetSelectedCount();
    WM_Enable(VIEW_RECORDINGS, may_change ? selected > 0 : selected == 1);
    WM_Enable(SEND_RECORDINGS, selected > 0);
    WM_Enable(DELETE_SELECTED, may_change && selected > 0);
    WM_Enable(DELETE_ALL, may_change && list_.GetCount() > 0);
    // A disabled control does not take keys, and the button after it could be the one that deletes
    // all recordings. So the focus goes to OK.
    if (IsChild(GetWindow(), focus) && !IsWindowEnabled(focus)) WM_SetFocus(OK_BUTTON);
}

void ppLoggingServer::UpdateLogFile() {
    const bool exists = OFile::Exists(LogFile());
    WM_Enable(VIEW_LOG_FILE, exists && (!IsRestricted() || settings_.GetLogging()));
    WM_Enable(DELETE_LOG_FILE, exists && !IsRestricted());
}

void ppLoggingServer::UpdateFileList(bool always) {
    if (!always && list_.HasFocus()) return;
    OStringArray names;
    shown_folder_ = settings_.GetLogDir();
    ListRecordings(shown_folder_, names);
    if (names == shown_) return;
    shown_ = names;
    OStringArray selected;
    list_.GetSelected(selected);
    const int top = list_.GetTopIndex();
    list_.ResetContent();
    for (int i = 0; i < names.GetSize(); ++i) list_.AddString(names[i], i);
    list_.SetSelected(selected);
    list_.SetTopIndex(top);
}

OString ppLoggingServer::LogFile() const {
    OString path;
    WM_GetText(LOG_FILE, path);
    return path;
}

OString ppLoggingServer::PathOf(const OString& recording) const {
    return shown_folder_ + '\\' + recording;
}

// ---- The user's acts ----------------------------------------------------------------------------

bool ppLoggingServer::Command(uint16_t id, uint16_t code, LPARAM value) {
    if (code == BN_CLICKED && Click(id)) return false;
    if (id == LOG_FILE && code == EN_CHANGE) {
        UpdateLogFile();
        return true;
    }
    if (id == RECORDINGS && code == LBN_DBLCLK) {
        ViewSelected();
        return false;
    }
    if (id == RECORDINGS && (code == LBN_SELCHANGE || code == LBN_SELCANCEL)) return false;
    return ppLogging::Command(id, code, value);
}

bool ppLoggingServer::Click(uint16_t id) {
    OStringArray selected;
    switch (id) {
    case BROWSE_LOG_FILE:
        BrowseLogFile();
        return true;
    case VIEW_LOG_FILE:
        ShowTextFile(LogFile());
        return true;
    case DELETE_LOG_FILE:
        OFile::Delete(LogFile());
        return true;
    case BROWSE_FOLDER:
        BrowseFolder();
        return true;
    case VIEW_RECORDINGS:
        ViewSelected();
        return true;
    case SEND_RECORDINGS:
        SendSelected();
        return true;
    case DELETE_SELECTED:
        list_.GetSelected(selected);
        Delete(selected);
        return true;
    case DELETE_ALL:
        Delete(OStringArray(shown_));
        return true;
    default:
        return false;
    }
}

void ppLoggingServer::BrowseLogFile() {
    UFileDialog dialog(*this, registry_, TEXT_LOG_FILES);
    dialog.AddFilter(TEXT_LOG_FILES, kLogPatterns);
    if (!dialog.Browse(UFileDialog::SAVE)) return;
    settings_.SetLogFile(dialog.GetPath());
    EM_SetText(LOG_FILE, dialog.GetPath());
}

void ppLoggingServer::BrowseFolder() {
    OString title;
    WM_GetText(RECORDING_FRAME, title);
    UDirectoryDialog dialog(*this);
    if (!dialog.Browse(title, settings_.GetLogDir())) return;
    settings_.SetLogDir(dialog.GetPath());
    EM_SetText(FOLDER, dialog.GetPath());
}

void ppLoggingServer::ViewSelected() {
    OStringArray selected;
    list_.GetSelected(selected);
    for (int i = 0; i < selected.GetSize(); ++i) ShowTextFile(PathOf(selected[i]));
}

void ppLoggingServer::SendSelected() {
    OStringArray selected;
    list_.GetSelected(selected);
    OString unread;
    for (int i = 0; i < selected.GetSize(); ++i) {
        const OString path = PathOf(selected[i]);
        if (CanReadRecording(path))
            ui_->SendFile(path);
        else
            unread << "\n" << path;
    }
    if (unread.IsEmpty()) return;
    Message(GetString(TEXT_RECORDINGS_NOT_SENT) + unread, GetString(TEXT_LOGGING),
            MB_OK | MB_ICONEXCLAMATION);
}

void ppLoggingServer::Delete(const OStringArray& recordings) {
    for (int i = 0; i < recordings.GetSize(); ++i) OFile::Delete(PathOf(recordings[i]));
    UpdateFileList(true);
}
