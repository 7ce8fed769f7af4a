#include "model/prtmodel.h"

#include "core/memory.h"
#include "model/driver_settings.h"
#include "model/model_core.h"

namespace {

// Whether an array has a value, in any case.
bool Contains(const OStringArray& texts, const OString& text) {
    for (int i = 0; i < texts.GetSize(); ++i)
        if (texts[i].CompareNoCase(text) == 0) return true;
    return false;
}

} // namespace

prtmodel::prtmodel()
    : core_(new (kCounted) ModelCore) {}

prtmodel::~prtmodel() = default;

bool prtmodel::WasReadWhole() const {
    return core_ && core_->WasReadWhole();
}

bool prtmodel::Initialize(const PrinterInfo& printer) {
    if (!core_) return false;
    core_->SetPrinter(printer);
    core_->ModelData_Initialize();
    code_pages_.Enumerate();
    return true;
}

void prtmodel::InitializeDriverSettings() {
    DriverSettings settings;
    settings.Load(GetRegistry());
    settings.SetMonitorStatus(false);
    settings.Save(GetRegistry());
}

Measurement prtmodel::GetLinerWidth() const {
    return Measurement(1270);
}

void prtmodel::GetClockCapabilities(KVClockCapabilities*&) const {}

void prtmodel::GetTemplateCapabilities(KVTemplateCapabilities*&) const {}

void prtmodel::GetRFIDCapabilities(KVRFIDCapabilities*&) const {}

void prtmodel::GetDitherCapabilities(DitherCapabilities& capabilities) const {
    capabilities.own_dithering = 0;
    capabilities.algorithm = 2;
}

// ---- Identity -----------------------------------------------------------------------------------

prtreg& prtmodel::GetRegistry() const {
    return core_->GetRegistry();
}

const OString& prtmodel::GetPrinterName() const {
    return core_->GetPrinterName();
}

const OString& prtmodel::GetModelName() const {
    return core_->GetModelName();
}

const char* prtmodel::GetOEM() const {
    return core_->GetOEM();
}

const char* prtmodel::GetPrefix() const {
    return core_->GetPrefix();
}

const OStringArray& prtmodel::GetDependentFiles() const {
    return core_->GetDependentFiles();
}

OString prtmodel::GetManufacturerName() const {
    return OString(Data().company_name);
}

OString prtmodel::GetDriverName() const {
    return OString(Data().product_name);
}

// ---- Records ------------------------------------------------------------------------------------

const KVModelData& prtmodel::Data() const {
    return core_->GetModelData();
}

const KVModelData* prtmodel::GetModelData() const {
    return &Data();
}

const KVDriverInfo* prtmodel::GetDriverInfo() const {
    core_->DriverInfo_Initialize();
    return core_->GetDriverInfo();
}

const KVManufacturerInfo* prtmodel::GetManufacturerInfo() const {
    core_->ManufacturerInfo_Initialize();
    return core_->GetManufacturerInfo();
}

const KVCapabilitiesData* prtmodel::GetCapabilitiesData() const {
    core_->CapabilitiesData_Initialize();
    return core_->GetCapabilitiesData();
}

const KVSymbologyData* prtmodel::GetSymbologyData(int symbology) const {
    const KVCapabilitiesData* const capabilities = GetCapabilitiesData();
    if (!capabilities || symbology < 0 || symbology >= KVCapabilitiesData::SYMBOLOGIES)
        return nullptr;
    return &capabilities->symbologies[symbology];
}

const KVRFIDCapabilities* prtmodel::GetRFIDCapabilities() const {
    core_->RFIDCapabilities_Initialize(this);
    return core_->GetRFIDCapabilities();
}

const CustomData* prtmodel::GetCustomData() const {
    core_->InitializeExtPDT();
    return &core_->GetCustomData();
}

// ---- Paper --------------------------------------------------------------------------------------

Measurement prtmodel::GetPaperWidthMin() const {
    return Data().minimum_width;
}

Measurement prtmodel::GetPaperWidthMax() const {
    return Data().maximum_width;
}

Measurement prtmodel::GetPaperLengthMin() const {
    return Data().minimum_length;
}

Measurement prtmodel::GetPaperLengthMax() const {
    return Data().maximum_length;
}

Measurement prtmodel::GetPrintableWidth() const {
    return Data().printable_width;
}

Measurement prtmodel::GetDefaultLabelWidth() const {
    return Data().default_width;
}

Measurement prtmodel::GetDefaultLabelLength() const {
    return Data().default_length;
}

Measurement prtmodel::GetDefaultPaperWidth() const {
    return GetLinerWidth() + GetDefaultLabelWidth() + GetLinerWidth();
}

Measurement prtmodel::GetDefaultPaperLength() const {
    return GetDefaultLabelLength();
}

Measurement prtmodel::GetUnprintableWidth() const {
    return Data().unprintable_width;
}

Measurement prtmodel::GetUnprintableWidthDefault() const {
    return Data().unprintable_width_of_model;
}

int prtmodel::GetTracking() const {
    return Data().tracking;
}

// ---- Drawing ------------------------------------------------------------------------------------

int prtmodel::GetDefaultColorState() const {
    return Data().default_color_state;
}

int prtmodel::GetNaturalOrientation() const {
    return Data().natural_orientation;
}

int prtmodel::GetMapResolution() const {
    return Data().map_resolution;
}

int prtmodel::GetMaxLineThickness() const {
    return Data().line_thickness_maximum;
}

int prtmodel::GetMaxBoxThickness() const {
    return Data().box_thickness_maximum;
}

int prtmodel::GetMaxCopies() const {
    return Data().copies_limit;
}

bool prtmodel::CanFlip180() const {
    return Data().can_flip180 != 0;
}

bool prtmodel::CanMirror() const {
    return Data().can_mirror != 0;
}

bool prtmodel::CanNegative() const {
    return Data().can_print_inverse != 0;
}

bool prtmodel::ColorSupport(uint32_t mask) const {
    return (Data().color & mask) != 0;
}

int prtmodel::GetXResolution() const {
    return Data().resolutions[0].x;
}

int prtmodel::GetYResolution() const {
    return Data().resolutions[0].y;
}

int prtmodel::GetResolutions(OTypedArray<int>& resolutions) const {
    int pairs = 0;
    resolutions.SetSize(0);
    for (const auto& resolution : Data().resolutions) {
        if (resolution.x == 0 || resolution.y == 0) break;
        resolutions.Add(resolution.x);
        resolutions.Add(resolution.y);
        ++pairs;
    }
    return pairs;
}

bool prtmodel::CanCacheFormats() const {
    const KVCapabilitiesData* record = GetCapabilitiesData();
    return record && (record->method_bits & KVCapabilitiesData::CACHE_FORMAT);
}

bool prtmodel::CanCacheGraphics() const {
    const KVCapabilitiesData* record = GetCapabilitiesData();
    return record && (record->method_bits & KVCapabilitiesData::CACHE_GRAPHIC);
}

bool prtmodel::HasBarCodes() const {
    const KVCapabilitiesData* record = GetCapabilitiesData();
    if (!record) return false;
    for (const KVSymbologyData& symbology : record->symbologies)
        if (symbology.flags) return true;
    return false;
}

bool prtmodel::HasRFID() const {
    const KVRFIDCapabilities* record = GetRFIDCapabilities();
    return record && (record->flags & 1);
}

// ---- Ports --------------------------------------------------------------------------------------

bool prtmodel::IsBidiParallel() const {
    return (Data().port_bits & KVModelData::PORT_BIDI_PARALLEL) != 0;
}

bool prtmodel::IsBidiUSB() const {
    return (Data().port_bits & KVModelData::PORT_BIDI_USB) != 0;
}

// ---- Fonts --------------------------------------------------------------------------------------

bool prtmodel::CanDownloadFont() const {
    return CanDownloadTTFont() || CanDownloadBitmapFont();
}

bool prtmodel::CanDownloadTTFont() const {
    return (Data().download_bits & KVModelData::DOWNLOAD_TRUETYPE) != 0;
}

bool prtmodel::CanDownloadBitmapFont() const {
    return (Data().download_bits & KVModelData::DOWNLOAD_BITMAP) != 0;
}

bool prtmodel::DownloadFontRotation(int rotation) const {
    switch (rotation) {
    case 0:
        return (Data().download_bits & KVModelData::DOWNLOAD_BITMAP_0) != 0;
    case 1:
        return (Data().download_bits & KVModelData::DOWNLOAD_BITMAP_90) != 0;
    default:
        return false;
    }
}

void prtmodel::GetFontGroups(OStringArray& groups) const {
    static const char* const stored = "MODEL:Font Groups";
    groups.SetSize(0);
    if (GetRegistry().GetMultiString(stored, groups)) return;

    GetPropertyStringArray("Font", "Fonts", groups);
    OStringArray expansion;
    GetExpansionFontGroups(expansion);
    groups.Append(expansion);
    OStringArray excluded;
    GetExcludedFontGroups(excluded);
    for (int i = groups.GetSize() - 1; i >= 0; --i) {
        const bool removed = Contains(excluded, groups[i]);
        groups[i].Replace("FontGroup:", "");
        groups[i].Replace(".pfg", "");
        // The stored list has no empty names either.
        if (removed || groups[i].IsEmpty()) groups.RemoveAt(i, 1);
    }
    // Through a key map of its own: a model is complete even for a user who may not write.
    if (WasReadWhole()) prtreg(GetRegistry()).SetMultiString(stored, groups);
}

void prtmodel::GetExpansionFontGroups(OStringArray& groups) const {
    groups.SetSize(0);
    GetRegistry().GetMultiString("Settings:Expansion Fonts", groups);
}

void prtmodel::GetExcludedFontGroups(OStringArray& groups) const {
    groups.SetSize(0);
    GetRegistry().GetMultiString("Settings:Excluded Fonts", groups);
}

bool prtmodel::HasDeviceFonts() const {
    OStringArray groups;
    GetFontGroups(groups);
    return groups.GetSize() > 0;
}

// ---- Upkeep -------------------------------------------------------------------------------------

void prtmodel::FlushDataCache() {
    static const char* const stamp = "DATA:Model Synchronization";
    prtreg& registry = GetRegistry();

    // A second flush within one tick must still make a new stamp.
    uint32_t now = GetTickCount();
    if (now == registry.GetDWORD(stamp, 0)) ++now;
    registry.SetDWORD(stamp, now);
    registry.Delete("MODEL:", true);
    core_->ModelData_Initialize();
}

void prtmodel::RecordDataToReg() {
    OStringArray ids;
    GetPropertyStringArray("Model", "Ports.PNP.ID", ids);
    if (ids.GetSize() > 0) GetRegistry().SetMultiString("DATA:Plug And Play IDs", ids);
}

bool prtmodel::IsFablewickInstalled() const {
    return !GetRegistry().GetString("CLASSES_ROOT:.fwk/", "").IsEmpty();
}

// ---- Properties ---------------------------------------------------------------------------------

OString prtmodel::GetPropertyString(const OString& table, const OString& key,
                                    const OString& default_value) const {
    core_->UseTable(table);
    return core_->GetString(key, default_value);
}

void prtmodel::GetPropertyStringArray(const OString& table, const OString& key,
                                      OStringArray& values) const {
    core_->UseTable(table);
    core_->GetStringArray(key, values);
}

bool prtmodel::GetPropertyBool(const OString& table, const OString& key, bool default_value) const {
    core_->UseTable(table);
    return core_->GetBool(key, default_value);
}
