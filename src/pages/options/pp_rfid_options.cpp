#include "pages/options/pp_rfid_options.h"

#include "locale/text_numbers.h"
#include "model/model_records.h"
#include "model/prtmodel.h"

namespace {

enum : uint16_t { kOffset = 701, kRetries = 702, kInvalidLabels = 703, kFailureAction = 704 };

constexpr uint16_t kLabelOfField = 10; // the identifier of a field's label is so much higher
constexpr int kFailureActions = 3;     // TEXT_FIRST_RFID_FAILURE and those after it

const struct {
    uint16_t field;
    uint32_t option;
} kFields[] = {{kOffset, KVRFIDCapabilities::OPTION_OFFSET},
               {kRetries, KVRFIDCapabilities::OPTION_RETRIES},
               {kInvalidLabels, KVRFIDCapabilities::OPTION_INVALID_LABELS},
               {kFailureAction, KVRFIDCapabilities::OPTION_FAILURE_ACTION}};

} // namespace

void ppRFIDOptions::Init() {
    prtpage::Init();
    settings_.Load(registry_);
    offset_ = settings_.GetTransponderOffset();
    retries_ = settings_.GetRetriesPerLabel();
    invalid_labels_ = settings_.GetMaximumInvalidLabels();
    failure_action_ = settings_.GetActionOnError();
}

void ppRFIDOptions::ShowField(uint16_t id) {
    if (id == kOffset) EM_SetMicrons(kOffset, offset_);
    if (id == kRetries) EM_SetInt(kRetries, retries_);
    if (id == kInvalidLabels) EM_SetInt(kInvalidLabels, invalid_labels_);
}

void ppRFIDOptions::Refresh(bool all) {
    if (!all) return;
    CB_ResetContent(kFailureAction);
    for (int i = 0; i < kFailureActions; ++i)
        CB_AddString(kFailureAction, GetString(TEXT_FIRST_RFID_FAILURE + i), i + 1);
    CB_SetCurSelData(kFailureAction, failure_action_);
    const KVRFIDCapabilities* const rfid = GetModel()->GetRFIDCapabilities();
    for (const auto& field : kFields) {
        ShowField(field.field);
        const bool possible = rfid && (rfid->options & field.option);
        WM_Enable(field.field, possible);
        WM_Enable(field.field + kLabelOfField, possible);
    }
}

bool ppRFIDOptions::ReadField(uint16_t id) {
    const KVRFIDCapabilities* const rfid = GetModel()->GetRFIDCapabilities();
    const auto limited = [](int32_t number, int32_t most) {
        prtconfig::validate_range(number, 0, most);
        return number;
    };
    switch (id) {
    case kOffset:
        offset_ = limited(EM_GetMicrons(kOffset), GetModel()->GetPaperLengthMax().Microns());
        return true;
    case kRetries:
        retries_ = limited(EM_GetInt(kRetries), rfid ? rfid->most_retries : 0);
        return true;
    case kInvalidLabels:
        invalid_labels_ = limited(EM_GetInt(kInvalidLabels), rfid ? rfid->most_invalid_labels : 0);
        return true;
    default:
        return false;
    }
}

bool ppRFIDOptions::Command(uint16_t id, uint16_t code, LPARAM value) {
    if (code == EN_UPDATE && ReadField(id)) return false;
    if (code == EN_KILLFOCUS && id >= kOffset && id <= kInvalidLabels) {
        ShowField(id);
        return false;
    }
    if (id == kFailureAction && code == CBN_SELCHANGE) {
        failure_action_ = static_cast<int32_t>(CB_GetCurSelData(kFailureAction));
        return false;
    }
    return prtpage::Command(id, code, value);
}

bool ppRFIDOptions::Apply() {
    settings_.SetTransponderOffset(offset_);
    settings_.SetRetriesPerLabel(retries_);
    settings_.SetMaximumInvalidLabels(invalid_labels_);
    settings_.SetActionOnError(failure_action_);
    settings_.Save(registry_);
    if (settings_.HasFailed()) {
        ReportNotStored(GetString(TEXT_RFID_OPTIONS));
        return false;
    }
    return prtpage::Apply();
}
