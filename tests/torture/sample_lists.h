// Settings of a printer in two versions, to be saved one over the other.
#pragma once

#include <windows.h>

#include <cstdio>

#include "fonts/data_font_bar_code.h"
#include "ui/prtui.h"

// Gives every list the entries of a version. Those that both versions have differ.
inline void MakeLists(prtui& ui, int version) {
    const auto name = [](const char* kind, int i) {
        char text[32];
        std::snprintf(text, sizeof text, "%s %02d", kind, i);
        return OString(text);
    };
    for (int i = 0; i < 8 + 3 * version; ++i) {
        auto* stock = new Stock;
        stock->SetName(name("Tag", 2 * i % 11));
        stock->width = 50000 + 1000 * version + i;
        stock->length = 25000;
        ui.stocks.AddTail(stock);

        auto* preset = new Preset;
        preset->SetToDefaultDevMode(ui.model.get());
        preset->SetName(name("Preset", 2 * i % 11));
        preset->SetDescription(name("Version", version));
        ui.presets.AddTail_ReplaceName(preset);

        auto* font = new DataFont_BarCode;
        font->SetFontName(name("Bar", 2 * i % 11));
        font->resolution = 203 + version;
        ui.data_fonts.AddTail(font);

        auto* downloaded = new DownloadedFont;
        downloaded->type = DownloadedFont::TRUETYPE;
        downloaded->font.lfWeight = 400 + version;
        ui.fonts.AddTail(downloaded);
    }
    ui.stocks.Validate();
    ui.presets.Sort();
}
