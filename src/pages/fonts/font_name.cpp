#include "pages/fonts/font_name.h"

#include "locale/text_numbers.h"
#include "ui/prtui.h"
#include "ui/uwindow.h"

namespace {

constexpr int32_t kLongestFontName = 20; // that can be typed

DataFont* OtherFontOfName(prtui& ui, const DataFont& font) {
    for (int i = 0; i < ui.data_fonts.GetSize(); ++i)
        if (ui.data_fonts[i] != ui.edit_data_font && ui.data_fonts[i]->HasNameOf(font))
            return ui.data_fonts[i];
    return nullptr;
}

} // namespace

void ShowFontName(prtpage& page, int field, const DataFont& font, int usual_name) {
    const OString name = font.GetFontName();
    page.EM_SetText(field, name.IsEmpty() ? page.GetString(usual_name) : name);
    page.EM_LimitText(field, kLongestFontName);
}

bool VerifyFontName(prtpage& page, int field, DataFont& font, int usual_name) {
    if (font.GetFontName().IsEmpty()) font.SetFontName(page.GetString(usual_name));
    prtui& ui = *page.GetUI();
    DataFont* const other = OtherFontOfName(ui, font);
    if (!other) return true;
    OString question;
    question.Format(page.GetString(TEXT_REPLACE_DATA_FONT).wstring(), font.GetFontName().wstring());
    if (page.Message(question, TextOfWindow(page.GetWindow()), MB_OKCANCEL | MB_ICONEXCLAMATION) !=
        IDOK) {
        page.WM_SetFocus(field);
        return false;
    }
    ui.data_fonts.Remove(other);
    delete other;
    return true;
}
