#include "pages/fonts/font_lists.h"

#include "locale/text_numbers.h"

void FillCharacterSets(prtpage& page, int list, const DataFont& font) {
    constexpr struct {
        int text;
        uint8_t character_set;
    } kSets[] = {{TEXT_THAI_LETTERS, THAI_CHARSET},
                 {TEXT_JAPANESE_LETTERS, SHIFTJIS_CHARSET},
                 {TEXT_SIMPLIFIED_CHINESE_LETTERS, GB2312_CHARSET},
                 {TEXT_KOREAN_LETTERS, HANGUL_CHARSET},
                 {TEXT_TRADITIONAL_CHINESE_LETTERS, CHINESEBIG5_CHARSET},
                 {TEXT_CENTRAL_EUROPEAN, EASTEUROPE_CHARSET},
                 {TEXT_CYRILLIC, RUSSIAN_CHARSET},
                 {TEXT_WESTERN, ANSI_CHARSET},
                 {TEXT_GREEK_LETTERS, GREEK_CHARSET},
                 {TEXT_TURKISH_LETTERS, TURKISH_CHARSET},
                 {TEXT_HEBREW, HEBREW_CHARSET},
                 {TEXT_ARABIC, ARABIC_CHARSET},
                 {TEXT_BALTIC, BALTIC_CHARSET},
                 {TEXT_VIETNAMESE, VIETNAMESE_CHARSET}};
    page.CB_ResetContent(list);
    for (const auto& set : kSets)
        page.CB_AddString(list, page.GetString(set.text), set.character_set);
    page.CB_SetCurSelData(list, font.attributes.char_set);
}

void FillAdjustments(prtpage& page, int list, const DataFont& font) {
    constexpr struct {
        int text;
        int16_t adjustment;
    } kAdjustments[] = {{TEXT_MUCH_SMALLER, -20},
                        {TEXT_SMALLER, -10},
                        {TEXT_NOT_ADJUSTED, 0},
                        {TEXT_LARGER, 10},
                        {TEXT_MUCH_LARGER, 20}};
    page.CB_ResetContent(list);
    for (const auto& row : kAdjustments)
        page.CB_AddString(list, page.GetString(row.text), row.adjustment);
    page.CB_SetCurSelData(list, font.adjustment);
}
