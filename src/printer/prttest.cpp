#include "printer/prttest.h"

#include <algorithm>
#include <utility>

#include "core/numbers.h"
#include "printer/escape_records.h"
#include "printer/ui_printer.h"

prttest::prttest(const UIPrinter* ui)
    : prtspool(ui) {
    if (!ui) return;
    if (const DEVMODEW* settings = ui->devmode.GetDevMode()) {
        x_resolution_ = settings->dmPrintQuality;
        y_resolution_ = settings->dmYResolution;
    }
    const KVCapabilitiesData* capabilities = ui->model ? ui->model->GetCapabilitiesData() : nullptr;
    bars_ = capabilities && (capabilities->line_bits & KVCapabilitiesData::LINE);
    StartDocW("Printer Test");
    StartPage();
}

prttest::~prttest() {
    EndPage();
    EndDoc();
}

void prttest::DrawRect(int x1, int y1, int x2, int y2) {
    const auto dots = [](int a, int b, int32_t resolution) {
        return std::minmax({muldiv64s(a, resolution, 1000), muldiv64s(b, resolution, 1000)});
    };
    const auto [left, right] = dots(x1, x2, x_resolution_);
    const auto [top, bottom] = dots(y1, y2, y_resolution_);
    const int32_t width = right - left, height = bottom - top;
    if (!bars_) {
        SetMapMode(GetDC(), MM_TEXT);
        PatBlt(GetDC(), left, top, width, height, BLACKNESS);
        return;
    }
    const bool vertical = width <= height;
    const int32_t length = std::max(vertical ? height : width, int32_t{1});
    const int32_t thickness = std::max(vertical ? width : height, int32_t{1});
    KVBar bar = {};
    bar.size = sizeof bar;
    bar.x = static_cast<uint16_t>(vertical ? left + thickness / 2 : left);
    bar.y = static_cast<uint16_t>(vertical ? top : top + thickness / 2);
    bar.length = static_cast<uint16_t>(length);
    bar.thickness = static_cast<uint16_t>(thickness);
    bar.vertical = vertical;
    Escape(ESCAPE_BAR, sizeof bar, reinterpret_cast<const char*>(&bar), 0, nullptr);
}

void PrtTest(const UIPrinter* ui, TestPattern pattern) {
    constexpr int kLabel[][4] = {
        {0, 0, 2000, 10},       {1990, 0, 2000, 1000},  {2000, 990, 0, 1000},
        {0, 1000, 10, 0}, // the outer frame
        {30, 30, 1970, 40},     {1960, 30, 1970, 970},  {1970, 960, 30, 970},
        {30, 970, 40, 30},                            // the inner one
        {100, 200, 500, 250},   {275, 200, 325, 800}, // T
        {600, 200, 950, 250},   {600, 475, 900, 525},   {600, 750, 950, 800},
        {600, 200, 650, 800}, // E
        {1050, 200, 1400, 250}, {1050, 475, 1400, 525}, {1050, 750, 1400, 800},
        {1050, 200, 1100, 525}, {1350, 475, 1400, 800}, // S
        {1500, 200, 1900, 250}, {1675, 200, 1725, 800}, // T
    };
    prttest page(ui);
    if (pattern != TestPattern::LABEL) return;
    for (const auto& bar : kLabel) page.DrawRect(bar[0], bar[1], bar[2], bar[3]);
}
