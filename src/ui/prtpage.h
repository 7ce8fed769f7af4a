// The base of every property page and dialog of the driver.
#pragma once

#include <windows.h>

#include <prsht.h>

#include <cstdint>

#include "core/memory.h"
#include "core/ostring.h"
#include "keys/prtreg.h"
#include "printer/printer_action.h"
#include "settings/dev_mode.h"
#include "ui/udialog.h"

class prtmodel;
class prtui;

// A page edits the settings of a UI object in place. It says what it does by overriding the virtual
// operations; the base follows the protocol:
//
// - A page is made when its tab is first shown. Its object is made by its dialog procedure when the
//   window is initialised, which is the first message that carries the UI object, and deleted at
//   the window's last message, WM_NCDESTROY. Messages before and after that are answered 0.
// - Init, then the first refresh, then the checksum of what the page edits is taken. Showing a page
//   so changes nothing, even if the first refresh brings settings into their limits.
// - A page has changed if its checksum differs from the one taken then or at the last Apply. What
//   is edited and edited back is no change.
// - After everything that Command or Notify handled the page is refreshed, and the sheet is told
//   whether it has changed.
// - What happens to controls while the page initialises or refreshes itself is no act of the user:
//   their commands and notifications are dropped. A field in which the user types is refreshed only
//   if the page says so (Command answers false); pages do that when the field is left.
// - Apply can fail. The page then tells the user what could not be stored, stays changed, and the
//   sheet stays open. Pages before it in the sheet have been applied; pages after it are not asked.
//
// A plain dialog is a page outside of a sheet, with buttons for OK, Cancel and Help. It has no
// checksum and no changes.
class prtpage : public UDialog {
public:
    // Pages and the common code that works on them find the controls by their identifier. An
    // operation on a control that the dialog lacks does nothing and answers false, 0 or an empty
    // text.
    enum Button : int { OK_BUTTON = 1, CANCEL_BUTTON = 2, HELP_BUTTON = 9 };

    // The third parameter of sibling queries says with REFRESH whether all is refreshed.
    enum SiblingQuery : uint32_t { REFRESH = 7000, REFRESH_ALL = 7001 };

    prtpage() = default;

    // ---- What a page does -----------------------------------------------------------------------

    OString GetString(int id) override;
    bool OnDrawItem(const DRAWITEMSTRUCT& item) override;

    // Brings the controls up to date: all of them, or those that the page has marks for. Only
    // called while `config_` exists.
    virtual void Refresh(bool all);
    // A command or a notification of a control. True if nothing was done with it, false if the page
    // acted. `value` is the control's window, or what the control sent in place of it.
    virtual bool Command(uint16_t id, uint16_t code, LPARAM value);
    virtual bool Notify(uint16_t id, uint32_t code, NMHDR* header);
    // Called once, with window and UI object in place. Overrides call the base first. Without
    // settings of this driver in the UI object's DEVMODE all controls are disabled.
    virtual void Init();
    // Shows HelpTopic.
    virtual void Help();
    // Publishes the settings and takes the new checksum. False if something could not be stored;
    // the user has been told. Overrides store what they keep elsewhere and then call the base.
    virtual bool Apply();
    virtual void Cancel();
    // The window is about to go; its controls still exist.
    virtual void Destroy();
    virtual bool CheckChanged();
    // The checksum of what the page edits: here of the complete DEVMODE, 0 for a plain dialog.
    virtual uint32_t GetCurrentCRC32() const;
    virtual void Timer(uint16_t id);
    // False keeps the dialog open, or the page shown, after OK, and after Cancel.
    virtual bool VerifyOkay();
    virtual bool VerifyCancel();
    // The page is shown, or is about to be left; false keeps it.
    virtual bool SetActive();
    virtual bool KillActive();
    // WM_PALETTECHANGED and the two others. True if the page needs nothing else done.
    virtual bool PaletteChange(UINT message, WPARAM first, LPARAM second);
    // "/base/PageSetup.html", or null for a page without help.
    virtual const char* HelpTopic();

    // ---- Making pages ---------------------------------------------------------------------------

    // Makes a page of the template with this name and inserts it into the sheet of a UI object:
    // after another page, or, for INSPSUIPAGE_MODE_LAST_CHILD and no page, at the end. False
    // without such a template, outside of a sheet, or if the sheet refuses.
    static bool InsertPage(prtui* ui, void* after, unsigned char mode, const OString& name,
                           DLGPROC procedure);

    // The dialog procedure of pages of a class, which declares
    //     static constexpr DLGPROC WinProc = prtpage::WinProcOf<ppAbout>;
    template <class Page>
    static INT_PTR CALLBACK WinProcOf(HWND window, UINT message, WPARAM first, LPARAM second) {
        if (message != WM_INITDIALOG) return FALSE;
        return Begin(window, new (kCounted) Page, first, second);
    }
    // The dialog procedure of a window that has its object.
    static INT_PTR CALLBACK WinProc(HWND window, UINT message, WPARAM first, LPARAM second);
    // Gives a window its object, which then lives as long as the window.
    static void Create(HWND window, prtpage* page);

    // Runs a dialog over this page. If it ends with Cancel, or cannot be shown, the DEVMODE is as
    // before and the answer is CANCEL_BUTTON. Otherwise the answer is what CloseDialog was given.
    int DialogModal(const OString& name, DLGPROC procedure);
    // Makes a dialog over this page and does not wait. Null without a template or procedure.
    HWND DialogModeless(const OString& name, DLGPROC procedure);
    // Ends a plain dialog. On a page of a sheet, OK and Cancel press the buttons of the sheet.
    void CloseDialog(int result);

    // ---- The printer ----------------------------------------------------------------------------

    prtui* GetUI() const { return ui_; }
    prtmodel* GetModel() const;
    // The user may not change the printer's settings.
    bool IsRestricted() const;
    // The sheet edits defaults, not one document's settings.
    bool is_default_dm() const;
    void PrinterAction(printer_action action);
    uint32_t PrinterActionSupported(printer_action action);

    // ---- Talking to the user --------------------------------------------------------------------

    // A message box; MB_ flags. Its answer.
    int Message(const OString& text, const OString& title, uint32_t flags);
    // Tells the user that something could not be stored; `what` names it.
    void ReportNotStored(const OString& what);
    // Shows a topic of the help file. Nothing without a topic; without the help viewer the user is
    // told.
    void ShowHelp(const OString& topic);
    // Shows a text file in the program that the user has for it, or in the system's editor.
    void ShowTextFile(const OString& path);
    // Asks for a file and sends it to the printer unchanged.
    void SendFile();
    // Opens the dialog for the printer's log and the recordings of its jobs. Without the status
    // monitor, which has to serve the printer's port, the user is told that instead. Defined with
    // the dialogs (pages/logging/log_options.cpp).
    void ShowLogOptions();
    // Replaces the tokens in a control's text: {R} and {T} are the registered and trademark signs,
    // {C} the copyright sign with its years, which {C=2002} and {C=2002-2004} replace. Any other
    // letter with what follows it in braces vanishes.
    void ReplaceSpecialStrings(HWND control);
    // The name of a character set (ANSI_CHARSET and so on), or empty if it has none.
    OString GetString_CharSet(unsigned char charset);

    // ---- Controls -------------------------------------------------------------------------------

    // A field's up-down control is shown and enabled with it.
    bool WM_Show(int id, bool show);
    bool WM_Enable(int id, bool enable);
    bool WM_SetFocus(int id);
    // All controls from one to another, both included, in the order of the dialog; 0 stands for the
    // first and the last. Not OK, Cancel and Help.
    void WM_EnableAll(bool enable, int first, int last);

    bool EM_SetText(int id, const OString& text);
    bool WM_GetText(int id, OString& text) const;
    // Into a buffer of `size` units; the text is cut off to fit.
    bool WM_GetText(int id, WCHAR* text, int size) const;
    bool EM_LimitText(int id, int32_t characters);
    bool EM_SetReadOnly(int id, bool read_only);
    bool EM_SetSel(int id, int start, int end);

    // The whole number at the start of a field (see xtol); only 15 characters count.
    int32_t EM_GetInt(int id) const;
    // Shows a number in a field, which then takes 14 characters, and moves its up-down control.
    bool EM_SetInt(int id, int32_t number);
    // Gives a field an up-down control with this range, or the one that it has the range.
    bool EM_AddUpDownInt(int id, int least, int most);
    // Lengths in micrometres, in the user's unit; and in dots of the printer.
    int32_t EM_GetMicrons(int id) const;
    bool EM_SetMicrons(int id, int32_t microns);
    int32_t EM_GetDots(int id) const;
    bool EM_SetDots(int id, int32_t dots);

    int CB_GetCount(int id) const;
    bool CB_ResetContent(int id);
    int CB_AddString(int id, const OString& text, LPARAM data); // the index, or -1
    // Adds a speed, in micrometres per second. Its data is `data`, or for -1 the speed.
    int CB_AddSpeed(int id, int32_t speed, LPARAM data);
    bool CB_SetCurSel(int id, int index);
    int CB_GetCurSel(int id) const;                // -1 for none
    LPARAM CB_GetSelData(int id, int index) const; // 0 without such an item
    LPARAM CB_GetCurSelData(int id) const;         // 0 without a selection
    bool CB_SetCurSelData(int id, LPARAM data);    // false, and nothing changed, without such data

    // Shows a bitmap in a picture control (prtbitmap).
    bool BMM_SetBitmap(int id, int bitmap, bool stretch);
    bool BMM_SetBitmapHandle(int id, HBITMAP bitmap);

    // The page's timers arrive at Timer.
    bool SetTimer(int id, uint32_t milliseconds);
    bool KillTimer(int id);
    // Sends a message to a control.
    LRESULT Forward(int id, UINT message, WPARAM first, LPARAM second);

    // ---- Units ----------------------------------------------------------------------------------

    // At the printer's horizontal resolution; halves are rounded away from zero. 0 without a model.
    int32_t microns_to_dots(int32_t microns) const;
    int32_t dots_to_microns(int32_t dots) const;
    // As prtlocale has them.
    OString microns_to_string(int32_t microns) const;
    int32_t string_to_microns(const OString& text) const;
    OString xdimension_to_string(int dots, int dpi) const;
    OString dpi_to_string(int dpi) const;

    // ---- The sheet ------------------------------------------------------------------------------

    void WM_SetChanged(bool changed);
    // Refreshes the page, unless that is going on already.
    void WM_Refresh(bool all);
    // Sends a query to all pages of the sheet that exist; a plain dialog asks only itself. Every
    // page answers 0, so that the next one is asked.
    void WM_QuerySiblings(UINT code, LPARAM value);

protected:
    // Whether the page is in a sheet.
    bool IsPropertyPage() const { return page_data_ != nullptr; }
    HWND GetSheet() const { return sheet_; }

    prtui* ui_ = nullptr;
    // The driver's part of the DEVMODE, or null if that is not of this driver.
    prtconfig* config_ = nullptr;
    // The UI object's DEVMODE.
    DevMode devmode_;
    // The printer's keys.
    prtreg registry_;

private:
    static INT_PTR Begin(HWND window, prtpage* page, WPARAM first, LPARAM second);
    INT_PTR DlgProc(UINT message, WPARAM first, LPARAM second);
    void InitDialog(const PROPSHEETPAGEW* record);
    bool WM_Command(uint16_t id, uint16_t code, LPARAM value);
    bool WM_Notify(uint16_t id, NMHDR* header);
    void Answer(LONG_PTR result);
    void EndAct();
    HWND UpDownOf(int id) const;

    const PROPSHEETPAGEW* page_data_ = nullptr; // null for a plain dialog
    HWND sheet_ = nullptr;                      // once the page was shown
    uint32_t applied_crc_ = 0;
    bool initializing_ = false;
    bool refreshing_ = false;
    int depth_ = 0;          // messages being handled
    bool destroyed_ = false; // the window is gone
};
