#include "model/model_core.h"

#include <algorithm>

#include "core/base64.h"
#include "core/memory.h"
#include "core/obuffer.h"
#include "model/model_data_cache.h"
#include "model/prtmodel.h"
#include "model/record_text.h"
#include "model/resource_cache.h"
#include "spooler/driver_utility.h"
#include "spooler/printer_info.h"

namespace {

// What a model's custom data may take at most.
constexpr uint32_t kCustomDataLimit = 64 * 1024;
// What of it the driver reads.
constexpr uint32_t kCustomDataSize = sizeof(CustomData);

// The section keys of the tables that the model section names.
const char* SectionKey(int table) {
    switch (table) {
    case ModelCore::BARCODE:
        return "BarCode";
    case ModelCore::DRAWING:
        return "Drawing";
    case ModelCore::FEATURES:
        return "Features";
    case ModelCore::FONT:
        return "Font";
    case ModelCore::METHOD:
        return "Method";
    case ModelCore::CUSTOM_DATA:
        return "~CustomData";
    default:
        return nullptr;
    }
}

} // namespace

ModelCore::~ModelCore() {
    ___free(rfid_capabilities_);
}

void ModelCore::SetPrinter(const PrinterInfo& printer) {
    records_of_.printer = printer.GetPrinterName();
    model_name_ = printer.GetDriverName();
    dependent_files_ = printer.GetDependentFiles();
    SetRecordText(prefix_, printer.GetPrefix());
    const OString code = printer.GetOEM();
    SetRecordText(oem_, OString("o") + code);
    oem_suffix_ = OString("(") + code + OString(")");
    oem_suffix_.MakeUpper();
    // One driver name may return with the data of another brand.
    records_of_.model = model_name_ + oem_suffix_;
    registry_.init(printer);
    whole_ = printer.IsKnown() && printer.IsDriverKnown();
}

// ---- Tables -------------------------------------------------------------------------------------

void ModelCore::UseResources() {
    if (resources_) return;
    OString path = DriverUtility::GetDriverDirectory();
    path << "\\" << prefix_ << ".ddt";
    resources_ = OResourceCache::GetResourceFile(path);
    SetResourceFile(resources_);
    if (!resources_) whole_ = false;
}

void ModelCore::UseTable(int table) {
    UseResources();
    switch (table) {
    case DRIVER:
        SetTable(OString("Driver:") + model_name_);
        return;
    case MANUFACTURER:
        UseTable(DRIVER);
        SetTable(GetString("Manufacturer", ""));
        return;
    case MODEL:
        if (model_section_.IsEmpty()) {
            UseTable(DRIVER);
            // Remembered with its table, since another one may be current next time.
            const OString section = GetString("Model", "");
            model_section_ = section.Find(':') < 0 ? OString("Driver:") + section : section;
        }
        SetTable(model_section_);
        return;
    case CODEPAGES:
        UseTable(FONT);
        SetTable(GetString("CodePages", ""));
        return;
    default:
        if (const char* key = SectionKey(table)) {
            UseTable(MODEL);
            SetTable(GetString(key, ""));
        }
    }
}

void ModelCore::UseTable(const OString& name) {
    static const struct {
        const char* name;
        Table table;
    } known[] = {{"Driver", DRIVER},
                 {"Manufacturer", MANUFACTURER},
                 {"Model", MODEL},
                 {"CodePages", CODEPAGES}};
    for (const auto& entry : known) {
        if (name.CompareNoCase(entry.name) == 0) {
            UseTable(entry.table);
            return;
        }
    }
    UseTable(MODEL);
    SetTable(GetString(name, ""));
}

OString ModelCore::GetString(const OString& key, const OString& default_value) {
    const OString oem_key = key + oem_suffix_;
    if (PropertyExists(oem_key)) return ODataSet::GetString(oem_key, default_value);
    return ODataSet::GetString(key, default_value);
}

// ---- Records ------------------------------------------------------------------------------------

// `create(record)` fills a zeroed record.
void ModelCore::KeepRecord(const char* name, const void* record, uint32_t size) {
    if (WasReadWhole()) ModelDataCache().SetData(records_of_, name, record, size);
}

template <class T, class F>
void ModelCore::FetchOrCreate(T& record, const char* name, F create) {
    const ModelDataCache cache;
    if (cache.GetDataSize(records_of_, name) == sizeof(T) &&
        cache.GetData(records_of_, name, &record, sizeof(T)))
        return;
    record = T();
    create(record);
    KeepRecord(name, &record, sizeof(T));
}

template <class T, class F>
void ModelCore::AllocateRecord(std::unique_ptr<T>& record, const char* name, F create) {
    if (record) return;
    record.reset(new (kCounted) T());
    if (record) FetchOrCreate(*record, name, create);
}

void ModelCore::ModelData_Initialize() {
    records_of_.stamp = registry_.GetDWORD("DATA:Model Synchronization", 0);
    ModelDataCache().Synchronize(records_of_);
    FetchOrCreate(model_data_, "ModelData", [this](KVModelData&) { ModelData_Create(); });
}

void ModelCore::DriverInfo_Initialize() {
    AllocateRecord(driver_info_, "DriverInfo",
                   [this](KVDriverInfo& record) { DriverInfo_Create(record); });
}

void ModelCore::ManufacturerInfo_Initialize() {
    AllocateRecord(manufacturer_info_, "ManufacturerInfo",
                   [this](KVManufacturerInfo& record) { ManufacturerInfo_Create(record); });
}

void ModelCore::CapabilitiesData_Initialize() {
    AllocateRecord(capabilities_, "CapabilitiesData",
                   [this](KVCapabilitiesData& record) { CapabilitiesData_Create(record); });
}

void ModelCore::RFIDCapabilities_Initialize(const prtmodel* model) {
    if (rfid_capabilities_) return;
    static constexpr char name[] = "RFIDCapabilities";
    const uint32_t size = ModelDataCache().GetDataSize(records_of_, name);
    if (size >= sizeof(KVRFIDCapabilities)) {
        void* block = ___malloc(size);
        if (block && ModelDataCache().GetData(records_of_, name, block, size)) {
            rfid_capabilities_ = static_cast<KVRFIDCapabilities*>(block);
            return;
        }
        ___free(block);
    }
    rfid_capabilities_ = RFIDCapabilities_Create(model);
    if (rfid_capabilities_) KeepRecord(name, rfid_capabilities_, rfid_capabilities_->total_size);
}

KVRFIDCapabilities* ModelCore::RFIDCapabilities_Create(const prtmodel* model) {
    auto* record = static_cast<KVRFIDCapabilities*>(___calloc(1, sizeof(KVRFIDCapabilities)));
    if (!record) return nullptr;
    record->size = sizeof(KVRFIDCapabilities);
    record->total_size = sizeof(KVRFIDCapabilities);
    if (model) model->GetRFIDCapabilities(record);
    record->total_size = static_cast<uint16_t>(___msize(record));
    return record;
}

void ModelCore::InitializeExtPDT() {
    if (custom_data_loaded_) return;
    custom_data_loaded_ = true;
    static constexpr char name[] = "~CustomData";
    if (const uint32_t size = ModelDataCache().GetDataSize(records_of_, name)) {
        if (ModelDataCache().GetData(records_of_, name, &custom_data_,
                                     std::min(size, kCustomDataSize)))
            return;
    }
    UseTable(CUSTOM_DATA);
    const OString text = GetString("Data", "");
    const char* bytes = text.nstring();
    const uint32_t text_length = static_cast<uint32_t>(text.nlen());

    // The length in the table is a claim. The text and the limit bound it.
    const int32_t claimed = GetInt("Data.Length", 0);
    uint32_t length = claimed > 0 ? static_cast<uint32_t>(claimed) : 0;
    length = std::min({length, (text_length / 4 + 1) * 3, kCustomDataLimit});

    const uint32_t room = Base64::DecodeLength(text_length);
    OBuffer<char> blob(std::max(room, length));
    if (blob.GetSize() == 0) return;
    __memset(blob.GetData(), 0, blob.GetSize());
    uint32_t decoded = room;
    Base64::Decode(bytes, text_length, blob.GetData(), &decoded);
    __memcpy(&custom_data_, blob.GetData(), std::min(length, kCustomDataSize));
    KeepRecord(name, blob.GetData(), length);
}
