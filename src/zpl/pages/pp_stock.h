// The page for the label material and what a ZPL II printer does with a label.
#pragma once

#include "ui/prtpage.h"
#include "ui/ucheck_box.h"
#include "ui/ucombo_box.h"
#include "ui/uedit.h"
#include "ui/utrigger.h"

struct CustomData;
struct extconfig;
class extmodel;

// Media type and tracking, print mode with the options of its cutter or its pauses, backfeed, and
// the offsets of label top and tear-off position.
class ppStock : public prtpage {
public:
    static constexpr DLGPROC WinProc = prtpage::WinProcOf<ppStock>;

    void Refresh(bool all) override;
    bool Command(uint16_t id, uint16_t code, LPARAM value) override;
    void Init() override;
    const char* HelpTopic() override { return "/zpl/Stock.html"; }

private:
    extconfig& Config() const;
    const extmodel& Model() const;
    bool Has(uint32_t flag) const; // of the model's custom data

    void FillMedia();
    void FillPrintModes();
    void RefreshPrintMode();
    void RefreshCutOptions();
    void RefreshPauseOptions();
    void ShowCount(bool shown, bool enabled);
    void RefreshBackfeed();
    void RefreshLabelTop();
    void RefreshTearOff();

    bool Chosen(uint16_t id);
    void Typed(uint16_t id);
    bool Left(uint16_t id);
    bool Clicked(uint16_t id);
    void SetFlag(uint16_t flag, bool on);

    const CustomData* data_ = nullptr;
    UComboBox media_type_;
    UComboBox media_tracking_;
    UComboBox print_mode_;
    UComboBox backfeed_;
    UCheckBox label_top_sent_;
    UEdit label_top_;
    UCheckBox tear_off_sent_;
    UEdit tear_off_;
    bool cuts_ = false; // the cutter's options are shown

    // What the next refresh brings up to date.
    UTrigger print_mode_changed_;
    UTrigger backfeed_changed_;
    UTrigger label_top_changed_;
    UTrigger tear_off_changed_;
};
