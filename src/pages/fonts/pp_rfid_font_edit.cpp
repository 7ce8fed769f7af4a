#include "pages/fonts/pp_rfid_font_edit.h"

#include "locale/text_numbers.h"
#include "model/prtmodel.h"
#include "pages/fonts/font_lists.h"
#include "pages/fonts/font_name.h"
#include "ui/prtui.h"

namespace {

enum : uint16_t {
    kRFIDName = 851,
    kRFIDCharacterSet = 852,
    kRFIDAdjustment = 853,
    kTagType = 854,
    kEncoding = 855,
    kDataFormat = 856,
    kFormatMask = 857,
    kWriteProtect = 858,
    kStartingBlock = 859,
    kStartingBlockLabel = 869
};

// Bits of KVRFIDCapabilities::flags.
constexpr uint32_t kCanProtect = 2;
constexpr uint32_t kCanStartAnywhere = 4;

constexpr int32_t kLongestMask = 127;
constexpr int kExtendedEncoding = 2; // of EPC tags only

constexpr struct {
    const char* name;
    uint32_t tag_type;
} kTagTypes[] = {{"ISO 15693", DataFont_RFID::ISO_15693},
                 {"EPC-64", DataFont_RFID::EPC_64},
                 {"EPC-96", DataFont_RFID::EPC_96},
                 {"Tag-It HF", DataFont_RFID::TAG_IT_HF},
                 {"Tag-It HF-I", DataFont_RFID::TAG_IT_HF_I},
                 {"I-CODE1", DataFont_RFID::I_CODE1},
                 {"I-CODE SLI", DataFont_RFID::I_CODE_SLI},
                 {"Picotag", DataFont_RFID::PICOTAG},
                 {"My-d", DataFont_RFID::MY_D},
                 {"TagSys", DataFont_RFID::TAGSYS},
                 {"ISO 18000-6b", DataFont_RFID::ISO_18000_6B}};

} // namespace

void ppRFIDFontEdit::Init() {
    prtpage::Init();
    if (!ui_->edit_data_font) return;
    font_ = *static_cast<const DataFont_RFID*>(ui_->edit_data_font);
    font_.ValidateRFIDData(GetModel());
}

bool ppRFIDFontEdit::IsEPC() const {
    return font_.GetTagType() == DataFont_RFID::EPC_64 ||
           font_.GetTagType() == DataFont_RFID::EPC_96;
}

// ---- What the dialog shows ----------------------------------------------------------------------

void ppRFIDFontEdit::Refresh(bool all) {
    if (all) {
        ShowFontName(*this, kRFIDName, font_, TEXT_NEW_RFID_FONT);
        FillCharacterSets(*this, kRFIDCharacterSet, font_);
        FillAdjustments(*this, kRFIDAdjustment, font_);
        FillTagTypes();
        EM_LimitText(kFormatMask, kLongestMask);
    }
    if (all || tag_changed_)
        ShowTag();
    else if (format_changed_)
        ShowMask();
    tag_changed_ = format_changed_ = false;
}

void ppRFIDFontEdit::FillTagTypes() {
    const KVRFIDCapabilities* const rfid = GetModel()->GetRFIDCapabilities();
    CB_ResetContent(kTagType);
    for (const auto& tag : kTagTypes)
        if (rfid && (rfid->tag_types & tag.tag_type))
            CB_AddString(kTagType, tag.name, tag.tag_type);
    CB_SetCurSelData(kTagType, font_.GetTagType());
}

void ppRFIDFontEdit::ShowTag() {
    if (!IsEPC() && font_.GetEncoding() == kExtendedEncoding) font_.SetEncoding(1);
    CB_ResetContent(kEncoding);
    const int encodings = IsEPC() ? kExtendedEncoding + 1 : kExtendedEncoding;
    for (int i = 0; i < encodings; ++i)
        CB_AddString(kEncoding, GetString(TEXT_FIRST_ENCODING + i), i);
    CB_SetCurSelData(kEncoding, font_.GetEncoding());
    FillFormats();
    ShowMask();

    const KVRFIDCapabilities* const rfid = GetModel()->GetRFIDCapabilities();
    const uint32_t possible = rfid && !IsEPC() ? rfid->flags : 0;
    if (!(possible & kCanProtect)) font_.SetWriteProtect(false);
    WM_Enable(kWriteProtect, possible & kCanProtect);
    CheckDlgButton(GetWindow(), kWriteProtect,
                   font_.GetWriteProtect() ? BST_CHECKED : BST_UNCHECKED);
    EM_SetInt(kStartingBlock, font_.GetStartingBlock());
    WM_Enable(kStartingBlock, possible & kCanStartAnywhere);
    WM_Enable(kStartingBlockLabel, possible & kCanStartAnywhere);
}

void ppRFIDFontEdit::FillFormats() {
    CB_ResetContent(kDataFormat);
    if (!IsEPC()) {
        font_.ClearFormatMask();
        return;
    }
    if (font_.GetTagType() == DataFont_RFID::EPC_64) {
        CB_AddString(kDataFormat, GetString(TEXT_GENERAL_FORMAT), DataFont_RFID::FORMAT_EPC_64);
        CB_AddString(kDataFormat, "SSCC-64", DataFont_RFID::FORMAT_SSCC_64);
        CB_AddString(kDataFormat, "SGTIN-64", DataFont_RFID::FORMAT_SGTIN_64);
        CB_AddString(kDataFormat, "SGLN-64", DataFont_RFID::FORMAT_SGLN_64);
    } else {
        CB_AddString(kDataFormat, GetString(TEXT_GENERAL_FORMAT), DataFont_RFID::FORMAT_EPC_96);
    }
    CB_AddString(kDataFormat, GetString(TEXT_CUSTOM_FORMAT), DataFont_RFID::FORMAT_CUSTOM);
    CB_SetCurSelData(kDataFormat, font_.GetFormat());
}

void ppRFIDFontEdit::ShowMask() {
    const bool custom = IsEPC() && font_.UpdateFormatMask();
    EM_SetText(kFormatMask, font_.GetFormatMask());
    WM_Enable(kFormatMask, custom);
}

// ---- The user's acts ----------------------------------------------------------------------------

bool ppRFIDFontEdit::TakeChoice(uint16_t list) {
    const LPARAM chosen = CB_GetCurSelData(list);
    switch (list) {
    case kRFIDCharacterSet:
        font_.attributes.char_set = static_cast<uint8_t>(chosen);
        return true;
    case kRFIDAdjustment:
        font_.adjustment = static_cast<int16_t>(chosen);
        return true;
    case kTagType:
        font_.SetDefaults(static_cast<uint32_t>(chosen));
        tag_changed_ = true;
        return true;
    case kEncoding:
        font_.SetEncoding(static_cast<int>(chosen));
        return true;
    case kDataFormat:
        font_.SetFormat(static_cast<uint32_t>(chosen));
        format_changed_ = true;
        return true;
    default:
        return false;
    }
}

bool ppRFIDFontEdit::Command(uint16_t id, uint16_t code, LPARAM value) {
    if (code == CBN_SELCHANGE && TakeChoice(id)) return false;
    if (code == BN_CLICKED && id == kWriteProtect) {
        font_.SetWriteProtect(IsDlgButtonChecked(GetWindow(), id) == BST_CHECKED);
        return false;
    }
    if (code != EN_UPDATE) return prtpage::Command(id, code, value);
    OString text;
    WM_GetText(id, text);
    switch (id) {
    case kRFIDName:
        font_.SetFontName(text);
        return false;
    case kFormatMask:
        font_.SetFormatMask(text);
        return false;
    case kStartingBlock:
        font_.SetStartingBlock(EM_GetInt(id));
        return false;
    default:
        return prtpage::Command(id, code, value);
    }
}

bool ppRFIDFontEdit::VerifyOkay() {
    if (!ui_->edit_data_font) return true;
    if (!VerifyFontName(*this, kRFIDName, font_, TEXT_NEW_RFID_FONT)) return false;
    *static_cast<DataFont_RFID*>(ui_->edit_data_font) = font_;
    return true;
}
