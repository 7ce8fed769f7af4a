// Property sheets: opening a sheet of ten pages with thirty controls each, going through all of
// them and typing, and closing it; and the preview of dithering as a slider moves it.
#include <benchmark/benchmark.h>
#include <windows.h>

#include <commctrl.h>
#include <prsht.h>

#include <vector>

#include <win32host/user.h>

#include "imaging/dithercfg.h"
#include "pages/graphics/dither_preview.h"
#include "window/dialog_builder.h"

namespace {

constexpr int kPages = 10;
constexpr int kRows = 10; // a label, an edit field and a combo box each

DialogBuilder PageTemplate() {
    DialogBuilder page(true, WS_CHILD | DS_CONTROL, 0, 0, 252, 218, TEXT("Page"));
    for (uint32_t row = 0; row < kRows; ++row) {
        const int y = 5 + static_cast<int>(row) * 20;
        page.Add(TEXT("Static"), TEXT("&Label:"), 0xFFFF, 0, 5, y, 60, 10);
        page.Add(TEXT("Edit"), TEXT("12.5 mm"), 100 + row, WS_TABSTOP | WS_BORDER, 70, y, 60, 12);
        page.Add(TEXT("ComboBox"), TEXT(""), 200 + row, WS_TABSTOP | 3, 140, y, 100, 80);
    }
    return page;
}

INT_PTR CALLBACK PageProcedure(HWND page, UINT message, WPARAM, LPARAM) {
    if (message == WM_INITDIALOG)
        for (int row = 0; row < kRows; ++row)
            SendDlgItemMessageW(page, 200 + row, CB_ADDSTRING, 0,
                                reinterpret_cast<LPARAM>(TEXT("an item")));
    return FALSE;
}

void BM_OpenAndCloseSheet(benchmark::State& state) {
    const DialogBuilder page_template = PageTemplate();
    for (auto _ : state) {
        std::vector<PROPSHEETPAGEW> pages(kPages);
        for (PROPSHEETPAGEW& page : pages) {
            page = {};
            page.dwSize = sizeof(page);
            page.dwFlags = PSP_DLGINDIRECT;
            page.pResource = page_template.Get();
            page.pfnDlgProc = PageProcedure;
        }
        PROPSHEETHEADERW sheet = {};
        sheet.dwSize = sizeof(sheet);
        sheet.dwFlags = PSH_PROPSHEETPAGE;
        sheet.pszCaption = TEXT("Sheet");
        sheet.nPages = kPages;
        sheet.ppsp = pages.data();
        int page = 0;
        win32host::WhenIdle([&page] {
            const HWND window = GetActiveWindow();
            if (page == kPages) {
                PostMessageW(window, WM_COMMAND, IDCANCEL, 0);
                ++page;
                return true;
            }
            if (page > kPages) return false;
            SendMessageW(window, PSM_SETCURSEL, static_cast<WPARAM>(page++), 0);
            const HWND shown =
                reinterpret_cast<HWND>(SendMessageW(window, PSM_GETCURRENTPAGEHWND, 0, 0));
            const HWND edit = GetDlgItem(shown, 100);
            SetFocus(edit);
            for (WCHAR unit : {u'2', u'5'}) PostMessageW(edit, WM_CHAR, unit, 1);
            return true;
        });
        benchmark::DoNotOptimize(PropertySheetW(&sheet));
        win32host::WhenIdle({});
    }
}
BENCHMARK(BM_OpenAndCloseSheet);

// The sample picture's size at 96 dots per inch, and what it is at the printers' resolutions.
void BM_DitherPreview(benchmark::State& state) {
    const auto width = static_cast<int>(174 * state.range(0) / 203);
    const auto height = static_cast<int>(150 * state.range(0) / 203);
    const size_t row = (static_cast<size_t>(width) * 3 + 3) / 4 * 4;
    std::vector<unsigned char> bytes(sizeof(BITMAPINFOHEADER) + row * static_cast<size_t>(height));
    for (size_t i = sizeof(BITMAPINFOHEADER); i < bytes.size(); ++i)
        bytes[i] = static_cast<unsigned char>(i * 7 % 256);
    auto* picture = reinterpret_cast<BITMAPINFO*>(bytes.data());
    picture->bmiHeader = {sizeof(BITMAPINFOHEADER), width, height, 1, 24, BI_RGB, 0, 0, 0, 0, 0};
    dithercfg settings = {};
    settings.Reset();
    settings.algorithm = dithercfg::ALGORITHM_DIFFUSION;
    DitherPreview preview;
    for (auto _ : state) {
        settings.brightness = static_cast<int16_t>((settings.brightness + 10) % 100);
        benchmark::DoNotOptimize(preview.Make(picture, settings, nullptr));
    }
}
BENCHMARK(BM_DitherPreview)->Arg(203)->Arg(600);

} // namespace
