// The page that chooses what a document is printed on and how it lies there.
#pragma once

#include "ui/prtpage.h"
#include "ui/ucheck_box.h"
#include "ui/ucombo_box.h"
#include "ui/uradio_button.h"

class Preset;
class Stock;

// Stock, preset, orientation, mirror and negative image, with a preview. Stocks are edited here,
// presets in a dialog; both lists are stored when the page is applied, and count for its changes.
class ppPageSetup : public prtpage {
public:
    static constexpr DLGPROC WinProc = prtpage::WinProcOf<ppPageSetup>;

    void Refresh(bool all) override;
    bool Command(uint16_t id, uint16_t code, LPARAM value) override;
    void Init() override;
    bool Apply() override;
    uint32_t GetCurrentCRC32() const override;
    bool SetActive() override;
    bool PaletteChange(UINT message, WPARAM first, LPARAM second) override;
    const char* HelpTopic() override { return "/base/PageSetup.html"; }

private:
    enum Control : int {
        NOTICE = 317,
        SECOND_NOTICE = 318,
        NEGATIVE = 348,
        MIRROR = 352,
        FIRST_ORIENTATION = 355,
        LAST_ORIENTATION = 358,
        PREVIEW = 362,
        DELETE_STOCK = 383,
        EDIT_STOCK = 384,
        NEW_STOCK = 391,
        ADVANCED = 506,
        STOCKS = 512,
        EDIT_PRESETS = 513,
        PRESETS = 514
    };

    OString GetPaperName(const Stock* stock) const;
    void RefreshFirst();
    void RefreshNotices();
    void RefreshStocks();
    void RefreshStockButtons(bool all);
    void RefreshPreview();
    void RefreshPresets(bool all);
    void RefreshRestrictions();

    bool Click(uint16_t id);
    bool ChooseStock();
    bool ChoosePreset();
    void DeleteStock();
    void EditStock();
    void NewStock();
    bool RunStockDialog(Stock& copy, const Stock* original);
    void EditPresets();
    void UseStock();

    UComboBox stocks_;
    UComboBox presets_;
    URadioButton orientation_;
    UCheckBox mirror_;
    UCheckBox negative_;
    Stock* stock_ = nullptr;   // of the UI object's lists
    Preset* preset_ = nullptr; // or none
    bool first_display_ = false;
    // What the next refresh brings up to date.
    bool stocks_changed_ = false;
    bool stock_chosen_ = false;
    bool presets_changed_ = false;
    bool find_preset_ = false;
    bool draw_preview_ = false;
};
