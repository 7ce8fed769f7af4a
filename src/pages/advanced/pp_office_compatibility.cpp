#include "pages/advanced/pp_office_compatibility.h"

#include "core/locale_utility.h"
#include "core/numbers.h"
#include "locale/text_numbers.h"
#include "model/prtmodel.h"
#include "ui/prtui.h"

namespace {

constexpr char kAdditionalCodePages[] = "Settings:Additional Code Pages";

constexpr int kMostLanguages = 5;

struct CodePageRow {
    int code_page;
    const char* suffix;
    int languages[kMostLanguages]; // texts; 0 ends them
};

// In the order of the list.
constexpr CodePageRow kCodePages[] = {
    {1250, "CE", {TEXT_POLISH, TEXT_CZECH, TEXT_SLOVAK, TEXT_HUNGARIAN, TEXT_ROMANIAN}},
    {1251, "CYR", {TEXT_RUSSIAN, TEXT_BULGARIAN, TEXT_UKRAINIAN}},
    {1252, "WE", {TEXT_ENGLISH, TEXT_SPANISH, TEXT_FRENCH, TEXT_GERMAN, TEXT_ITALIAN}},
    {1253, "GR", {TEXT_GREEK}},
    {1254, "TUR", {TEXT_TURKISH}},
    {1255, "HEB", {TEXT_HEBREW_NAME}},
    {1256, "ARA", {TEXT_ARABIC_NAME}},
    {1257, "BAL", {TEXT_ESTONIAN, TEXT_LATVIAN, TEXT_LITHUANIAN}},
    {1258, "VIET", {TEXT_VIETNAMESE_NAME}},
    {874, "THAI", {TEXT_THAI}},
    {932, "JA", {TEXT_JAPANESE}},
    {936, "CHS", {TEXT_SIMPLIFIED_CHINESE}},
    {949, "KOR", {TEXT_KOREAN}},
    {950, "CHT", {TEXT_TRADITIONAL_CHINESE}},
};

const CodePageRow* FindCodePage(int code_page) {
    for (const CodePageRow& row : kCodePages)
        if (row.code_page == code_page) return &row;
    return nullptr;
}

} // namespace

void ppOfficeCompatibility::Init() {
    prtpage::Init();
    settings_.Load(registry_);
    list_.Bind(this, CODE_PAGES);
    bar_fonts_.Bind(this, BAR_FONTS);
    list_.SetFullRowSelect();
    const UColumnInfo columns[] = {{GetString(TEXT_CODE_PAGE_NUMBER), 40},
                                   {GetString(TEXT_CODE_PAGE_CHARACTERS), 120},
                                   {GetString(TEXT_CODE_PAGE_SUFFIX), 40},
                                   {GetString(TEXT_CODE_PAGE_LANGUAGES), 260}};
    list_.SetColumns(columns);
    for (const CodePageRow& row : kCodePages) AddCodePage(row.code_page);
    registry_.GetMultiString(kAdditionalCodePages, code_pages_);
}

void ppOfficeCompatibility::AddCodePage(int code_page) {
    const unsigned char charset =
        LocaleUtility::CodePageToCharSet(static_cast<uint32_t>(code_page));
    OStringArray texts;
    texts.Add(FormatInt(code_page));
    texts.Add(GetString_CharSet(charset));
    if (const CodePageRow* const row = FindCodePage(code_page)) {
        OStringArray languages;
        for (const int language : row->languages) {
            if (language == TEXT_NONE) break;
            languages.Add(GetString(language));
        }
        texts.Add(OString(row->suffix));
        texts.Add(languages.Join(", "));
    }
    list_.InsertItem(list_.GetCount(), texts, code_page);
}

void ppOfficeCompatibility::Refresh(bool all) {
    if (all) {
        const int count = list_.GetCount();
        for (int i = 0; i < count; ++i) list_.Select(i, false);
        for (int i = 0; i < code_pages_.GetSize(); ++i) {
            const int row = list_.FindData(xtol(code_pages_[i].wstring()));
            if (row >= 0) list_.Select(row, true);
        }
        bar_fonts_.Check(settings_.GetFixBarFontsInOffice());
    }
    if (IsRestricted()) WM_EnableAll(false, 0, 0);
}

bool ppOfficeCompatibility::Command(uint16_t id, uint16_t code, LPARAM value) {
    if (id != BAR_FONTS || code != BN_CLICKED) return prtpage::Command(id, code, value);
    settings_.SetFixBarFontsInOffice(bar_fonts_.IsChecked());
    return false;
}

bool ppOfficeCompatibility::Apply() {
    OStringArray chosen;
    for (int row = list_.GetNextSelected(-1); row >= 0; row = list_.GetNextSelected(row))
        chosen.Add(FormatInt(static_cast<int32_t>(list_.GetData(row))));
    registry_.ForgetFailures();
    registry_.SetMultiString(kAdditionalCodePages, chosen);
    settings_.Save(registry_);
    GetModel()->FlushDataCache();
    // Users who may not change the printer only looked.
    const bool is_new = chosen != code_pages_ || settings_.GetCRC32(0) != 0;
    if (is_new && (registry_.HasFailed() || settings_.HasFailed())) {
        ReportNotStored(GetString(TEXT_DRIVER_SETTINGS));
        return false;
    }
    return prtpage::Apply();
}
