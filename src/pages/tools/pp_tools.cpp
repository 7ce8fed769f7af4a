#include "pages/tools/pp_tools.h"

#include "ui/prtui.h"

namespace {

enum : uint16_t {
    kPrintMenu = 611,
    kActionMenu = 612,
    kConfigureMenu = 613,
    kAdministration = 614,
    kStatusMonitor = 615,
    kObjectCache = 616,
    kLogging = 617
};

// The identifier of a menu item is its action with these bits.
constexpr uint16_t kActionBits = 0x7000;
constexpr uint16_t kActionMask = 0x0FFF;

constexpr int16_t kPrintActions[] = {1,
                                     3,
                                     4,
                                     2,
                                     ppTools::kSeparator,
                                     12,
                                     19,
                                     13,
                                     15,
                                     16,
                                     14,
                                     ppTools::kSeparator,
                                     17,
                                     18,
                                     ppTools::kEnd};
constexpr int16_t kActionActions[] = {6,
                                      7,
                                      8,
                                      9,
                                      ppTools::kSeparator,
                                      37,
                                      48,
                                      ppTools::kSeparator,
                                      11,
                                      23,
                                      35,
                                      20,
                                      ppTools::kSeparator,
                                      21,
                                      10,
                                      28,
                                      31,
                                      5,
                                      29,
                                      ppTools::kSeparator,
                                      22,
                                      ppTools::kEnd};
constexpr int16_t kConfigureActions[] = {
    39, 40, 45, ppTools::kSeparator, 24, 32, 47, ppTools::kSeparator, 27, 33, 30,
    34, 44, 46, ppTools::kEnd};

const struct {
    uint16_t button;
    printer_action action;
} kActionButtons[] = {{kAdministration, ACTION_ADMINISTRATION},
                      {kStatusMonitor, ACTION_STATUS},
                      {kObjectCache, ACTION_CACHE}};

} // namespace

void ppTools::Init() {
    prtpage::Init();
    print_.Bind(this, kPrintMenu);
    action_.Bind(this, kActionMenu);
    configure_.Bind(this, kConfigureMenu);
}

void ppTools::Refresh(bool all) {
    if (!config_) return;
    // What is offered depends on settings that other pages change.
    if (!all && !print_.IsInvalid()) return;
    FillActionMenu(print_, kPrintActions);
    FillActionMenu(action_, kActionActions);
    FillActionMenu(configure_, kConfigureActions);
    for (const auto& button : kActionButtons)
        WM_Enable(button.button, PrinterActionAllowed(button.action));
}

void ppTools::FillActionMenu(UPopButton& button, const int16_t* actions) {
    UMenu& menu = button.GetMenu();
    bool separator = false;
    bool filled = false;
    if (!menu.CreatePopup()) {
        button.Enable(false);
        return;
    }
    for (; *actions != kEnd; ++actions) {
        if (*actions == kSeparator) {
            separator = true;
            continue;
        }
        const auto action = static_cast<printer_action>(*actions);
        const uint32_t offer = PrinterActionSupported(action);
        if (!(offer & ACTION_OFFERED)) continue;
        if (separator && filled) menu.AppendSeparator();
        separator = false;
        filled = true;
        OString text = GetUI()->PrinterActionName(action);
        if (offer & ACTION_OPENS_DIALOG) text << "...";
        const int id = *actions | kActionBits;
        menu.Append(id, text);
        if (IsRestricted() && (offer & ACTION_ADMINISTRATIVE)) menu.Enable(id, false);
    }
    button.Enable(filled);
}

bool ppTools::PrinterActionAllowed(printer_action action) {
    const uint32_t offer = PrinterActionSupported(action);
    if (!(offer & ACTION_OFFERED)) return false;
    return !IsRestricted() || !(offer & ACTION_ADMINISTRATIVE);
}

bool ppTools::Command(uint16_t id, uint16_t code, LPARAM value) {
    if ((id & ~kActionMask) == kActionBits) {
        PrinterAction(static_cast<printer_action>(id & kActionMask));
        return false;
    }
    if (code != BN_CLICKED) return prtpage::Command(id, code, value);
    if (id == kLogging) {
        ShowLogOptions();
        return false;
    }
    for (const auto& button : kActionButtons) {
        if (button.button != id) continue;
        PrinterAction(button.action);
        return false;
    }
    return prtpage::Command(id, code, value);
}
