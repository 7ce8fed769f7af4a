#include "pages/advanced/pp_advanced_administration.h"

#include <commdlg.h>

#include "core/crc.h"
#include "locale/text_numbers.h"
#include "model/prtmodel.h"
#include "spooler/platform_flags.h"
#include "ui/prtui.h"
#include "ui/ufile_dialog.h"

namespace {

// Nobody may change the settings.
constexpr int kLevelNobody = USER_LEVEL_ADMIN + 1;

} // namespace

struct ppAdvancedAdministration::Counts {
    int32_t stocks = 0;
    int32_t presets = 0;
    int32_t bar_fonts = 0;
    int32_t rfid_fonts = 0;
    bool options = false;

    Counts& operator+=(const KDSettingsResult& result) {
        stocks += result.stocks;
        presets += result.presets;
        bar_fonts += result.bar_fonts;
        rfid_fonts += result.rfid_fonts;
        options |= result.options != 0;
        return *this;
    }
};

void ppAdvancedAdministration::Init() {
    prtpage::Init();
    if (GetModel()) policy_.emplace(GetModel()->GetPrinterName());
    TakeBackups();
    sharing_.Bind(this, 0);
    sharing_.AddButton(SHARED);
    sharing_.AddButton(NOT_SHARED);
    local_.Bind(this, LOCAL_LEVEL);
    network_.Bind(this, NETWORK_LEVEL);
    contents_.Bind(this, CONTENTS);
}

void ppAdvancedAdministration::TakeBackups() {
    stocks_ = ui_->stocks;
    presets_ = ui_->presets;
    data_fonts_ = ui_->data_fonts;
}

// ---- What the page shows ------------------------------------------------------------------------

void ppAdvancedAdministration::Refresh(bool all) {
    if (all) {
        ReadPolicy();
        FillLevels();
        FillContents();
    }
    if (all || contents_changed_) {
        const bool any = contents_.GetSelectedCount() > 0;
        WM_Enable(EXPORT, any);
        WM_Enable(IMPORT, any);
        contents_changed_ = false;
    }
    if (all || access_changed_) {
        if (winNT) {
            const bool may_set = user_.GetLevel() == USER_LEVEL_ADMIN;
            local_.Enable(may_set);
            network_.Enable(may_set);
        }
        access_changed_ = false;
    }
    if (!IsRestricted()) return;
    // Exporting stays possible.
    for (const int id : {IMPORT, LOCAL_LEVEL, NETWORK_LEVEL, SHARING_FRAME, LEVELS_FRAME,
                         LOCAL_LABEL, NETWORK_LABEL})
        WM_Enable(id, false);
    sharing_.Enable(false);
}

void ppAdvancedAdministration::ReadPolicy() {
    shared_ = shared_before_ = policy_->IsNetworkShared();
    local_level_ = static_cast<int16_t>(policy_->GetLocalAccessLevel());
    network_level_ = static_cast<int16_t>(policy_->GetNetworkAccessLevel());
    sharing_.SetCurSel(shared_ ? 0 : 1);
    sharing_.Enable(policy_->CanShareNetwork());
}

void ppAdvancedAdministration::FillLevels() {
    local_.ResetContent();
    network_.ResetContent();
    if (!winNT) {
        local_.AddString(GetString(TEXT_USERS), USER_LEVEL_USER);
        network_.AddString(GetString(TEXT_NOBODY), kLevelNobody);
        for (UComboBox* const list : {&local_, &network_}) {
            list->SetCurSel(0);
            list->Enable(false);
        }
        return;
    }
    static constexpr struct {
        int text;
        int level;
    } kLevels[] = {{TEXT_ADMINISTRATORS, USER_LEVEL_ADMIN},
                   {TEXT_POWER_USERS, USER_LEVEL_POWER},
                   {TEXT_USERS, USER_LEVEL_USER},
                   {TEXT_EVERYONE, USER_LEVEL_NONE}};
    network_.AddString(GetString(TEXT_NOBODY), kLevelNobody);
    for (const auto& level : kLevels) {
        local_.AddString(GetString(level.text), level.level);
        network_.AddString(GetString(level.text), level.level);
    }
    // Users of other computers never may more than those of this one.
    if (network_level_ < local_level_) network_level_ = local_level_;
    local_.SetCurSelData(local_level_);
    network_.SetCurSelData(network_level_);
}

void ppAdvancedAdministration::FillContents() {
    contents_.ResetContent();
    contents_.AddString(GetString(TEXT_DRIVER_SETTINGS), SETTINGS_OPTIONS);
    contents_.AddString(GetString(TEXT_STOCK_CONTENTS), SETTINGS_STOCKS);
    contents_.AddString(GetString(TEXT_PRESET_CONTENTS), SETTINGS_PRESETS);
    contents_.AddString(GetString(TEXT_BAR_FONT_CONTENTS), SETTINGS_BAR_FONTS);
    if (GetModel()->HasRFID())
        contents_.AddString(GetString(TEXT_RFID_FONT_CONTENTS), SETTINGS_RFID_FONTS);
    contents_.SelectRange(0, contents_.GetCount() - 1, true);
}

// ---- The user's acts ----------------------------------------------------------------------------

bool ppAdvancedAdministration::Command(uint16_t id, uint16_t code, LPARAM value) {
    if (code == BN_CLICKED) {
        switch (id) {
        case SHARED:
        case NOT_SHARED:
            shared_ = sharing_.GetCurSel() == 0;
            access_changed_ = true;
            return false;
        case EXPORT:
            Export();
            return false;
        case IMPORT:
            Import();
            return false;
        default:
            break;
        }
    }
    static_assert(CBN_SELCHANGE == LBN_SELCHANGE);
    if (code == CBN_SELCHANGE) {
        switch (id) {
        case LOCAL_LEVEL:
            local_level_ = static_cast<int16_t>(local_.GetCurSelData());
            access_changed_ = true;
            return false;
        case NETWORK_LEVEL:
            network_level_ = static_cast<int16_t>(network_.GetCurSelData());
            access_changed_ = true;
            return false;
        case CONTENTS:
            contents_changed_ = true;
            return false;
        default:
            break;
        }
    }
    return prtpage::Command(id, code, value);
}

int ppAdvancedAdministration::GetSettingsFilter() const {
    OTypedArray<int> selected;
    contents_.GetSelected(selected);
    int filter = 0;
    for (int i = 0; i < selected.GetSize(); ++i)
        filter |= static_cast<int>(contents_.GetData(selected[i]));
    return filter != 0 ? filter : -1;
}

void ppAdvancedAdministration::Export() {
    UFileDialog dialog(*this, registry_, TEXT_SETTINGS_FILES);
    dialog.AddFilter(TEXT_SETTINGS_FILTER, "*.kds");
    dialog.SetExtension("kds");
    if (!dialog.Browse(UFileDialog::SAVE)) return;
    KDSettingsResult result = {};
    ui_->Settings_Export(dialog.GetPath().wstring(), GetSettingsFilter(), &result);
    Counts counts;
    ShowCounts(counts += result, TEXT_EXPORTED);
}

void ppAdvancedAdministration::Import() {
    UFileDialog dialog(*this, registry_, TEXT_SETTINGS_FILES);
    dialog.AddFilter(TEXT_SETTINGS_FILTER, "*.kds");
    dialog.AddFilter(TEXT_OLD_SETTINGS_FILTER, "*.kfm;*.kbf;*.kpr;*.kdm");
    dialog.AddFlags(OFN_ALLOWMULTISELECT);
    if (!dialog.Browse(UFileDialog::OPEN)) return;
    OStringArray files;
    dialog.GetPaths(files);
    const int filter = GetSettingsFilter();
    Counts counts;
    for (int i = 0; i < files.GetSize(); ++i) {
        KDSettingsResult result = {};
        ui_->Settings_Import(files[i].wstring(), filter, &result);
        counts += result;
    }
    ShowCounts(counts, TEXT_IMPORTED);
    if (counts.options) WM_QuerySiblings(REFRESH, TRUE);
}

void ppAdvancedAdministration::ShowCounts(const Counts& counts, int title) {
    OString text = GetString(TEXT_DRIVER_SETTINGS);
    text << ": " << GetString(counts.options ? TEXT_YES : TEXT_NO) << endl;
    text << GetString(TEXT_STOCK_CONTENTS) << ": " << counts.stocks << endl;
    text << GetString(TEXT_PRESET_CONTENTS) << ": " << counts.presets << endl;
    text << GetString(TEXT_BAR_FONT_CONTENTS) << ": " << counts.bar_fonts << endl;
    if (GetModel()->HasRFID())
        text << GetString(TEXT_RFID_FONT_CONTENTS) << ": " << counts.rfid_fonts << endl;
    Message(text, GetString(title), MB_OK | MB_ICONINFORMATION);
}

// ---- Storing ------------------------------------------------------------------------------------

bool ppAdvancedAdministration::Apply() {
    OString lost;
    ui_->presets.Sort();
    if (ui_->Settings_Save())
        TakeBackups();
    else
        lost << GetString(TEXT_STOCK_CONTENTS) << "\n"
             << GetString(TEXT_PRESET_CONTENTS) << "\n"
             << GetString(TEXT_BAR_FONT_CONTENTS);
    if (!IsRestricted() && !StorePolicy()) {
        if (!lost.IsEmpty()) lost << "\n";
        lost << GetString(TEXT_DRIVER_SETTINGS);
    }
    if (!lost.IsEmpty()) {
        ReportNotStored(lost);
        return false;
    }
    return prtpage::Apply();
}

bool ppAdvancedAdministration::StorePolicy() {
    bool stored = true;
    if (policy_->CanShareNetwork()) {
        policy_->SetNetworkSharing(shared_);
        stored = policy_->IsNetworkShared() == shared_;
        // From now on the server's settings are in use. They must not be replaced by those that
        // this computer had while it kept its own; the save before was the last to send these.
        if (shared_ && !shared_before_) ui_->commit_shadow = false;
    }
    policy_->SetLocalAccessLevel(local_level_);
    policy_->SetNetworkAccessLevel(network_level_);
    return stored && policy_->GetLocalAccessLevel() == local_level_ &&
           policy_->GetNetworkAccessLevel() == network_level_;
}

// The sheet that this page's sheet lies over goes on, so the UI object's own Cancel does not run.
void ppAdvancedAdministration::Cancel() {
    ui_->stocks = stocks_;
    ui_->presets = presets_;
    ui_->data_fonts = data_fonts_;
}

uint32_t ppAdvancedAdministration::GetCurrentCRC32() const {
    uint32_t crc = ui_->stocks.GetCRC32(0);
    crc = ui_->presets.GetCRC32(crc);
    CRC32_Calculator checksum(ui_->data_fonts.GetCRC32(crc));
    checksum.CRC32(static_cast<char>(shared_));
    checksum.CRC32(local_level_);
    return checksum.CRC32(network_level_);
}
