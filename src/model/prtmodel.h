// The printer model: what one printer is and can do.
#pragma once

#include <windows.h>

#include <cstdint>
#include <memory>

#include "core/oarray.h"
#include "core/ostring.h"
#include "core/ostring_array.h"
#include "keys/prtreg.h"
#include "model/code_page_list.h"
#include "model/measurement.h"
#include "model/model_records.h"

class ModelCore;
class PrinterInfo;

// Answers from the model data file beside the driver, through records that are built once per
// process and printer. Without a data file, table or key there are zeros and defaults: no
// resolutions, no fonts, no bar codes. Belongs to the thread of its owner.
//
// Virtual operations are answered by the printer language. A few operations need higher layers and
// are defined there, in files that are named after this class:
//
//   new_ext                                   zpl/extmodel.cpp
//   InstallDefault_Stocks, EnumerateForms     settings/prtmodel_stocks.cpp
//   InstallDefault_Presets                    settings/prtmodel_presets.cpp
//   InstallDefault_BarFonts                   fonts/prtmodel_bar_fonts.cpp
class prtmodel {
public:
    // The model of a printer, in the language that the driver speaks. The caller owns it. Null only
    // if memory is short. `printer` is not kept.
    static prtmodel* new_ext(const PrinterInfo& printer);

    virtual ~prtmodel();

    // Resets the driver settings of a printer that is being installed: the status monitor does not
    // watch it.
    virtual void InitializeDriverSettings();

    // How far the backing paper extends on each side of a label: 1270 micrometres.
    virtual Measurement GetLinerWidth() const;

    // Fill zeroed records of the size-prefixed memory family, with their own size in the first
    // field, which may be replaced by longer ones. The model itself fills in nothing.
    virtual void GetClockCapabilities(KVClockCapabilities*& record) const;
    virtual void GetTemplateCapabilities(KVTemplateCapabilities*& record) const;
    virtual void GetRFIDCapabilities(KVRFIDCapabilities*& record) const;

    virtual void GetDitherCapabilities(DitherCapabilities& capabilities) const;

    prtmodel(const prtmodel&) = delete;
    prtmodel& operator=(const prtmodel&) = delete;

    // ---- Identity -------------------------------------------------------------------------------

    // Whether the spooler knew the printer and its driver, all reads so far have succeeded, and
    // memory was never short on this thread. Data made from an incomplete model must not replace
    // stored data.
    bool WasReadWhole() const;

    // The printer's key map.
    prtreg& GetRegistry() const;

    const OString& GetPrinterName() const;
    const OString& GetModelName() const; // the driver's name

    // "o" and the two letters of the OEM code, at most three characters.
    const char* GetOEM() const;
    // The three letters that begin the names of the driver's files.
    const char* GetPrefix() const;

    // The dependent files of the printer's driver, without their folder.
    const OStringArray& GetDependentFiles() const;

    OString GetManufacturerName() const;
    OString GetDriverName() const; // the product's name, not the name of the printer's driver

    // ---- Records --------------------------------------------------------------------------------

    // Made on the first call, valid for the life of the model. Null only if memory is short;
    // GetCustomData never is.
    const KVModelData* GetModelData() const;
    const KVDriverInfo* GetDriverInfo() const;
    const KVManufacturerInfo* GetManufacturerInfo() const;
    const KVCapabilitiesData* GetCapabilitiesData() const;
    // One of the bar code records in those capabilities, by SymbologyInfo number. Null as well for
    // a number that is none.
    const KVSymbologyData* GetSymbologyData(int symbology) const;
    const KVRFIDCapabilities* GetRFIDCapabilities() const;
    const CustomData* GetCustomData() const;

    // The code pages that fonts may be offered in.
    const CodePageList& GetCodePages() const { return code_pages_; }

    // ---- Paper ----------------------------------------------------------------------------------

    Measurement GetPaperWidthMin() const;
    Measurement GetPaperWidthMax() const;
    Measurement GetPaperLengthMin() const;
    Measurement GetPaperLengthMax() const;
    Measurement GetPrintableWidth() const;

    Measurement GetDefaultLabelWidth() const;
    Measurement GetDefaultLabelLength() const;
    // The default label with its liner on both sides, but not before and after it.
    Measurement GetDefaultPaperWidth() const;
    Measurement GetDefaultPaperLength() const;

    // The width that the print head does not reach: as set for the printer, and as the model has
    // it.
    Measurement GetUnprintableWidth() const;
    Measurement GetUnprintableWidthDefault() const;

    int GetTracking() const; // 0 right, 1 left, 2 centre
    bool IsCenterTracked() const { return GetTracking() == 2; }
    bool IsLeftTracked() const { return GetTracking() == 1; }
    bool IsRightTracked() const { return GetTracking() == 0; }

    // ---- Drawing --------------------------------------------------------------------------------

    int GetDefaultColorState() const;  // 1 monochrome, 2 colour
    int GetNaturalOrientation() const; // 0 to 3: 0, 90, 180, 270 degrees
    int GetMapResolution() const;      // dots per inch, or 0
    int GetMaxLineThickness() const;   // dots
    int GetMaxBoxThickness() const;    // dots
    int GetMaxCopies() const;
    bool CanFlip180() const;
    bool CanMirror() const;
    bool CanNegative() const;

    // Whether the model has any of these colour bits (KVModelData::COLOR_).
    bool ColorSupport(uint32_t mask) const;

    // The current resolution in dots per inch, or 0 if the model has none.
    int GetXResolution() const;
    int GetYResolution() const;
    // Replaces the array with x, y, x, y... Returns the number of pairs.
    int GetResolutions(OTypedArray<int>& resolutions) const;

    bool CanCacheFormats() const;
    bool CanCacheGraphics() const;
    bool HasBarCodes() const;
    bool HasRFID() const;

    // ---- Ports ----------------------------------------------------------------------------------

    bool IsBidiParallel() const;
    bool IsBidiUSB() const;

    // ---- Fonts ----------------------------------------------------------------------------------

    bool CanDownloadFont() const; // of either kind
    bool CanDownloadTTFont() const;
    bool CanDownloadBitmapFont() const;
    // Whether a bitmap font can be printed turned by `rotation` times 90 degrees. Only 0 and 1 are
    // possible.
    bool DownloadFontRotation(int rotation) const;

    // The font groups of the printer: those of the model and those added by the user, without those
    // removed by the user. Stored in the registry until FlushDataCache. Replaces the array.
    void GetFontGroups(OStringArray& groups) const;
    // The groups that the user added and removed, as stored.
    void GetExpansionFontGroups(OStringArray& groups) const;
    void GetExcludedFontGroups(OStringArray& groups) const;
    bool HasDeviceFonts() const;

    // ---- The spooler's questions ----------------------------------------------------------------

    // Answers a device capability (DC_ number) as DrvDeviceCapabilities documents it. `dev_mode` is
    // the one to answer about, or null for capabilities that do not concern one.
    uint32_t DeviceCapabilitiesW(uint16_t capability, unsigned char* output,
                                 const DEVMODEW* dev_mode) const;

    // ---- Upkeep ---------------------------------------------------------------------------------

    // Makes this and every other process rebuild the printer's records, and deletes what was
    // derived from them in the registry.
    void FlushDataCache();

    // Add the data fonts, presets and stocks of the driver's default settings file to the
    // printer's, replacing those of the same names. The file is beside the driver: GetOEM,
    // "xxenu.kds". Nothing without it.
    void InstallDefault_BarFonts();
    void InstallDefault_Presets();
    void InstallDefault_Stocks();

    // Writes the plug and play identifiers of the model, if it has any, to the printer's data.
    void RecordDataToReg();

    // Whether the label design program is installed.
    bool IsFablewickInstalled() const;

protected:
    prtmodel();

    // Takes the printer's names, opens its key map and makes the model data. Once per model.
    bool Initialize(const PrinterInfo& printer);

    // A property of a table by its name ("Model", "Features"; see ModelCore::UseTable).
    OString GetPropertyString(const OString& table, const OString& key,
                              const OString& default_value) const;
    void GetPropertyStringArray(const OString& table, const OString& key,
                                OStringArray& values) const;
    bool GetPropertyBool(const OString& table, const OString& key, bool default_value) const;

private:
    const KVModelData& Data() const;

    // DC_PAPERS, DC_PAPERSIZE and DC_PAPERNAMES.
    uint32_t EnumerateForms(uint16_t capability, unsigned char* output) const;

    const std::unique_ptr<ModelCore> core_; // null only if memory is short
    CodePageList code_pages_;
};
