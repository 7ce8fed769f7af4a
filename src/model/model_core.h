// The builder of the model records from the tables of the model data file.
#pragma once

#include <memory>

#include "core/ostring.h"
#include "core/ostring_array.h"
#include "keys/prtreg.h"
#include "model/data_set.h"
#include "model/model_data_cache.h"
#include "model/model_records.h"
#include "model/symbology_info.h"

class PrinterInfo;
class prtmodel;

// The tables of one printer's model and the records made from them. A record comes from the
// process's record cache if that has one of the right size; else it is built and stored there.
// Missing files, tables, sections and keys leave zeros and defaults. Numbers that do not fit into a
// field of 16 bits keep their low 16 bits; if a maximum is given, larger numbers become the maximum
// first. Texts that do not fit are truncated. Owned by the printer model, on its thread.
class ModelCore : public ODataSet {
public:
    ModelCore() = default;
    ~ModelCore() override;

    // Takes the names of a printer and opens its key map. The printer is not kept.
    void SetPrinter(const PrinterInfo& printer);

    const OString& GetPrinterName() const { return records_of_.printer; }
    const OString& GetModelName() const { return model_name_; }
    const char* GetPrefix() const { return prefix_; }
    const char* GetOEM() const { return oem_; } // "o" and the OEM code
    const OStringArray& GetDependentFiles() const { return dependent_files_; }
    prtreg& GetRegistry() { return registry_; }

    // Whether the spooler knew the printer and its driver, and all reads so far have succeeded.
    bool WasReadWhole() const { return whole_ && !registry_.HasFailed(); }

    // ---- Tables ---------------------------------------------------------------------------------

    // The driver's name leads to the section of table Driver; that names the sections of
    // Manufacturer and Model, Model those of all others but CodePages, which Font names. A section
    // is named "Table:Section", or "Section" for another one of the table that names it.
    enum Table {
        DRIVER,
        MANUFACTURER,
        MODEL,
        BARCODE,
        CODEPAGES,
        DRAWING,
        FEATURES,
        FONT,
        METHOD,
        CUSTOM_DATA
    };

    // Opens the model data file (the prefix and ".ddt" beside the module), once.
    void UseResources();

    // Makes the printer's section of a table current. A number out of range changes nothing.
    void UseTable(int table);
    // The same by name: "Driver", "Manufacturer", "Model" and "CodePages" in any case. Any other
    // name is a key of Model that names the section.
    void UseTable(const OString& name);

    // A property of the current section. A key followed by the OEM code in capitals ("Key(QV)")
    // takes precedence over one without, in this and in all other queries.
    OString GetString(const OString& key, const OString& default_value) override;

    // ---- Records --------------------------------------------------------------------------------

    // Makes the model data. To be called before all others, as it drops the cached records of this
    // printer if its stamp "DATA:Model Synchronization" or its model is new.
    void ModelData_Initialize();
    // Make the other records, once. Without memory there is no record.
    void DriverInfo_Initialize();
    void ManufacturerInfo_Initialize();
    void CapabilitiesData_Initialize();
    // `model` fills in the RFID facts of its printer language.
    void RFIDCapabilities_Initialize(const prtmodel* model);
    // Reads the custom data. The blob's length in the table counts only as far as its text goes,
    // and up to 64 KB. The rest is zero.
    void InitializeExtPDT();

    // The records, zeros or null before they are made. The custom data is always there.
    const KVModelData& GetModelData() const { return model_data_; }
    const KVDriverInfo* GetDriverInfo() const { return driver_info_.get(); }
    const KVManufacturerInfo* GetManufacturerInfo() const { return manufacturer_info_.get(); }
    const KVCapabilitiesData* GetCapabilitiesData() const { return capabilities_.get(); }
    const KVRFIDCapabilities* GetRFIDCapabilities() const { return rfid_capabilities_; }
    const CustomData& GetCustomData() const { return custom_data_; }

private:
    // A text of a table and the bits that it stands for.
    struct Bit {
        const char* text;
        uint32_t bits;
    };

    // ---- Records --------------------------------------------------------------------------------

    // Puts a record into the cache, unless something could not be read: otherwise half a record
    // would be used until the next flush.
    void KeepRecord(const char* name, const void* record, uint32_t size);
    template <class T, class F>
    void FetchOrCreate(T& record, const char* name, F create);
    template <class T, class F>
    void AllocateRecord(std::unique_ptr<T>& record, const char* name, F create);

    void ModelData_Create();
    void ReadModelTable();
    void ReadResolutions();
    void ReadDrawingTable();
    void ReadFontTable();
    void ApplyDriverSettings();
    void DriverInfo_Create(KVDriverInfo& record);
    void ManufacturerInfo_Create(KVManufacturerInfo& record);
    void CapabilitiesData_Create(KVCapabilitiesData& record);
    void DefaultFonts_Create(KVDefaultFont* fonts);
    void DefaultFont_Create(KVDefaultFont& font, const char* name, const char* size,
                            const char* weight);
    KVRFIDCapabilities* RFIDCapabilities_Create(const prtmodel* model);

    Measurement GetMeasurement(const char* key);
    // The bit if the property is true, or if the list holds the word (in any case).
    uint16_t BoolBit(const char* key, uint16_t bit);
    uint16_t FlagBit(const char* key, const char* word, uint16_t bit);
    int16_t GetThickness(const char* key);
    // A name with the prefix of the printer's fonts.
    OString FontName(const OString& name) const;

    static uint8_t TranslateTracking(const OString& text);
    static uint8_t TranslatePositionAnchor(const OString& text);
    static uint8_t TranslateThicknessAnchor(const OString& text);
    static uint8_t TranslateOrientation(int degrees);

    // ---- Bar codes (symbology_data.cpp) ---------------------------------------------------------

    void SymbologyData_Create(KVSymbologyData* record, int number);
    bool CommonSymbologyData_Create(KVSymbologyData* record, const SymbologyInfo& info);
    void HR_Create(KVSymbologyData* record, const SymbologyInfo& info);
    void Code39Data_Create(KVSymbologyData* record, const SymbologyInfo& info);
    void Code93Data_Create(KVSymbologyData* record, const SymbologyInfo& info);
    void Code128Data_Create(KVSymbologyData* record, const SymbologyInfo& info);
    void CodabarData_Create(KVSymbologyData* record, const SymbologyInfo& info);
    void MSIData_Create(KVSymbologyData* record, const SymbologyInfo& info);
    void UPC_EANData_Create(KVSymbologyData* record, const SymbologyInfo& info);
    void SupplementalData_Create(KVSymbologyData* record, const SymbologyInfo& info);
    void PDF417Data_Create(KVSymbologyData* record, const SymbologyInfo& info);
    void MicroPDF417Data_Create(KVSymbologyData* record, const SymbologyInfo& info);
    void DataMatrixData_Create(KVSymbologyData* record, const SymbologyInfo& info);
    void MaxiCodeData_Create(KVSymbologyData* record, const SymbologyInfo& info);
    void QRCodeData_Create(KVSymbologyData* record, const SymbologyInfo& info);
    void JapanPostData_Create(KVSymbologyData* record, const SymbologyInfo& info);
    void CodablockData_Create(KVSymbologyData* record, const SymbologyInfo& info);
    void AztecData_Create(KVSymbologyData* record, const SymbologyInfo& info);
    void RSSData_Create(KVSymbologyData* record, const SymbologyInfo& info);
    void CompositeData_Create(KVSymbologyData* record, const SymbologyInfo& info);
    void TelepenData_Create(KVSymbologyData* record, const SymbologyInfo& info);

    // The bits of all words (case-sensitive) in the list of a key.
    template <size_t N>
    uint32_t ListBits(const OString& key, const Bit (&bits)[N]);
    uint32_t ListBits(const OString& key, const Bit* bits, size_t count);
    // The bit if the property is true (false).
    uint32_t TrueBit(const OString& key, uint32_t bit);
    uint32_t FalseBit(const OString& key, uint32_t bit);

    OResourceFile* resources_ = nullptr; // of the cache
    prtreg registry_;
    ModelDataOwner records_of_; // this printer's, under the stamp that they were asked for
    OString model_name_;
    OStringArray dependent_files_; // of the driver
    char oem_[4] = {};
    char prefix_[4] = {};
    OString oem_suffix_; // "(QV)"
    KVModelData model_data_ = {};
    std::unique_ptr<KVDriverInfo> driver_info_;
    std::unique_ptr<KVManufacturerInfo> manufacturer_info_;
    std::unique_ptr<KVCapabilitiesData> capabilities_;
    KVRFIDCapabilities* rfid_capabilities_ = nullptr; // size-prefixed block, owned
    CustomData custom_data_ = {};
    bool custom_data_loaded_ = false;
    OString model_section_; // "Model:Section" once found
    bool whole_ = false;    // the spooler knows printer and driver, and the settings could be read
};
