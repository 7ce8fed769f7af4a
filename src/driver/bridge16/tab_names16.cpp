#include "driver/bridge16/tab_names16.h"

namespace {

constexpr char kNamesValue[] = "MODEL:X16/Tab Names";

void LearnNames(const SheetWindow& sheet, int count, OStringArray& names) {
    constexpr int kPageTitleSize = 1024;
    names.SetSize(0);
    for (const char* usual : {"General", "Details", "Sharing"}) names.Add(usual);
    const WithoutRedrawing quiet(sheet);
    for (int tab = count - 1; tab >= 0; --tab) {
        sheet.Select(tab);
        WCHAR title[kPageTitleSize] = {};
        if (const HWND page = sheet.CurrentPage()) GetWindowTextW(page, title, kPageTitleSize);
        if (title[0] != 0) names.SetAtGrow(tab, OString(title));
    }
}

} // namespace

void GetTabNames16(prtreg& registry, const SheetWindow& sheet, int count, OStringArray& names) {
    if (registry.GetMultiString(kNamesValue, names) && names.GetSize() > 0) return;
    LearnNames(sheet, count, names);
    // If it cannot be kept, it is learnt again next time.
    registry.SetMultiString(kNamesValue, names);
}
