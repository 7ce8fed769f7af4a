// The UI object: one printer with everything that property sheets and the settings interface edit.
#pragma once

#include <windows.h>

#include <winddiui.h>

#include <cstdint>
#include <memory>

#include "fonts/data_font_manager.h"
#include "fonts/prtdttf_list.h"
#include "locale/prtlocale.h"
#include "printer/cache_parameters.h"
#include "printer/printer_action.h"
#include "printer/ui_printer.h"
#include "settings/dev_mode.h"
#include "settings/preset_list.h"
#include "settings/stock_list.h"
#include "ui/common_sheet.h"
#include "ui/settings_file.h"
#include "ui/version_info.h"

class prtpage;
class prtstream;
struct ActionRow;
struct CFontSettings;

// Made by new_ext for one property sheet or one user of the settings interface, filled by init,
// edited in place. Used on the thread that made it.
//
// Without a model for the printer, init leaves the names alone filled in: `model` is null, the
// DEVMODEs have no buffer, the lists are empty.
class prtui : public UIPrinter {
public:
    // The UI object of the printer language that the driver speaks; null without memory.
    static prtui* new_ext();

    prtui() = default;
    virtual ~prtui();

    // Loads everything that is edited, for a model and a DEVMODE that exist. Called by init.
    virtual void InitEx();

    // ---- The module's version resource, for the pages that show it. Empty texts where it lacks
    // something.

    virtual void GetVersionInfo(OString& version); // "1.2.3"
    virtual void GetVersionTag(OString& tag);      // the name of the release in the source history
    OString GetBuildDate() { return version_.GetText("Build Date"); }
    OString GetSCMBranch() { return version_.GetText("SCM Branch"); }
    OString GetSCMRevision() { return version_.GetText("SCM Revision"); }
    // In the code page of the language.
    OString GetCopyright() { return version_.GetCopyright(locale.GetCurrentCP()); }
    // The years of the copyright; 0 where it has none.
    int32_t GetCopyrightStart() { return ReadCopyrightYears(GetCopyright()).start; }
    int32_t GetCopyrightEnd() { return ReadCopyrightYears(GetCopyright()).end; }
    // Reads the resource unless it is there. False when it cannot be had.
    bool LoadFileVersionInfo() { return version_.Load(); }

    // What the page of the object cache can set: here nothing, for a language that keeps none.
    virtual void GetCacheParameters(CacheParameters& parameters) const;

    // What the dialog for the download of a font asks the user. Nothing is changed here: no printer
    // language, no questions of its own.
    virtual void ChooseFontSettings(CFontSettings* settings);
    // Asks the printer which fonts it has and marks the list by that. `page` is the page that asks,
    // null outside of a sheet. False, and all are marked as missing, when the printer cannot be
    // asked: the caller then takes back a copy of the list, so that this is not stored. Here always
    // false, with the list as it was.
    virtual bool VerifyFonts(prtpage* page);
    // Whether what was downloaded to the printer can be compared with what it reports; here never.
    virtual bool EnableVerifyFonts(prtstream& stream);
    // Completes what the user chose for a download.
    virtual void AdjustFontInfo(DownloadedFontInfo* font);

    // ---- Actions: what the printer can be told to do. None without a model. `page` is the page
    // that asks, null outside of a sheet.

    // Does an action, offered or not, in a job of the action's name ("Printer Test" for pages that
    // are printed through the driver). Failures to reach the printer are not reported; an action
    // that is not known, or opens a dialog, does nothing.
    virtual void PrinterAction(prtpage* page, printer_action action);
    // How an action is offered for the printer as it is set up: ACTION_OFFERED and the others.
    virtual uint32_t PrinterActionSupported(prtpage* page, printer_action action);
    // What the user knows an action by; empty for one that has no name.
    virtual OString PrinterActionName(printer_action action);

    // For the page of the status monitor: starts its program, which opens or closes its window for
    // a printer (`verb` "open" or "close"); `server` is the name of the machine that the printer
    // belongs to, empty for this one. Not waited for; that it cannot be started is not reported.
    static void rundll_statusmonitor(const OString& printer, const OString& server,
                                     const OString& verb, int show);

    // Sends a file (Windows path) as it is, in a job of its name; an empty job when it cannot be
    // read.
    void SendFile(const OString& path);

    // Takes a printer: its names, its model, and its document settings, which are the model's
    // defaults with the printer's default DEVMODE merged into them and, when `mode` has
    // DM_IN_BUFFER, `in` (which may be null). The handle is borrowed for the object's life. Once
    // per object.
    void init(HANDLE printer, const DEVMODEW* in, uint32_t mode);

    // ---- Property sheets. The driver has no pages of its own yet: a sheet has those of the
    // system.

    // Take the sheet that the common property sheets make: what they are called with, and the pages
    // that there are. `info` keeps this object from then on. Always 1.
    LONG InitDevSheets(PROPSHEETUI_INFO* info, const DEVICEPROPERTYHEADER* header);
    LONG InitDocSheets(PROPSHEETUI_INFO* info, const DOCUMENTPROPERTYHEADER* header);

    // The sheet's title, the printer's name, and its icon. Always 1.
    LONG ReasonGetInfoHeader(PROPSHEETUI_INFO* info, PROPSHEETUI_INFO_HEADER* header,
                             const WCHAR* printer);

    // Ends a sheet as the user did. With `header` (of document settings) the settings go to whom
    // the sheet was opened for: after OK the edited ones to pdmOut, merged into it where that is
    // pdmIn, and with DM_UPDATE to the printer as its defaults; after Cancel, with DM_COPY, those
    // that were last applied. Where pdmOut has no room for them nothing is stored. Always 1.
    LONG ReasonSetResult(PROPSHEETUI_INFO* info, const SETRESULT_INFO* result,
                         const DOCUMENTPROPERTYHEADER* header);

    // For the pages: take the edited settings as the ones to go back to, and tell the sheet that
    // the user is done; tell it that the user gave up. False when the sheet refuses; true outside
    // of a sheet.
    bool Apply();
    bool Cancel();

    // Whether the sheet edits the defaults of the printer or of the user, not a document's
    // settings.
    bool is_default_dm() const;

    // For the pages: what the driver answers for this printer and the edited settings, through the
    // system.
    uint32_t DeviceCapabilitiesW(WORD capability, unsigned char* output) const;

    // Reads the lists anew, after the printer's server was asked for news (CreateShadow). The
    // presets are the stored ones then, without the built-in ones. Nothing without a model.
    void Settings_Load();
    // Stores the lists that changed, each of them whole, and sends a connection's settings to its
    // server unless `commit_shadow` is off. False when something could not be stored. Of a printer
    // that is not `is_whole`, nothing is.
    bool Settings_Save();

    // Writes a settings file, or adds what is in one to the lists, which Settings_Save then stores
    // (see ui/settings_file.h; `contents` is its SettingsFileContent). `result` may be null.
    // Nothing, and zeros, without a model.
    void Settings_Export(const WCHAR* file, int contents, KDSettingsResult* result);
    void Settings_Import(const WCHAR* file, int contents, KDSettingsResult* result);

    prtlocale locale;

    // `devmode` as it was when it was last taken over, given back on cancel.
    DevMode devmode_saved;
    // The checksum of `devmode` at that time.
    uint32_t devmode_crc = 0;

    prtdttf_list fonts;
    // With the two built-in presets, which have the current and the default settings.
    PresetList presets;
    StockList stocks;
    DataFontManager data_fonts;

    uint32_t fmode = 0;
    // The user may look at the settings, but not change them.
    bool no_permission = false;

    CommonSheet sheet;

    // Whether saved settings are sent to the printer's server.
    bool commit_shadow = true;
    // The user's access level is below the one that the printer requires: pages refuse changes, and
    // nothing else does.
    bool restricted = false;
    // init could read all of the printer, its model and its settings: what was read in part only
    // must not be stored in place of the whole.
    bool is_whole = false;
    // A sheet opens on its last page, that of the information about the driver.
    bool start_on_last = false;

    // The way to the printer; null until the language's InitEx.
    prtstream* stream = nullptr;

protected:
    // All that there is to know about an action; null for a number that is none.
    virtual const ActionRow* FindAction(printer_action action) const;

private:
    void AddBuiltInPresets();
    LONG TakeSheet(PROPSHEETUI_INFO* info);

    VersionInfo version_;
};
