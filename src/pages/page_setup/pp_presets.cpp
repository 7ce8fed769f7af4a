#include "pages/page_setup/pp_presets.h"

#include <memory>

#include "locale/text_numbers.h"
#include "pages/page_setup/field_values.h"
#include "ui/prtui.h"

namespace {

enum PresetControl : int {
    PRESET_LIST = 589,
    PRESET_NEW = 590,
    PRESET_DELETE = 591,
    PRESET_NAME_LABEL = 592,
    PRESET_NAME = 593,
    PRESET_DESCRIPTION_LABEL = 594,
    PRESET_DESCRIPTION = 595,
    PRESET_UPDATE = 599
};

constexpr int32_t kLongestPresetName = 64;
constexpr int32_t kLongestDescription = 4096;

// Both texts byte by byte in their code pages.
bool SameBytes(const OString& a, const OString& b) {
    return a == b.nstring();
}

} // namespace

void ppPresets::Init() {
    prtpage::Init();
    list_.Bind(this, PRESET_LIST);
    presets_ = ui_->presets;
    selected_ = presets_.Find(ui_->devmode);
    if (!selected_) selected_ = presets_.GetCurrentSettings();
    // What was edited since the sheet opened must not be lost when this preset is confirmed, and it
    // comes back when the preset is chosen again after another one.
    if (selected_ && selected_->GetBuiltIn() & Preset::CURRENT_SETTINGS)
        selected_->SetDevMode(ui_->devmode.GetDevMode());
}

// ---- What the dialog shows ----------------------------------------------------------------------

Preset* ppPresets::PresetAt(int index) const {
    return reinterpret_cast<Preset*>(list_.GetData(index));
}

Preset* ppPresets::OnlySelected() const {
    OTypedArray<int> items;
    list_.GetSelected(items);
    return items.GetSize() == 1 ? PresetAt(items[0]) : nullptr;
}

void ppPresets::Refresh(bool all) {
    if (all) {
        EM_LimitText(PRESET_NAME, kLongestPresetName);
        EM_LimitText(PRESET_DESCRIPTION, kLongestDescription);
    }
    if (all || list_changed_) RefreshList();
    if (all || selection_changed_) RefreshFields();
}

void ppPresets::RefreshList() {
    list_.ResetContent();
    for (Preset* preset = presets_.GetNext(nullptr); preset; preset = presets_.GetNext(preset)) {
        const int index = list_.AddString(preset->GetName(), reinterpret_cast<LPARAM>(preset));
        if (preset == selected_) list_.Select(index, true);
    }
    list_changed_ = false;
}

void ppPresets::RefreshFields() {
    EM_SetText(PRESET_NAME, selected_ ? selected_->GetName() : OString());
    EM_SetText(PRESET_DESCRIPTION, selected_ ? selected_->GetDescription() : OString());
    WM_Enable(PRESET_NEW, selected_ != nullptr);
    const bool editable = selected_ && selected_->GetBuiltIn() == 0;
    for (const int id : {PRESET_NAME_LABEL, PRESET_NAME, PRESET_DESCRIPTION_LABEL,
                         PRESET_DESCRIPTION, PRESET_UPDATE})
        WM_Enable(id, editable);
    OTypedArray<int> items;
    list_.GetSelected(items);
    bool deletable = items.GetSize() > 0;
    for (int i = 0; i < items.GetSize(); ++i)
        deletable = deletable && PresetAt(items[i])->GetBuiltIn() == 0;
    WM_Enable(PRESET_DELETE, deletable);
    selection_changed_ = false;
}

// ---- The user's acts ----------------------------------------------------------------------------

bool ppPresets::Command(uint16_t id, uint16_t code, LPARAM) {
    if (id == PRESET_LIST && code == LBN_SELCHANGE) {
        selected_ = OnlySelected();
        selection_changed_ = true;
        return false;
    }
    if (id == PRESET_NAME && code == EN_UPDATE) Rename();
    if (id == PRESET_DESCRIPTION && code == EN_UPDATE) Describe();
    if (code != BN_CLICKED) return true;
    switch (id) {
    case PRESET_NEW:
        AddFromSelection();
        return false;
    case PRESET_DELETE:
        DeleteSelected();
        return false;
    case PRESET_UPDATE:
        return !UpdateSettings();
    default:
        return true;
    }
}

void ppPresets::AddFromSelection() {
    const Preset* const source = OnlySelected();
    if (!source) return;
    std::unique_ptr<Preset> copy(new (kCounted) Preset(*source));
    if (!copy) return;
    copy->SetPriority(0);
    if (source->GetBuiltIn() & Preset::CURRENT_SETTINGS)
        copy->SetDevMode(ui_->devmode.GetDevMode());
    if (source->GetBuiltIn() != 0) {
        copy->SetName(GetString(TEXT_NEW_PRESET));
        copy->SetDescription(OString());
        copy->SetBuiltIn(0);
    }
    selected_ = copy.release();
    presets_.AddTail_UniqueName(selected_, true);
    presets_.Sort();
    list_changed_ = selection_changed_ = true;
}

void ppPresets::DeleteSelected() {
    for (int index = list_.GetCount() - 1; index >= 0; --index) {
        Preset* const preset = PresetAt(index);
        if (!list_.IsSelected(index) || preset->GetBuiltIn() != 0) continue;
        list_.DeleteString(index);
        delete preset; // leaves its list
    }
    selected_ = presets_.GetCurrentSettings();
    const int index = list_.FindData(reinterpret_cast<LPARAM>(selected_));
    if (selected_ && index >= 0) list_.Select(index, true);
    selection_changed_ = true;
}

void ppPresets::Rename() {
    OString name;
    WM_GetText(PRESET_NAME, name);
    name = Trimmed(name);
    if (!selected_ || SameBytes(name, selected_->GetName())) return;
    selected_->SetName(name);
    if (name.IsEmpty()) {
        // Without a name it would move to the front of the list while the user types.
        list_.SetString(list_.FindData(reinterpret_cast<LPARAM>(selected_)), name);
        return;
    }
    presets_.Sort();
    list_changed_ = true;
    WM_Refresh(false);
}

void ppPresets::Describe() {
    OString description;
    WM_GetText(PRESET_DESCRIPTION, description);
    if (selected_) selected_->SetDescription(description);
}

bool ppPresets::UpdateSettings() {
    if (!selected_) return false;
    OString question;
    question.Format(GetString(TEXT_UPDATE_PRESET).wstring(), selected_->GetName().wstring());
    const int answer =
        Message(question, GetString(TEXT_UPDATE_PRESET_TITLE), MB_OKCANCEL | MB_ICONQUESTION);
    if (answer == IDOK) selected_->SetDevMode(ui_->devmode.GetDevMode());
    return true;
}

// ---- The end ------------------------------------------------------------------------------------

bool ppPresets::AskForOtherName(Preset& preset) {
    OString other = preset.GetName();
    other.NextUnique(true);
    OString question;
    question.Format(GetString(TEXT_SAME_PRESET_NAMES).wstring(), preset.GetName().wstring(),
                    other.wstring());
    if (Message(question, GetString(TEXT_SAME_PRESET_NAMES_TITLE), MB_YESNO | MB_ICONEXCLAMATION) !=
        IDYES)
        return false;
    preset.SetName(other);
    return true;
}

bool ppPresets::VerifyOkay() {
    for (Preset* preset = presets_.GetNext(nullptr); preset; preset = presets_.GetNext(preset))
        if (preset->GetName().IsEmpty()) preset->SetName(GetString(TEXT_NEW_PRESET));
    Preset* first = presets_.GetNext(nullptr);
    while (first) {
        Preset* same = presets_.GetNext(first);
        while (same && !(same->GetName() == first->GetName())) same = presets_.GetNext(same);
        if (!same) {
            first = presets_.GetNext(first);
        } else if (AskForOtherName(*same)) {
            first = presets_.GetNext(nullptr);
        } else {
            selected_ = same;
            WM_Refresh(true);
            WM_SetFocus(PRESET_NAME);
            return false;
        }
    }
    return true;
}

bool ppPresets::Apply() {
    if (!prtpage::Apply()) return false;
    if (selected_) {
        devmode_ = selected_->GetDevMode();
        devmode_.SetPresetName(selected_->GetName().wstring());
    }
    ui_->presets = presets_;
    return true;
}
