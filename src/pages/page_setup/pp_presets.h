// The dialog that edits the presets.
#pragma once

#include "settings/preset_list.h"
#include "ui/prtpage.h"
#include "ui/ulist_box.h"

// Adds, renames, describes, updates and deletes presets, and chooses one. All of it happens to a
// copy of the UI object's presets, which takes their place after OK.
class ppPresets : public prtpage {
public:
    static constexpr DLGPROC WinProc = prtpage::WinProcOf<ppPresets>;

    void Refresh(bool all) override;
    bool Command(uint16_t id, uint16_t code, LPARAM value) override;
    void Init() override;
    bool VerifyOkay() override;
    bool Apply() override;
    const char* HelpTopic() override { return "/base/Presets.html"; }

private:
    Preset* PresetAt(int index) const;
    Preset* OnlySelected() const;
    void RefreshList();
    void RefreshFields();
    void AddFromSelection();
    void DeleteSelected();
    void Rename();
    void Describe();
    bool UpdateSettings();
    bool AskForOtherName(Preset& preset);

    UListBox list_;
    PresetList presets_;
    Preset* selected_ = nullptr; // of these, or none
    bool list_changed_ = false;
    bool selection_changed_ = false;
};
