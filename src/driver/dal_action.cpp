// Printer actions, for programs without a user interface.
#include <algorithm>
#include <cstring>

#include "driver/action_choice.h"
#include "driver/settings_handle.h"
#include "ui/prtui.h"
#include "zplui.h"

static_assert(DAL_ACTION_OFFERED == ACTION_OFFERED);
static_assert(DAL_ACTION_OPENS_DIALOG == ACTION_OPENS_DIALOG);
static_assert(DAL_ACTION_ADMINISTRATIVE == ACTION_ADMINISTRATIVE);
static_assert(DAL_ACTION_SEND_FILE == ACTION_SEND_FILE);
static_assert(DAL_ACTION_MEMORY == ACTION_MEMORY);
static_assert(DAL_ACTION_POWER_MANAGEMENT == ACTION_POWER_MANAGEMENT);

DWORD WINAPI DAL_Action_Supported(HANDLE settings, int action) {
    if (!settings) return 0;
    return static_cast<prtui*>(settings)->PrinterActionSupported(
        nullptr, static_cast<printer_action>(action));
}

int WINAPI DAL_Action_Name(HANDLE settings, int action, LPWSTR name, int size) {
    if (!settings) return 0;
    const OString text =
        static_cast<prtui*>(settings)->PrinterActionName(static_cast<printer_action>(action));
    const WCHAR* characters = text.wstring();
    const int length = text.wlen();
    if (name && size > 0) {
        const int stored = std::min(length, size - 1);
        if (stored > 0) std::memcpy(name, characters, static_cast<size_t>(stored) * sizeof(WCHAR));
        name[stored] = 0;
    }
    return length;
}

BOOL WINAPI DAL_Action_Run(HANDLE settings, int action, LPCWSTR choice) {
    const DWORD offer = DAL_Action_Supported(settings, action);
    prtui* ui = offer & ACTION_ADMINISTRATIVE ? ChangeablePrinterOf(settings) : PrinterOf(settings);
    if (!ui || !offer) return FALSE;
    if (offer & ACTION_OPENS_DIALOG)
        return choice && RunChoice(*ui, static_cast<printer_action>(action), choice);
    ui->PrinterAction(nullptr, static_cast<printer_action>(action));
    return TRUE;
}
