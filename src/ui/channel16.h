// The way to the 16-bit driver, on systems where the module's pages belong to that driver's sheets.
#pragma once

#include <windows.h>

#include "core/ostring.h"

// The 16-bit driver makes a hidden window of the class "X16_Channel" and puts what it wants into
// the registry, below a key with the window's title. The module answers with values there and with
// messages to the window. A channel that was not opened has no window, and nobody hears of
// anything.
class Channel16 {
public:
    enum Message : UINT {
        STARTED = WM_USER + 1,          // sent: the module is there
        SETTINGS_CHANGED = WM_USER + 2, // posted: "DevMode 32" is new; 1 for defaults, else 0
        ENDED = WM_USER + 3             // posted: the module is done; with 2
    };

    // Finds the window with this title. False if there is none.
    bool Open(const OString& name);
    // Null if the channel is not open.
    HWND GetWindow() const { return window_; }
    // Whether the 16-bit driver still has the window.
    bool IsAlive() const { return window_ && IsWindow(window_); }

    // The path of one of the channel's values in the registry.
    OString ValuePath(const char* value) const;
    // One of the driver's wishes, a byte. False if it is not there.
    bool Wants(const char* value) const;

    // Whether the sheet edits the printer's default settings. False before SetEditsDefaults.
    bool EditsDefaults() const { return edits_defaults_; }
    void SetEditsDefaults(bool defaults) { edits_defaults_ = defaults; }

    // Hands edited settings to the driver. False if they could not be stored; the driver does not
    // hear of it then. True if the channel is not open.
    [[nodiscard]] bool Publish(const DEVMODEW& settings) const;

private:
    OString name_;
    HWND window_ = nullptr;
    bool edits_defaults_ = false;
};
