// A printer's stored settings, for programs without a user interface.
#include "ui/prtui.h"
#include "zplui.h"

static_assert(DAL_SETTINGS_STOCKS == SETTINGS_STOCKS);
static_assert(DAL_SETTINGS_PRESETS == SETTINGS_PRESETS);
static_assert(DAL_SETTINGS_BAR_FONTS == SETTINGS_BAR_FONTS);
static_assert(DAL_SETTINGS_RFID_FONTS == SETTINGS_RFID_FONTS);
static_assert(DAL_SETTINGS_OPTIONS == SETTINGS_OPTIONS);

void WINAPI DAL_Settings_Load(HANDLE settings) {
    if (settings) static_cast<prtui*>(settings)->Settings_Load();
}

void WINAPI DAL_Settings_Save(HANDLE settings) {
    auto* ui = static_cast<prtui*>(settings);
    if (!ui || !ui->model) return;
    const bool stored = ui->Settings_Save();
    SetLastError(stored ? NO_ERROR : ERROR_WRITE_FAULT);
}

void WINAPI DAL_Settings_Export(HANDLE settings, LPCWSTR file, int contents) {
    if (settings) static_cast<prtui*>(settings)->Settings_Export(file, contents, nullptr);
}

void WINAPI DAL_Settings_Import(HANDLE settings, LPCWSTR file, int contents) {
    if (settings) static_cast<prtui*>(settings)->Settings_Import(file, contents, nullptr);
}
