// prtpage: texts on the page.
#include "core/numbers.h"
#include "locale/text_numbers.h"
#include "ui/prtpage.h"
#include "ui/prtui.h"
#include "ui/uwindow.h"

namespace {

constexpr int kYearLength = 4;

bool IsLetter(WCHAR c) {
    return (c >= 'A' && c <= 'Z') || (c >= 'a' && c <= 'z');
}

bool BeginsYear(WCHAR c) {
    return c == '1' || c == '2';
}

// The year at a position of a token, or 0 if it ends before.
int32_t YearIn(const OString& token, int at) {
    return token.wlen() >= at + kYearLength ? xtol(token.Mid(at, kYearLength).wstring()) : 0;
}

// The copyright sign with the years of a token, "C=2002-2004", or those of the module.
OString Copyright(prtui& ui, const OString& token) {
    int32_t start = ui.GetCopyrightStart(), end = ui.GetCopyrightEnd();
    constexpr int kYear = 2, kSecondYear = kYear + kYearLength + 1;
    const WCHAR* const text = token.wstring();
    if (token.wlen() > kYear && text[1] == '=' && BeginsYear(text[kYear])) {
        start = YearIn(token, kYear);
        if (token.wlen() > kSecondYear && BeginsYear(text[kSecondYear]))
            end = YearIn(token, kSecondYear);
    }
    OString result = ui.locale.GetCopyright();
    if (start == 0) return result;
    result << " " << start;
    if (end != start) result << "-" << end;
    return result;
}

// What a token stands for; `token` is what is between the braces.
OString Replacement(prtui& ui, const OString& token) {
    switch (token.wstring()[0]) {
    case 'R':
    case 'r':
        return ui.locale.GetRegistered();
    case 'T':
    case 't':
        return ui.locale.GetTrademark();
    case 'C':
    case 'c':
        return Copyright(ui, token);
    default:
        return OString();
    }
}

} // namespace

void prtpage::ReplaceSpecialStrings(HWND control) {
    const OString text = TextOfWindow(control);
    const WCHAR* const units = text.wstring();
    const int length = text.wlen();
    OString replaced;
    bool found = false;
    for (int i = 0; i < length; ++i) {
        int end = i;
        if (units[i] == '{' && IsLetter(units[i + 1]))
            while (end < length && units[end] != '}') ++end;
        if (end == i || end == length) {
            replaced << units[i];
            continue;
        }
        replaced << Replacement(*ui_, text.Mid(i + 1, end - i - 1));
        found = true;
        i = end;
    }
    if (found) SetWindowTextW(control, replaced.wstring());
}

OString prtpage::GetString_CharSet(unsigned char charset) {
    constexpr struct {
        int text;
        unsigned char charset;
    } kNames[] = {{TEXT_WESTERN, ANSI_CHARSET},
                  {TEXT_CENTRAL_EUROPEAN, EASTEUROPE_CHARSET},
                  {TEXT_CYRILLIC, RUSSIAN_CHARSET},
                  {TEXT_GREEK_LETTERS, GREEK_CHARSET},
                  {TEXT_TURKISH_LETTERS, TURKISH_CHARSET},
                  {TEXT_HEBREW, HEBREW_CHARSET},
                  {TEXT_ARABIC, ARABIC_CHARSET},
                  {TEXT_BALTIC, BALTIC_CHARSET},
                  {TEXT_VIETNAMESE, VIETNAMESE_CHARSET},
                  {TEXT_THAI_LETTERS, THAI_CHARSET},
                  {TEXT_JAPANESE_LETTERS, SHIFTJIS_CHARSET},
                  {TEXT_SIMPLIFIED_CHINESE_LETTERS, GB2312_CHARSET},
                  {TEXT_KOREAN_LETTERS, HANGUL_CHARSET},
                  {TEXT_KOREAN_LETTERS, JOHAB_CHARSET},
                  {TEXT_TRADITIONAL_CHINESE_LETTERS, CHINESEBIG5_CHARSET}};
    for (const auto& known : kNames)
        if (known.charset == charset) return GetString(known.text);
    return OString();
}
