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
#include "ui/activation_context.h"
#include "ui/channel16.h"
#include "ui/common_sheet.h"
#include "ui/page_list.h"
#include "ui/settings_file.h"
#include "ui/version_info.h"

class prtpage;
class prtstream;
struct ActionRow;
struct dithercfg;
struct CFontSettings;

// Made by new_ext for one property sheet or one user of the settings interface, filled by init and
// edited in place. Used on the thread that made it.
//
// Without a model for the printer, init fills in only the names: `model` is null, the DEVMODEs have
// no buffer, and the lists are empty.
class prtui : public UIPrinter {
public:
    // The UI object of the printer language that the driver speaks, or null without memory.
    static prtui* new_ext();

    prtui() = default;
    virtual ~prtui();

    // Loads everything that is edited, for an existing model and DEVMODE. Called by init.
    virtual void InitEx();

    // ---- The module's version resource, for the pages that show it. Texts that it lacks are
    // empty.

    virtual void GetVersionInfo(OString& version); // "1.2.3"
    virtual void GetVersionTag(OString& tag);      // the name of the release in the source history
    OString GetBuildDate() { return version_.GetText("Build Date"); }
    OString GetSCMBranch() { return version_.GetText("SCM Branch"); }
    OString GetSCMRevision() { return version_.GetText("SCM Revision"); }
    // In the code page of the language.
    OString GetCopyright() { return version_.GetCopyright(locale.GetCurrentCP()); }
    // The years of the copyright, or 0 if it has none.
    int32_t GetCopyrightStart() { return ReadCopyrightYears(GetCopyright()).start; }
    int32_t GetCopyrightEnd() { return ReadCopyrightYears(GetCopyright()).end; }
    // Reads the resource unless that was done. False if it cannot be read.
    bool LoadFileVersionInfo() { return version_.Load(); }

    // The settings on the page of the object cache. Here none, for a language without such objects.
    virtual void GetCacheParameters(CacheParameters& parameters) const;

    // The setup of a printer's own dithering. IDCANCEL where there is none, as here.
    virtual int DeviceDitherSetup(prtpage* page, dithercfg& settings);

    // The questions of the dialog for a font's download. Without a printer language there are none,
    // and nothing is changed here.
    virtual void ChooseFontSettings(CFontSettings* settings);
    // Asks the printer which fonts it has and marks the list accordingly. `page` is the page that
    // asks, null outside of a sheet. False, with all fonts marked as missing, if the printer cannot
    // be asked: the caller then restores a copy of the list, so that the marks are not stored. Here
    // always false, with the list unchanged.
    virtual bool VerifyFonts(prtpage* page);
    // Whether downloaded fonts can be compared with those that the printer reports; here never.
    virtual bool EnableVerifyFonts(prtstream& stream);
    // Completes the user's choices for a download.
    virtual void AdjustFontInfo(DownloadedFontInfo* font);

    // ---- Printer actions. There are none without a model. `page` is the page that asks, null
    // outside of a sheet.

    // Runs an action, offered or not, in a job named after the action ("Printer Test" for pages
    // that are printed through the driver). Failures to reach the printer are not reported. An
    // action that opens a dialog does so over the page, and nothing without one. An unknown action
    // does nothing.
    virtual void PrinterAction(prtpage* page, printer_action action);
    // How an action is offered for the printer as set up: ACTION_OFFERED and the others.
    virtual uint32_t PrinterActionSupported(prtpage* page, printer_action action);
    // The name of an action for the user, or empty if it has none.
    virtual OString PrinterActionName(printer_action action);

    // For the page of the status monitor: starts its program, which opens or closes its window for
    // a printer (`verb` "open" or "close"). `server` is the name of the printer's machine, empty
    // for this one. Does not wait for it; a failure to start it is not reported.
    static void rundll_statusmonitor(const OString& printer, const OString& server,
                                     const OString& verb, int show);

    // Sends a file (Windows path) unchanged, in a job of its name. The job is empty if the file
    // cannot be read.
    void SendFile(const OString& path);

    // Takes a printer: its names, its model, and its document settings. These are the model's
    // defaults, overlaid with the printer's default DEVMODE and, if `mode` has DM_IN_BUFFER, with
    // `in` (which may be null). The handle is borrowed for the object's life. To be called once per
    // object.
    void init(HANDLE printer, const DEVMODEW* in, uint32_t mode);

    // ---- Property sheets ------------------------------------------------------------------------

    // The groups of pages of AddPages.
    enum PageGroup : uint32_t {
        PRINTER_PAGES = 1,  // fonts and tools
        DOCUMENT_PAGES = 2, // graphics
        PAGE_SETUP = 4,
        CACHE_PAGES = 8 // only for printers with an object cache
    };
    // Adds the pages of some groups to the sheet. Returns their number. Defined, like AddAboutPage,
    // with the pages (pages/page_groups.cpp).
    virtual int32_t AddPages(uint32_t groups);
    // Adds the page that every sheet ends with.
    bool AddAboutPage();
    // Adds one page at the end, by the name of its template. False if there is none. Without winNT
    // there is no sheet yet: the page is kept in `pages16`.
    bool AddPropertyPage(const OString& name, DLGPROC procedure);
    bool AddPage(const OString& name, DLGPROC procedure) {
        return AddPropertyPage(name, procedure);
    }

    // Brings the settings into the form in which pages show them, which is no edit of the user's.
    // To be called before a document's pages are added; InitDocSheets does it. The printer's own
    // pages show none of these settings, and what they send must be what the settings say.
    void BeginEditing();

    // Take over the sheet that the common property sheets make: the arguments of their call, and
    // the pages that it then has. From then on `info` keeps this object. Always 1. The sheet of a
    // device has a General page of the system's, whose test page becomes the test label.
    LONG InitDevSheets(PROPSHEETUI_INFO* info, const DEVICEPROPERTYHEADER* header);
    LONG InitDocSheets(PROPSHEETUI_INFO* info, const DOCUMENTPROPERTYHEADER* header);

    // Sets the sheet's title, the printer's name, and its icon. Always 1.
    LONG ReasonGetInfoHeader(PROPSHEETUI_INFO* info, PROPSHEETUI_INFO_HEADER* header,
                             const WCHAR* printer);

    // Ends a sheet as the user did. With `header` (of document settings), the caller gets its
    // settings: after OK, pdmOut gets the edited ones, merged into it if it is also pdmIn, and with
    // DM_UPDATE the printer gets them as its defaults; after Cancel with DM_COPY, pdmOut gets those
    // last applied. pdmOut gets nothing if it has no room, and the printer nothing unless
    // `is_whole`. Always 1.
    LONG ReasonSetResult(PROPSHEETUI_INFO* info, const SETRESULT_INFO* result,
                         const DOCUMENTPROPERTYHEADER* header);

    // For the pages: Apply makes the edited settings those to return to and tells the sheet that
    // the user is done; Cancel tells it that the user gave up. Without winNT, Apply also hands
    // changed settings to the 16-bit driver. False if the sheet refuses, or if the settings could
    // not be handed over, which the next Apply then tries again. True outside of a sheet.
    bool Apply();
    bool Cancel();

    // Whether the sheet edits the defaults of the printer or of the user, not one document's
    // settings.
    bool is_default_dm() const;

    // For the pages: the driver's answer, through the system, for this printer and the edited
    // settings.
    uint32_t DeviceCapabilitiesW(WORD capability, unsigned char* output) const;

    // Reads the lists again, after asking the printer's server for news (CreateShadow). The presets
    // are then the stored ones, without the built-in ones. Does nothing without a model.
    void Settings_Load();
    // Stores all of each list that changed, and sends a connection's settings to its server unless
    // `commit_shadow` is off. False if something could not be stored. Stores nothing unless
    // `is_whole`.
    bool Settings_Save();

    // Writes a settings file, or adds what is in one to the lists, which Settings_Save then stores
    // (see ui/settings_file.h; `contents` is its SettingsFileContent). `result` may be null.
    // Nothing, and zeros, without a model.
    void Settings_Export(const WCHAR* file, int contents, KDSettingsResult* result);
    void Settings_Import(const WCHAR* file, int contents, KDSettingsResult* result);

    prtlocale locale;

    // `devmode` as last applied, restored on cancel.
    DevMode devmode_saved;
    // The checksum of `devmode` at that time.
    uint32_t devmode_crc = 0;

    prtdttf_list fonts;
    // Includes the two built-in presets, which have the current and the default settings.
    PresetList presets;
    StockList stocks;
    DataFontManager data_fonts;

    uint32_t fmode = 0;
    // What pages are made with.
    ActivationContext actctx;
    // For the dialog that edits a stock, while it is open: the copy that it edits, and the one of
    // the list that this is a copy of, or null for a new one.
    Stock* edit_stock = nullptr;
    const Stock* edit_stock_original = nullptr;
    // For the dialog that edits a data font, while it is open: the font that it writes back to.
    DataFont* edit_data_font = nullptr;

    // The user may look at the settings but not change them.
    bool no_permission = false;

    CommonSheet sheet;

    // Without winNT: the 16-bit driver that the settings go to, and the pages added so far.
    Channel16 channel16;
    PageList pages16;

    // Whether saved settings are sent to the printer's server.
    bool commit_shadow = true;
    // The user's access level is below the one that the printer requires. Then pages refuse
    // changes, but nothing else does.
    bool restricted = false;
    // init could read all of the printer, its model and its settings. Settings that were read only
    // in part must not replace the stored ones.
    bool is_whole = false;
    // A sheet opens on its last page, the one about the driver.
    bool start_on_last = false;

    // The stream to the printer. Null before the language's InitEx.
    prtstream* stream = nullptr;

protected:
    // Brings settings into the form in which the pages show them: within the model's limits. Those
    // without a configuration of this driver stay as they are.
    virtual void Settle(DevMode& settings) const;

    // Everything that is known about an action, or null for an unknown number.
    virtual const ActionRow* FindAction(printer_action action) const;

private:
    void AddBuiltInPresets();
    void SettleAll();
    void LoadControls();
    LONG TakeSheet(PROPSHEETUI_INFO* info, uint32_t groups);

    VersionInfo version_;
    bool uses_controls_ = false; // the window class of pictures has this user
};
