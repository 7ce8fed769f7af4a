#include "pages/cache/pp_cache_settings.h"

#include "core/crc.h"
#include "model/prtmodel.h"
#include "ui/prtui.h"

namespace {

enum : uint16_t {
    kCacheMemory = 641,
    kFormatLocation = 644,
    kGraphicsLocation = 647,
    kResetCacheSettings = 648,
    kFormatLocationLabel = 653,
    kGraphicsLocationLabel = 656
};

// The number fields, with the labels before them.
enum class CachedKind { FORMAT, GRAPHIC };
constexpr struct CacheNumberField {
    uint16_t field;
    uint16_t label;
    CachedKind kind;
    uint32_t KVCacheSettings::*number;
    void (*set)(KVCacheSettings& settings, const CacheParameters& parameters, int32_t number);
} kCacheNumbers[] = {
    {642, 651, CachedKind::FORMAT, &KVCacheSettings::first_format, SetFirstFormat},
    {643, 652, CachedKind::FORMAT, &KVCacheSettings::last_format, SetLastFormat},
    {645, 654, CachedKind::GRAPHIC, &KVCacheSettings::first_graphic, SetFirstGraphic},
    {646, 655, CachedKind::GRAPHIC, &KVCacheSettings::last_graphic, SetLastGraphic}};

bool CanCache(const prtmodel& model, CachedKind kind) {
    return kind == CachedKind::FORMAT ? model.CanCacheFormats() : model.CanCacheGraphics();
}

} // namespace

void ppCacheSettings::Init() {
    prtpage::Init();
    if (!config_) return;
    ui_->GetCacheParameters(parameters_);
    ReadCacheSettings(*ui_->stream, settings_);
}

// ---- What the page shows ------------------------------------------------------------------------

void ppCacheSettings::Refresh(bool all) {
    if (all) FillLists();
    ShowFields();
}

void ppCacheSettings::FillLists() {
    const prtmodel& model = *GetModel();
    FillLocations(kFormatLocation, kFormatLocationLabel, model.CanCacheFormats(),
                  parameters_.format_locations, parameters_.format_location_names);
    FillLocations(kGraphicsLocation, kGraphicsLocationLabel, model.CanCacheGraphics(),
                  parameters_.graphics_locations, parameters_.graphics_location_names);
    for (const CacheNumberField& number : kCacheNumbers) {
        WM_Enable(number.field, CanCache(model, number.kind));
        WM_Enable(number.label, CanCache(model, number.kind));
    }
}

void ppCacheSettings::FillLocations(int list, int label, bool possible,
                                    const OTypedArray<int32_t>& letters,
                                    const OStringArray& names) {
    CB_ResetContent(list);
    for (int i = 0; possible && i < letters.GetSize(); ++i)
        CB_AddString(list, names[i], letters[i]);
    WM_Enable(list, CB_GetCount(list) > 1);
    WM_Enable(label, CB_GetCount(list) > 0);
}

void ppCacheSettings::ShowFields() {
    if (typed_field_ != kCacheMemory)
        EM_SetInt(kCacheMemory, static_cast<int32_t>(settings_.memory / 1024));
    for (const CacheNumberField& number : kCacheNumbers) {
        if (typed_field_ == number.field) continue;
        if (CanCache(*GetModel(), number.kind))
            EM_SetInt(number.field, static_cast<int32_t>(settings_.*number.number));
        else
            EM_SetText(number.field, OString());
    }
    ShowLocation(kFormatLocation, settings_.format_location);
    ShowLocation(kGraphicsLocation, settings_.graphics_location);
}

void ppCacheSettings::ShowLocation(int list, uint32_t letter) {
    // A memory that is not offered stays as it is until another one is chosen.
    if (!CB_SetCurSelData(list, static_cast<LPARAM>(letter))) CB_SetCurSel(list, -1);
}

// ---- The user's acts ----------------------------------------------------------------------------

bool ppCacheSettings::ReadField(uint16_t id) {
    const CacheNumberField* field = nullptr;
    for (const CacheNumberField& number : kCacheNumbers)
        if (number.field == id) field = &number;
    if (!field && id != kCacheMemory) return false;
    if (typed_field_ != id) before_typing_ = settings_;
    typed_field_ = id;
    settings_ = before_typing_;
    if (field)
        field->set(settings_, parameters_, EM_GetInt(id));
    else
        SetCacheMemory(settings_, parameters_, EM_GetInt(id));
    return true;
}

bool ppCacheSettings::Command(uint16_t id, uint16_t code, LPARAM value) {
    if (code == EN_UPDATE && ReadField(id)) return false;
    if (code == EN_KILLFOCUS && typed_field_ == id) {
        typed_field_ = 0;
        return false;
    }
    if (code == CBN_SELCHANGE && (id == kFormatLocation || id == kGraphicsLocation)) {
        typed_field_ = 0;
        const auto letter = static_cast<uint32_t>(CB_GetCurSelData(id));
        (id == kFormatLocation ? settings_.format_location : settings_.graphics_location) = letter;
        return false;
    }
    if (code == BN_CLICKED && id == kResetCacheSettings) {
        typed_field_ = 0;
        ResetCacheSettings(*ui_->stream, settings_);
        return false;
    }
    return prtpage::Command(id, code, value);
}

// ---- The end ------------------------------------------------------------------------------------

bool ppCacheSettings::Apply() {
    WriteCacheSettings(*ui_->stream, settings_);
    typed_field_ = 0;
    return prtpage::Apply();
}

uint32_t ppCacheSettings::GetCurrentCRC32() const {
    return CRC32(&settings_, sizeof settings_, 0);
}
