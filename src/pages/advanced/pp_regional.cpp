#include "pages/advanced/pp_regional.h"

#include "core/crc.h"
#include "locale/text_numbers.h"
#include "ui/prtui.h"

namespace {

// What a list's items hold for a language.
constexpr uint32_t PackLanguage(const char* code) {
    uint32_t packed = 0;
    for (uint32_t i = 0; i < 3 && code[i]; ++i)
        packed |= uint32_t{static_cast<unsigned char>(code[i])} << (8 * i);
    return packed;
}

void UnpackLanguage(uint32_t packed, char (&code)[4]) {
    for (uint32_t i = 0; i < 3; ++i) code[i] = static_cast<char>(packed >> (8 * i));
    code[3] = '\0';
}

constexpr char kSystemLanguage[] = "sys";

} // namespace

void ppRegional::Init() {
    prtpage::Init();
    languages_.Bind(this, LANGUAGES);
    unit_list_.Bind(this, UNITS);
    language_ = PackLanguage(ui_->locale.GetUserLanguage());
    units_ = ui_->locale.GetUnits();
}

void ppRegional::Refresh(bool) {
    if (languages_.IsInvalid()) FillLanguages();
    if (unit_list_.IsInvalid()) FillUnits();
}

void ppRegional::FillLanguages() {
    languages_.ResetContent();
    const auto all = prtlocale::Languages();
    for (const prtlocale::Language& language : all.subspan(1))
        if (prtlocale::LanguageExists(GetModel(), language.code))
            languages_.AddSorted(GetString(language.name), PackLanguage(language.code));
    languages_.InsertString(0, GetString(TEXT_AS_THE_SYSTEM), PackLanguage(kSystemLanguage));
    languages_.InsertString(1, GetString(all[0].name), PackLanguage(all[0].code));
    languages_.SetCurSelData(language_);
}

void ppRegional::FillUnits() {
    unit_list_.ResetContent();
    constexpr struct {
        int text;
        prtlocale::Units units;
    } kUnits[] = {{TEXT_AS_THE_SYSTEM, prtlocale::SYSTEM_UNITS},
                  {TEXT_UNIT_INCHES, prtlocale::INCHES},
                  {TEXT_UNIT_MILLIMETRES, prtlocale::MILLIMETRES},
                  {TEXT_UNIT_CENTIMETRES, prtlocale::CENTIMETRES}};
    for (const auto& units : kUnits) unit_list_.AddString(GetString(units.text), units.units);
    unit_list_.SetCurSel(units_);
}

bool ppRegional::Command(uint16_t id, uint16_t code, LPARAM value) {
    if (id == LANGUAGES && code == CBN_SELCHANGE) {
        language_ = static_cast<uint32_t>(languages_.GetCurSelData());
        return false;
    }
    if (id == UNITS && code == CBN_SELCHANGE) {
        units_ = unit_list_.GetCurSel();
        return false;
    }
    if (id == SYSTEM_SETTINGS && code == BN_CLICKED) {
        WinExec("RunDLL32.EXE shell32.dll,Control_RunDLL intl.cpl,,0", SW_SHOWNORMAL);
        return false;
    }
    return prtpage::Command(id, code, value);
}

bool ppRegional::Apply() {
    char language[4];
    UnpackLanguage(language_, language);
    ui_->locale.SetNewLanguage(GetWindow(), language);
    ui_->locale.SetNewUnits(unit_list_.GetCurSel());
    registry_.ForgetFailures();
    ui_->locale.Save(registry_);
    if (registry_.HasFailed()) {
        ReportNotStored(GetString(TEXT_DRIVER_SETTINGS));
        return false;
    }
    return prtpage::Apply();
}

uint32_t ppRegional::GetCurrentCRC32() const {
    CRC32_Calculator checksum(0);
    checksum.CRC32(static_cast<int32_t>(language_));
    return checksum.CRC32(units_);
}
