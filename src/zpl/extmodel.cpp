#include "zpl/extmodel.h"

#include <cstring>

#include "core/memory.h"

// The framework knows that there is a printer language, but not which. It is chosen here.
prtmodel* prtmodel::new_ext(const PrinterInfo& printer) {
    prtmodel* model = new (kCounted) extmodel;
    if (model && !model->Initialize(printer)) {
        delete model;
        model = nullptr;
    }
    return model;
}

// ---- Capability records -------------------------------------------------------------------------

void extmodel::GetClockCapabilities(KVClockCapabilities*& record) const {
    if (___msize(record) < sizeof *record) return;
    record->value4 = 0x1010F;
    record->value8 = 0x2502EA;
    record->value12 = 0x1011A;
    record->value20 = 119;
}

void extmodel::GetTemplateCapabilities(KVTemplateCapabilities*& record) const {
    static const char pattern[] = "[A-Za-z][A-Za-z0-9]{0,7}\\.ZPL";
    const size_t end = ___msize(record);
    if (end < sizeof *record || end > 0xFFFF) return;
    record->value4 = 3;
    record->value8 = 3;
    record->value12 = 4;
    record->value14 = 4;
    void* longer = ___realloc(record, end + sizeof pattern);
    if (!longer) return;
    std::memcpy(static_cast<char*>(longer) + end, pattern, sizeof pattern);
    record = static_cast<KVTemplateCapabilities*>(longer);
    record->name_pattern_offset = static_cast<uint16_t>(end);
}

void extmodel::GetRFIDCapabilities(KVRFIDCapabilities*& record) const {
    static const struct {
        const char* name;
        uint32_t bit;
    } known[] = {{"EPC64", 0x01},    {"EPC96", 0x02},  {"TagIt", 0x04},
                 {"ISO15693", 0x08}, {"ICode1", 0x10}, {"Picotag", 0x20}};

    OStringArray types;
    GetRFIDTagTypes(types);
    if (types.GetSize() == 0 || ___msize(record) < sizeof *record) return;
    record->flags = 7;
    for (int i = 0; i < types.GetSize(); ++i)
        for (const auto& type : known)
            if (types[i] == type.name) record->tag_types |= type.bit;
    record->options = KVRFIDCapabilities::OPTION_OFFSET | KVRFIDCapabilities::OPTION_RETRIES;
    record->value16 = 1;
    record->value20 = 0xE0000000;
    record->most_retries = 10;
}

// ---- Features -----------------------------------------------------------------------------------

bool extmodel::IsPPLZ() const {
    return GetPropertyBool("Model", "~ArgoxPPLZ", false);
}

bool extmodel::HasPowerOptions() const {
    return GetPropertyBool("Features", "~Options.Power", false);
}

bool extmodel::HasApplicatorMode() const {
    return GetPropertyBool("Features", "~Mode.Applicator", false);
}

bool extmodel::HasPeelOffMode() const {
    return GetPropertyBool("Features", "~Mode.PeelOff", false);
}

bool extmodel::HasMemoryInitializeCommand() const {
    return GetPropertyBool("Features", "~Command.JB", false);
}

bool extmodel::HasConfigurationLabelCommand() const {
    return GetPropertyBool("Features", "~Command.HH", false);
}

OString extmodel::GetDefaultMemoryLocation() const {
    return GetPropertyString("Features", "~Memory.DefaultLocation", "R");
}

void extmodel::GetMemoryLocations(OStringArray& locations) const {
    GetPropertyStringArray("Features", "~Memory.Options", locations);
    locations.Add("R");
}

void extmodel::GetRFIDTagTypes(OStringArray& types) const {
    GetPropertyStringArray("Model", "~RFID.TagTypes", types);
}

int extmodel::GetRFIDTransponderOffset() const {
    return GetRegistry().GetInt("Settings:RFID/Transponder Offset", 0);
}

// ---- Limits -------------------------------------------------------------------------------------

int extmodel::GetLabelTopMin() const {
    return GetCustomData()->label_top_min;
}

int extmodel::GetLabelTopMax() const {
    return GetCustomData()->label_top_max;
}

int extmodel::GetTearOffMin() const {
    return GetCustomData()->tear_off_min;
}

int extmodel::GetTearOffMax() const {
    return GetCustomData()->tear_off_max;
}

bool extmodel::TearOff() const {
    return (GetCustomData()->flags & CustomData::TEAR_OFF) != 0;
}

bool extmodel::RequiresFixedTearOffAdjustment() const {
    return GetTearOffMax() >= 100;
}
