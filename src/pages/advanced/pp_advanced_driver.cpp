#include "pages/advanced/pp_advanced_driver.h"

#include <algorithm>

#include "core/crc.h"
#include "locale/text_numbers.h"
#include "model/driver_settings.h"
#include "model/prtmodel.h"
#include "pages/page_setup/field_values.h"
#include "ui/prtui.h"

void ppAdvancedDriver::Init() {
    prtpage::Init();
    option_box_.Bind(this, OPTION);
    no_limit_box_.Bind(this, NO_COPIES_LIMIT);
    if (config_) {
        option_ = (config_->flags & prtconfig::FLAG_OPTION) != 0;
        option_length_ = config_->option_length;
    }
    copies_ = static_cast<int16_t>(devmode_.GetCopies());
    DriverSettings settings;
    settings.Load(registry_);
    no_copies_limit_ = settings.GetDisableCopiesLimit();
}

int32_t ppAdvancedDriver::MostCopies() const {
    return no_copies_limit_ ? INT16_MAX : GetModel()->GetMaxCopies();
}

void ppAdvancedDriver::Refresh(bool all) {
    if (all) {
        option_box_.Check(option_);
        no_limit_box_.Check(no_copies_limit_);
    }
    if (all || option_changed_) {
        const bool special =
            config_->is_24bit_device() && !(config_->dither.flags & dithercfg::FLAG_DEFAULT);
        option_box_.Enable(!special);
        WM_Enable(OPTION_LENGTH_LABEL, option_ && !special);
        WM_Enable(OPTION_LENGTH, option_ && !special);
        option_changed_ = false;
    }
    if (all || length_changed_) {
        EM_SetMicrons(OPTION_LENGTH, option_length_);
        length_changed_ = false;
    }
    if (all || copies_changed_) {
        EM_SetInt(COPIES, copies_);
        EM_AddUpDownInt(COPIES, 1, MostCopies());
        copies_changed_ = false;
    }
    if (IsRestricted()) WM_EnableAll(false, 0, 0);
}

bool ppAdvancedDriver::Command(uint16_t id, uint16_t code, LPARAM value) {
    if (id == COPIES && code == EN_UPDATE) {
        copies_ = static_cast<int16_t>(fitrange(EM_GetInt(COPIES), 1, MostCopies()));
        return true;
    }
    if (id == COPIES && code == EN_KILLFOCUS) {
        copies_changed_ = true;
        return false;
    }
    if (id == OPTION_LENGTH && code == EN_UPDATE) {
        option_length_ = std::max(0, EM_GetMicrons(OPTION_LENGTH));
        return true;
    }
    if (id == OPTION_LENGTH && code == EN_KILLFOCUS) {
        length_changed_ = true;
        return false;
    }
    if (id == OPTION && code == BN_CLICKED) {
        option_ = option_box_.IsChecked();
        option_changed_ = true;
        return false;
    }
    if (id == NO_COPIES_LIMIT && code == BN_CLICKED) {
        no_copies_limit_ = no_limit_box_.IsChecked();
        copies_changed_ = true;
        return false;
    }
    return prtpage::Command(id, code, value);
}

bool ppAdvancedDriver::Apply() {
    const int flags = option_ ? config_->flags | prtconfig::FLAG_OPTION
                              : config_->flags & ~prtconfig::FLAG_OPTION;
    config_->flags = static_cast<uint16_t>(flags);
    config_->option_length = option_length_;
    devmode_.SetCopies(copies_);
    DriverSettings settings;
    settings.Load(registry_);
    const bool is_new = no_copies_limit_ != settings.GetDisableCopiesLimit();
    settings.SetDisableCopiesLimit(no_copies_limit_);
    settings.Save(registry_);
    GetModel()->FlushDataCache();
    // Users who may not change the printer can still store their document's options.
    if (is_new && settings.HasFailed()) {
        ReportNotStored(GetString(TEXT_DRIVER_SETTINGS));
        return false;
    }
    return prtpage::Apply();
}

uint32_t ppAdvancedDriver::GetCurrentCRC32() const {
    CRC32_Calculator checksum(0);
    checksum.CRC32(static_cast<char>(option_));
    checksum.CRC32(option_length_);
    checksum.CRC32(copies_);
    return checksum.CRC32(static_cast<char>(no_copies_limit_));
}
