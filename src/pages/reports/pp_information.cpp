#include "pages/reports/pp_information.h"

#include <windows.h>

#include <commctrl.h>

#include <new>

#include "core/ofile.h"
#include "locale/text_numbers.h"
#include "pages/reports/report_formats.h"
#include "pages/reports/report_line_reader.h"
#include "ui/prtui.h"
#include "ui/ufile_dialog.h"

namespace {

enum : uint16_t { kSave = 618, kRefresh = 1016, kTabs = 1017, kDisplay = 1020 };

constexpr int kDisplayInset = 6; // pixels
constexpr uint16_t kLeftMargin = 2;
constexpr int kScrollAttempts = 10;
constexpr uint32_t kNewFile = OFILE_WRITE | 0x1000;

enum ReportFormat : int32_t { kHtml = 1, kRichText = 2, kText = 3 };

// The format that a file's name asks for, or else the chosen filter's.
int32_t FormatOf(const OString& path, int32_t filter) {
    const int dot = path.ReverseFind('.');
    if (dot < 0) return filter;
    OString extension = path.Mid(dot + 1);
    extension.MakeLower();
    if (extension == "html" || extension == "htm") return kHtml;
    if (extension == "rtf") return kRichText;
    if (extension == "txt") return kText;
    return filter;
}

// The text of a tab as it is displayed, and where its marks are in it. A line break counts as one
// position.
struct DisplayText {
    OString text;
    OTypedArray<int> bold;
    OTypedArray<int> italic;

    explicit DisplayText(const TextPanel& panel) {
        int position = 0;
        for (int line = 0; line < panel.GetSize(); ++line) {
            if (line > 0) {
                text << "\r\n";
                ++position;
            }
            AddLine(panel[line], position);
        }
    }

private:
    void AddLine(const OString& line, int& position) {
        for (ReportLineReader reader(line); reader.Next();) {
            switch (reader.kind()) {
            case ReportLineReader::kBold:
            case ReportLineReader::kEndBold:
                bold.Add(position);
                break;
            case ReportLineReader::kItalic:
            case ReportLineReader::kEndItalic:
                italic.Add(position);
                break;
            case ReportLineReader::kCharacter:
                text << reader.character();
                ++position;
                break;
            case ReportLineReader::kUnknownMark:
                break;
            }
        }
    }
};

// Gives every pair of positions its format.
void Format(UEdit& display, const OTypedArray<int>& marks, DWORD effect) {
    CHARFORMAT2W format = {};
    format.cbSize = sizeof(format);
    format.dwMask = CFM_BOLD | CFM_ITALIC;
    format.dwEffects = effect;
    for (int i = 0; i + 1 < marks.GetSize(); i += 2) {
        display.SetSelection(marks[i], marks[i + 1]);
        display.SetFormat(format);
    }
}

} // namespace

void ppInformation::Init() {
    prtpage::Init();
    display_.Bind(this, kDisplay);
    current_ = 0;
    tabs_changed_ = true;
}

void ppInformation::Destroy() {
    Info_Clear();
}

void ppInformation::Refresh(bool) {
    if (shown_) return;
    shown_ = true;
    if (!RefreshInformation()) {
        CloseDialog(CANCEL_BUTTON);
        return;
    }
    // The dialog shows itself after it has given the display the focus. Shown from here, it would
    // mark all of the text then.
    ShowTab(0, 0, 0, -1);
}

bool ppInformation::Command(uint16_t id, uint16_t code, LPARAM value) {
    if (id == kSave && code == BN_CLICKED) {
        Save();
        return false;
    }
    if (id == kRefresh && code == BN_CLICKED) {
        if (!RefreshInformation()) return false;
        if (!Panel(current_)) current_ = 0; // there are fewer tabs than before
        ShowTab(current_, 0, 0, -1);
        return false;
    }
    if (id == kDisplay && code == EN_SETFOCUS) {
        EM_SetSel(kDisplay, -1, 0);
        return false;
    }
    return prtpage::Command(id, code, value);
}

bool ppInformation::Notify(uint16_t id, uint32_t code, NMHDR* header) {
    if (id != kTabs || code != static_cast<uint32_t>(TCN_SELCHANGE))
        return prtpage::Notify(id, code, header);
    KeepView();
    current_ = static_cast<int32_t>(SendMessageW(Tabs(), TCM_GETCURSEL, 0, 0));
    if (const TextPanel* panel = Panel(current_))
        ShowTab(current_, panel->selection_start, panel->selection_end, panel->scroll_position);
    return false;
}

// ---- Filling the report -------------------------------------------------------------------------

void ppInformation::Info_Clear() {
    for (int i = 0; i < panels_.GetSize(); ++i) delete panels_[i];
    panels_.SetSize(0);
}

void ppInformation::Info_Title(const UStringResource& text) {
    SetWindowTextW(GetWindow(), text.GetText(*this).wstring());
}

void ppInformation::Info_Tab(const UStringResource& title) {
    auto* const panel = new (kCounted) TextPanel;
    if (!panel) return;
    if (panels_.Add(panel) < 0) {
        delete panel;
        return;
    }
    SetDisplayTitle(panels_.GetSize() - 1, title.GetText(*this));
}

void ppInformation::Info_Header(const UStringResource& text) {
    WriteInfoHeader(panels_.GetSize() - 1, text.GetText(*this));
}

void ppInformation::Info_Line(const UStringResource& text) {
    WriteInfoLine(panels_.GetSize() - 1, text.GetText(*this));
}

void ppInformation::Info_Item(const UStringResource& label, const UStringResource& value) {
    OString line = label.GetText(*this);
    line << ":" << tab << value.GetText(*this);
    Info_Line(line);
}

void ppInformation::Info_TabStop(int stop) {
    Info_TabStops(1, &stop);
}

void ppInformation::Info_TabStops(int first, int second) {
    const int stops[] = {first, second};
    Info_TabStops(2, stops);
}

void ppInformation::Info_TabStops(int count, const int* stops) {
    TextPanel* const panel = LastPanel();
    if (!panel) return;
    panel->tab_stops.SetSize(0);
    for (int i = 0; i < count; ++i) panel->tab_stops.Add(stops[i]);
}

void ppInformation::SetDisplayTitle(int tab_index, const OString& title) {
    TextPanel* const panel = Panel(tab_index);
    if (!panel || strcmp(panel->title.nstring(), title.nstring()) == 0) return;
    panel->title = title;
    tabs_changed_ = true;
}

void ppInformation::WriteInfoHeader(int tab_index, const OString& text) {
    TextPanel* const panel = Panel(tab_index);
    if (!panel) return;
    if (panel->GetSize() > 0) panel->Add(OString());
    panel->Add(OString("[b]") + text + "[/b]");
    panel->Add(OString());
}

void ppInformation::WriteInfoLine(int tab_index, const OString& text) {
    if (TextPanel* const panel = Panel(tab_index)) panel->Add(text);
}

// ---- Showing it ---------------------------------------------------------------------------------

TextPanel* ppInformation::Panel(int tab_index) const {
    return tab_index >= 0 && tab_index < panels_.GetSize() ? panels_[tab_index] : nullptr;
}

HWND ppInformation::Tabs() const {
    return GetItem(kTabs);
}

void ppInformation::UpdateTabs() {
    if (!tabs_changed_) return;
    const HWND tabs = Tabs();
    SendMessageW(tabs, TCM_DELETEALLITEMS, 0, 0);
    for (int i = 0; i < panels_.GetSize(); ++i) {
        TCITEMW item = {};
        item.mask = TCIF_TEXT;
        item.pszText = const_cast<WCHAR*>(panels_[i]->title.wstring());
        SendMessageW(tabs, TCM_INSERTITEMW, static_cast<WPARAM>(i),
                     reinterpret_cast<LPARAM>(&item));
    }
    PlaceDisplay();
    SendMessageW(tabs, TCM_SETCURSEL, static_cast<WPARAM>(current_), 0);
    tabs_changed_ = false;
}

void ppInformation::PlaceDisplay() {
    RECT area;
    if (!GetWindowRect(Tabs(), &area)) return;
    MapWindowPoints(nullptr, GetWindow(), reinterpret_cast<POINT*>(&area), 2);
    SendMessageW(Tabs(), TCM_ADJUSTRECT, FALSE, reinterpret_cast<LPARAM>(&area));
    InflateRect(&area, -kDisplayInset, -kDisplayInset);
    // In front of the tabs, which would cover it.
    SetWindowPos(display_.GetWindow(), HWND_TOP, area.left, area.top, area.right - area.left,
                 area.bottom - area.top, SWP_NOACTIVATE);
}

void ppInformation::ShowTab(int tab_index, int selection_start, int selection_end, int scroll) {
    const HWND display = display_.GetWindow();
    if (panels_.GetSize() == 0) {
        SendMessageW(Tabs(), TCM_DELETEALLITEMS, 0, 0);
        SetWindowTextW(display, TEXT(""));
        tabs_changed_ = true;
    }
    const TextPanel* const panel = Panel(tab_index);
    if (!panel) return;
    UpdateTabs();
    SendMessageW(display, WM_SETREDRAW, FALSE, 0);
    const DisplayText shown(*panel);
    SetWindowTextW(display, shown.text.wstring());
    Format(display_, shown.bold, CFE_BOLD);
    Format(display_, shown.italic, CFE_ITALIC);
    const auto count = static_cast<size_t>(panel->tab_stops.GetSize());
    display_.SetTabStops({panel->tab_stops.GetData(), count});
    display_.SetMargins(kLeftMargin, 0);
    display_.SetSelection(selection_start, selection_end);
    if (scroll >= 0) ScrollTo(scroll);
    SendMessageW(display, WM_SETREDRAW, TRUE, 0);
    InvalidateRect(display, nullptr, TRUE);
}

void ppInformation::ScrollTo(int position) {
    const HWND display = display_.GetWindow();
    int now = GetScrollPos(display, SB_VERT);
    for (int i = 0; i < kScrollAttempts && now != position; ++i) {
        SetScrollPos(display, SB_VERT, position, FALSE);
        SendMessageW(display, WM_VSCROLL, MAKEWPARAM(SB_THUMBPOSITION, position), 0);
        const int before = now;
        now = GetScrollPos(display, SB_VERT);
        if (now == before) break;
    }
}

// Keeps where the user is in the tab that is shown.
void ppInformation::KeepView() {
    TextPanel* const panel = Panel(current_);
    if (!panel) return;
    int start = 0, end = 0;
    display_.GetSelection(start, end);
    panel->selection_start = start;
    panel->selection_end = end;
    panel->scroll_position = GetScrollPos(display_.GetWindow(), SB_VERT);
}

// ---- Saving it ----------------------------------------------------------------------------------

void ppInformation::SaveText(OFile& file) {
    SaveReportText(file, panels_, GetUI()->locale.GetCurrentCP());
}

void ppInformation::SaveRichText(OFile& file) {
    SaveReportRichText(file, panels_, GetUI()->locale.GetCurrentCP());
}

void ppInformation::SaveHTML(OFile& file) {
    SaveReportHtml(file, panels_);
}

void ppInformation::Save() {
    UFileDialog dialog(*this, registry_, TEXT_SAVE_REPORT);
    dialog.AddFilter(TEXT_WEB_PAGE, "*.html");
    dialog.AddFilter(TEXT_RICH_TEXT, "*.rtf");
    dialog.AddFilter(TEXT_PLAIN_TEXT, "*.txt");
    if (!dialog.Browse(UFileDialog::SAVE)) return;
    OFile file;
    if (!file.Open(dialog.GetPath(), kNewFile)) return;
    switch (FormatOf(dialog.GetPath(), dialog.GetFilter())) {
    case kHtml:
        SaveHTML(file);
        break;
    case kRichText:
        SaveRichText(file);
        break;
    default:
        SaveText(file);
        break;
    }
    file.Close();
}
