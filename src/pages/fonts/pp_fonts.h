// The page for the printer's data fonts and downloaded fonts.
#pragma once

#include <cstdint>
#include <memory>

#include "core/oarray.h"
#include "core/obuffer.h"
#include "pages/page_list_view.h"
#include "ui/prtpage.h"
#include "ui/uedit.h"
#include "ui/upop_button.h"

class DataFont;
class DownloadedFont;

// Lists the fonts of the UI object and tells more of the selected ones. Three buttons open menus; a
// right click on the list opens a fourth. Data fonts are stored by Apply. Downloads are stored when
// they have reached the printer, or left it.
class ppFonts : public prtpage {
public:
    static constexpr DLGPROC WinProc = prtpage::WinProcOf<ppFonts>;

    void Refresh(bool all) override;
    bool Command(uint16_t id, uint16_t code, LPARAM value) override;
    bool Notify(uint16_t id, uint32_t code, NMHDR* header) override;
    void Init() override;
    bool Apply() override;
    // Remembers what the user has made of the list.
    void Destroy() override;
    uint32_t GetCurrentCRC32() const override; // of the data fonts

private:
    // The kinds of fonts are bits of what is shown.
    enum View : uint32_t { DOWNLOADED = 2, BAR_CODES = 4, RFID = 8 };
    struct Entry {
        View kind;
        DownloadedFont* downloaded; // of this kind only
        DataFont* data;             // of the others
        // Says whether two entries are the same font.
        const void* Font() const;
    };

    void LoadView();
    void RebuildFontList();
    void ShowList();
    void ShowProperties();
    void PrepareMenus();

    // The only selected entry, or null.
    const Entry* OnlySelected() const;
    // The selected rows, in their order.
    void GetSelected(OTypedArray<int>& rows) const;
    // Shows the kind from now on.
    void ShowKind(View kind);
    void ToggleKind(View kind);

    void AddBarCodeFont();
    void AddRFIDFont();
    // Lets the user edit a new font and adds it if that was confirmed. Nothing for null.
    void AddFont(std::unique_ptr<DataFont> font, View kind);
    void EditFont();
    // Runs the editor of a data font. Whether it was confirmed.
    bool EditDataFont(DataFont& font);
    void DownloadFont();
    void RemoveSelected();
    void RemoveFont(const Entry& entry);
    void ResendFonts();
    void Verify();
    // Tells the user if they cannot be stored.
    void SaveDownloadedFonts();

    // Texts of an entry (pp_fonts_texts.cpp). The properties are lines: a label, a tab, a value.
    OString GetFontName(const Entry& entry);
    OString GetFontType(const Entry& entry);
    OString GetFontStatus(const Entry& entry);
    OString GetFontProperties(const Entry& entry);
    void AddProperty(OString& text, int label, const OString& value);
    void AddCharacterSet(OString& text, unsigned char character_set);
    void AddDownload(OString& text, const DownloadedFont& font);

    PageListView list_;
    UEdit properties_;
    UMenu menus_; // of all buttons
    UPopButton add_button_;
    UPopButton edit_button_;
    UPopButton view_button_;

    OBuffer<Entry> entries_; // the rows
    uint32_t view_ = 0;
    uint32_t sort_column_ = 0;
    bool sort_reverse_ = false;
    bool view_chosen_ = false; // by the user, since the page was opened
    bool sort_chosen_ = false;
    // What the next refresh brings up to date: which fonts there are, and how they are shown.
    bool list_changed_ = false;
    bool display_changed_ = false;
};
