#include "pages/logging/pp_logging.h"

#include "locale/text_numbers.h"
#include "ui/prtui.h"

namespace {

constexpr char kLogFolders[] = "C:\\Log Files\\";
constexpr char kLogName[] = "\\Log.txt";

// "\\HOST\Labels" is "Labels".
OString ShareName(OString printer) {
    printer.TrimLeft('\\');
    return printer.FilePart();
}

} // namespace

void ppLogging::Init() {
    prtpage::Init();
    log_box_.Bind(this, KEEP_LOG);
    record_box_.Bind(this, RECORD_JOBS);
    overwrite_box_.Bind(this, OVERWRITE);
    settings_.Load(registry_);
    ProposePlaces();
    proposed_ = settings_.GetCRC32(0);
    log_box_.Check(settings_.GetLogging());
    record_box_.Check(settings_.GetGenerateFile());
    overwrite_box_.Check(settings_.GetOverwriteFile());
}

void ppLogging::ProposePlaces() {
    const OString folder = kLogFolders + ShareName(ui_->printer_name);
    if (settings_.GetLogDir().IsEmpty()) settings_.SetLogDir(folder);
    if (settings_.GetLogFile().IsEmpty()) settings_.SetLogFile(folder + kLogName);
}

void ppLogging::Refresh(bool all) {
    if (all) {
        EM_SetText(LOG_FILE, settings_.GetLogFile());
        EM_SetText(FOLDER, settings_.GetLogDir());
    }
    const bool may_change = !IsRestricted();
    const bool logs = may_change && settings_.GetLogging();
    const bool records = may_change && settings_.GetGenerateFile();
    for (const int id : {KEEP_LOG, RECORD_JOBS}) WM_Enable(id, may_change);
    for (const int id : {LOG_FILE_LABEL, LOG_FILE, BROWSE_LOG_FILE}) WM_Enable(id, logs);
    for (const int id : {FOLDER_LABEL, FOLDER, BROWSE_FOLDER, OVERWRITE}) WM_Enable(id, records);
}

bool ppLogging::Command(uint16_t id, uint16_t code, LPARAM value) {
    if (code == BN_CLICKED && id == KEEP_LOG) {
        settings_.SetLogging(log_box_.IsChecked());
        return false;
    }
    if (code == BN_CLICKED && id == RECORD_JOBS) {
        settings_.SetGenerateFile(record_box_.IsChecked());
        return false;
    }
    if (code == BN_CLICKED && id == OVERWRITE) {
        settings_.SetOverwriteFile(overwrite_box_.IsChecked());
        return false;
    }
    if (code == EN_KILLFOCUS && id == LOG_FILE) {
        TakeLogFile();
        return false;
    }
    if (code == EN_KILLFOCUS && id == FOLDER) {
        TakeFolder();
        return false;
    }
    return prtpage::Command(id, code, value);
}

void ppLogging::TakeLogFile() {
    OString text;
    WM_GetText(LOG_FILE, text);
    if (text != settings_.GetLogFile()) settings_.SetLogFile(text);
}

void ppLogging::TakeFolder() {
    OString text;
    WM_GetText(FOLDER, text);
    if (text != settings_.GetLogDir()) settings_.SetLogDir(text);
}

bool ppLogging::Apply() {
    if (IsRestricted()) return true;
    // The ENTER key presses OK while a field still has the focus.
    TakeLogFile();
    TakeFolder();
    settings_.Save(registry_);
    // Users who may not change the printer only looked.
    const bool is_new = settings_.GetCRC32(0) != proposed_;
    if (is_new && settings_.HasFailed()) {
        ReportNotStored(GetString(TEXT_DRIVER_SETTINGS));
        return false;
    }
    return prtpage::Apply();
}
