#include "ui/uedit.h"

#include "core/ascii.h"

bool UEdit::IsRichEdit() const {
    constexpr char kRich[] = "RichEdit"; // followed by the version of the class
    return xstrnicmp(GetClass().nstring(), kRich, sizeof kRich - 1) == 0;
}

void UEdit::LimitText(int32_t characters) {
    // Rich edit controls take more than 64 K from the second parameter only.
    Send(EM_LIMITTEXT, static_cast<WPARAM>(characters));
    if (IsRichEdit()) Send(EM_EXLIMITTEXT, 0, characters);
}

void UEdit::SetReadOnly(bool read_only) {
    Send(EM_SETREADONLY, read_only);
}

void UEdit::SetTabStops(std::span<const int> stops) {
    if (IsRichEdit()) {
        // Its tab stops belong to paragraphs, and are in twips.
        PARAFORMAT2 format = {};
        format.cbSize = sizeof format;
        format.dwMask = PFM_TABSTOPS;
        const int units = LOWORD(GetDialogBaseUnits());
        HDC screen = GetDC(window_);
        const int dpi = screen ? GetDeviceCaps(screen, LOGPIXELSX) : 96;
        if (screen) ReleaseDC(window_, screen);
        for (const int stop : stops) {
            if (format.cTabCount == MAX_TAB_STOPS) break;
            format.rgxTabs[format.cTabCount++] = MulDiv(stop * units, 1440, 4 * dpi);
        }
        int start = 0, end = 0;
        GetSelection(start, end);
        SetSelection(0, -1);
        Send(EM_SETPARAFORMAT, 0, reinterpret_cast<LPARAM>(&format));
        SetSelection(start, end);
        return;
    }
    Send(EM_SETTABSTOPS, stops.size(), reinterpret_cast<LPARAM>(stops.data()));
}

void UEdit::SetMargins(uint16_t left, uint16_t right) {
    Send(EM_SETMARGINS, EC_LEFTMARGIN | EC_RIGHTMARGIN, MAKELPARAM(left, right));
}

void UEdit::GetSelection(int& start, int& end) const {
    DWORD first = 0, last = 0;
    Send(EM_GETSEL, reinterpret_cast<WPARAM>(&first), reinterpret_cast<LPARAM>(&last));
    start = static_cast<int>(first);
    end = static_cast<int>(last);
}

void UEdit::SetSelection(int start, int end) {
    Send(EM_SETSEL, static_cast<WPARAM>(start), end);
}

void UEdit::ReplaceSelection(const OString& text, bool undo) {
    Send(EM_REPLACESEL, undo, reinterpret_cast<LPARAM>(text.wstring()));
}

void UEdit::GetFormat(CHARFORMAT2W& format) const {
    Send(EM_GETCHARFORMAT, SCF_SELECTION, reinterpret_cast<LPARAM>(&format));
}

void UEdit::SetFormat(const CHARFORMAT2W& format) {
    Send(EM_SETCHARFORMAT, SCF_SELECTION, reinterpret_cast<LPARAM>(&format));
}

void UEdit::SetBackground(COLORREF color) {
    Send(EM_SETBKGNDCOLOR, 0, static_cast<LPARAM>(color));
}

uint32_t UEdit::SetEventMask(uint32_t mask) {
    return static_cast<uint32_t>(Send(EM_SETEVENTMASK, 0, static_cast<LPARAM>(mask)));
}

CPoint UEdit::GetScrollPosition() const {
    CPoint position;
    POINT* const point = &position;
    Send(EM_GETSCROLLPOS, 0, reinterpret_cast<LPARAM>(point));
    return position;
}

void UEdit::SetScrollPosition(CPoint position) {
    POINT* const point = &position;
    Send(EM_SETSCROLLPOS, 0, reinterpret_cast<LPARAM>(point));
}
