// The dialog that asks which font to download, and how.
#pragma once

#include <windows.h>

#include <commdlg.h>

#include "fonts/font_settings.h"

class prtpage;

// The system's dialog for fonts with controls of its own: the kind of download, the characters of a
// bitmap font, the place in the printer and the name of the file. For one question.
class cf_FDown {
public:
    // Over a page, which outlives this object.
    explicit cf_FDown(prtpage& page);
    cf_FDown(const cf_FDown&) = delete;
    cf_FDown& operator=(const cf_FDown&) = delete;

    // Asks the user. False if he gave up, or if the dialog cannot be shown. `font` is then
    // cleared, otherwise complete and ready to be sent. The printer's language may load the UI
    // object's list of downloaded fonts again, so that all its fonts are others afterwards.
    bool GetFontInfo(HWND parent, DownloadedFontInfo* font);

private:
    static UINT_PTR CALLBACK Hook(HWND dialog, UINT message, WPARAM first, LPARAM second);
    bool Handle(UINT message, WPARAM first, LPARAM second);
    bool OnCommand(int id, int code);

    void FillKinds();
    // Brings all controls in line with the kind of download, as if the dialog had just opened.
    void ShowKind();
    void ShowIdentifier();
    void SetSuggestedFileName();
    // Takes the choices from the controls. False if the dialog stays open.
    bool TakeChoices();

    void Show(int id, bool show) const;
    void AddItem(int list, const OString& text, LPARAM data) const;
    LPARAM SelectedData(int list) const; // 0 without a selection
    OString TextOf(int id) const;

    prtpage& page_;
    CFontSettings settings_;
    FontChoices choices_;
    HWND dialog_ = nullptr;
};
