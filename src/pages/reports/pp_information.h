// A dialog that shows a report: tabs of text lines, which can be saved in three formats.
#pragma once

#include "core/oarray.h"
#include "ui/prtpage.h"
#include "ui/text_panel.h"
#include "ui/uedit.h"
#include "ui/ustring_resource.h"

class OFile;

// A report is a subclass that fills the tabs in RefreshInformation. Lines may have the marks of
// TextPanel.
class ppInformation : public prtpage {
public:
    ppInformation() = default;
    ~ppInformation() override { Info_Clear(); }

    void Refresh(bool all) override;
    bool Command(uint16_t id, uint16_t code, LPARAM value) override;
    bool Notify(uint16_t id, uint32_t code, NMHDR* header) override;
    void Init() override;
    void Destroy() override;

    // Clears the report and fills it again. False if there is nothing to show: the dialog then
    // closes, or keeps what it shows.
    virtual bool RefreshInformation() { return false; }

    // ---- Filling the report ---------------------------------------------------------------------

    // Without memory a tab or a line is left out.
    void Info_Clear();
    void Info_Title(const UStringResource& text); // of the dialog
    // Begins a tab, to which everything below belongs.
    void Info_Tab(const UStringResource& title);
    void Info_Header(const UStringResource& text);
    void Info_Line(const UStringResource& text);
    void Info_Item(const UStringResource& label, const UStringResource& value);
    // In the display's tab-stop units.
    void Info_TabStop(int stop);
    void Info_TabStops(int first, int second);
    void Info_TabStops(int count, const int* stops);

    // The same for any tab, by its index. Nothing for a tab that does not exist.
    void SetDisplayTitle(int tab, const OString& title);
    void WriteInfoHeader(int tab, const OString& text);
    void WriteInfoLine(int tab, const OString& text);

    // ---- Showing and saving it ------------------------------------------------------------------

    void UpdateTabs();
    // Shows a tab with a selection; a scroll position below 0 leaves that as it is. Without any
    // tabs the display becomes empty.
    void ShowTab(int tab, int selection_start, int selection_end, int scroll);

    void SaveText(OFile& file);
    void SaveRichText(OFile& file);
    void SaveHTML(OFile& file);

private:
    TextPanel* Panel(int tab) const;
    TextPanel* LastPanel() const { return Panel(panels_.GetSize() - 1); }
    HWND Tabs() const;
    void PlaceDisplay();
    void ScrollTo(int position);
    void KeepView();
    void Save();

    UEdit display_;
    OPointerArray<TextPanel*> panels_; // owned
    int32_t current_ = 0;
    bool tabs_changed_ = false;
    bool shown_ = false;
};
