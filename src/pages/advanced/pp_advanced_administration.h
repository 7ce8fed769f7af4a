// The page that decides who may change a printer's settings, and exports and imports them.
#pragma once

#include <cstdint>
#include <optional>

#include "fonts/data_font_manager.h"
#include "keys/network_policy.h"
#include "keys/user_info.h"
#include "settings/preset_list.h"
#include "settings/stock_list.h"
#include "ui/prtpage.h"
#include "ui/ucombo_box.h"
#include "ui/ulist_box.h"
#include "ui/uradio_button.h"

// Imported stocks, presets and fonts are in the UI object's lists at once and are stored when the
// page is applied. Cancel puts back the lists of the last Apply; pages outside of this page's sheet
// that refer to them must be refreshed after it. Imported driver settings take effect at once.
class ppAdvancedAdministration : public prtpage {
public:
    static constexpr DLGPROC WinProc = prtpage::WinProcOf<ppAdvancedAdministration>;

    void Refresh(bool all) override;
    bool Command(uint16_t id, uint16_t code, LPARAM value) override;
    void Init() override;
    bool Apply() override;
    void Cancel() override;
    uint32_t GetCurrentCRC32() const override;
    const char* HelpTopic() override { return "/base/Advanced_Administration.html"; }

private:
    enum Control : int {
        IMPORT = 600,
        CONTENTS = 601,
        EXPORT = 602,
        SHARED = 679,
        NOT_SHARED = 680,
        LOCAL_LEVEL = 681,
        NETWORK_LEVEL = 682,
        SHARING_FRAME = 683,
        LEVELS_FRAME = 686,
        LOCAL_LABEL = 687,
        NETWORK_LABEL = 688
    };

    // How much was exported or imported, from all files.
    struct Counts;

    void TakeBackups();
    void ReadPolicy();
    void FillLevels();
    void FillContents();
    // The chosen contents, SETTINGS_ bits, or -1 for all of them if none is.
    int GetSettingsFilter() const;
    void Export();
    void Import();
    void ShowCounts(const Counts& counts, int title);
    bool StorePolicy();

    std::optional<NetworkPolicy> policy_; // since Init
    const UserInfo user_;
    bool shared_ = false;
    bool shared_before_ = false; // at the last full refresh
    int16_t local_level_ = 0;
    int16_t network_level_ = 0;
    StockList stocks_;
    PresetList presets_;
    DataFontManager data_fonts_;

    URadioButton sharing_;
    UComboBox local_;
    UComboBox network_;
    UListBox contents_;
    // What the next refresh brings up to date.
    bool contents_changed_ = false;
    bool access_changed_ = false;
};
