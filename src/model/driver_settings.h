// The settings of a printer that belong to no document.
#pragma once

#include <cstdint>
#include <memory>

#include "core/ofile.h"
#include "core/ostring.h"
#include "keys/prtreg.h"
#include "model/property_set.h"

// DriverSettings' memory of the registry. A known setting N has the property N. Beside it
// "N:Loaded" tells that it is known and, if it was set, "N:Set" tells its type.
class DriverSettingsCore : public OPropertySet {
public:
    enum Type {
        TYPE_NONE = 0, // not set
        TYPE_STRING = 1,
        TYPE_INT = 2,
        TYPE_BOOL = 3,
    };

    bool IsLoaded(const OString& name) const;
    void MarkLoaded(const OString& name);

    int GetType(const OString& name) const;
    void MarkSet(const OString& name, Type type);

    // The name of the setting that a property of this name marks as set, or empty for all others.
    static OString SettingOf(const OString& property);

    std::unique_ptr<prtreg> registry; // null until DriverSettings::Load
};

// The settings are in the registry below "Settings:". A value is read on first use and remembered;
// changed ones are written by Save. A value that the registry does not hold, and an empty text, has
// the default given with its operations.
//
// An object is made for one task and belongs to one thread. Changes by others in the registry are
// seen after the next Load.
class DriverSettings {
public:
    // Without a printer: settings that were not set have their defaults, and nothing is saved.
    DriverSettings() = default;
    // A copy is bound to the same printer, and knows and saves the same. An incomplete copy, and
    // one of settings that have failed, has failed and saves nothing before it is loaded.
    DriverSettings(const DriverSettings& other) { *this = other; }
    DriverSettings& operator=(const DriverSettings& other);

    // Binds to the printer of `registry` (copied) and forgets everything read and set.
    void Load(const prtreg& registry);

    // Writes the values that were set since Load to that printer, whatever printer `registry`
    // belongs to. They stay marked: a second Save writes them again.
    void Save(const prtreg& registry);

    // Whether a value could not be read or written since Load, or since the last Save began. What
    // could not be read has its default, although something may be stored. Never before Load.
    bool HasFailed() const;

    // The checksum of the values that Save would write, continued from `seed`, or `seed` if there
    // are none. For pages that edit a copy.
    uint32_t GetCRC32(uint32_t seed) const;

    // Appends one options block (see model/options_block.h) to `file`: all settings of the printer
    // as they are in the registry, headed by the model's name. False, with nothing written, before
    // Load and if they cannot be read.
    bool Export(OFile& file, const char* model);

    // Applies every options block of that model in `file`, which is read from its start in its code
    // page. The keys of a block replace those of the printer. True if there was one. Blocks of
    // other models, and those without an end, do nothing. Values read before stay known. Either all
    // blocks are applied or, if the file cannot be read or the registry written, none.
    bool Import(OFile& file, const char* model);

    // The character that begins ZPL formats, '^'.
    char GetEscapeCharacter() { return GetString("Function Character", "^").nstring()[0]; }
    void SetEscapeCharacter(char c);

    // Allows any number of copies, whatever the model's limit; false.
    bool GetDisableCopiesLimit() { return GetBool("Disable Copies Limit", false); }
    void SetDisableCopiesLimit(bool on) { SetBool("Disable Copies Limit", on); }

    // Treats bar code fonts so that office applications show them; true.
    bool GetFixBarFontsInOffice() { return GetBool("Data Fonts/Office Compatibility", true); }
    void SetFixBarFontsInOffice(bool on) { SetBool("Data Fonts/Office Compatibility", on); }

    // ---- Instead of the model's specifications --------------------------------------------------

    // Whether the values below count; false. All of them are 0 by default.
    bool OverrideSpecifications() { return GetBool("Specifications/Override", false); }
    void OverrideSpecifications(bool on) { SetBool("Specifications/Override", on); }

    // Dots per inch.
    int32_t GetXResolution() { return GetInt("Specifications/X Resolution", 0); }
    void SetXResolution(int32_t dpi) { SetInt("Specifications/X Resolution", dpi); }
    int32_t GetYResolution() { return GetInt("Specifications/Y Resolution", 0); }
    void SetYResolution(int32_t dpi) { SetInt("Specifications/Y Resolution", dpi); }

    // Micrometres.
    int32_t GetPrintableWidth() { return GetInt("Specifications/Printable Width", 0); }
    void SetPrintableWidth(int32_t microns) { SetInt("Specifications/Printable Width", microns); }

    // 0 right, 1 left, 2 centre.
    int32_t GetTracking() { return GetInt("Specifications/Tracking", 0); }
    void SetTracking(int32_t tracking) { SetInt("Specifications/Tracking", tracking); }

    // Micrometres.
    int32_t GetPaperWidthMin() { return GetInt("Specifications/Minimum Page Width", 0); }
    void SetPaperWidthMin(int32_t microns) { SetInt("Specifications/Minimum Page Width", microns); }
    int32_t GetPaperWidthMax() { return GetInt("Specifications/Maximum Page Width", 0); }
    void SetPaperWidthMax(int32_t microns) { SetInt("Specifications/Maximum Page Width", microns); }
    int32_t GetPaperLengthMin() { return GetInt("Specifications/Minimum Page Length", 0); }
    void SetPaperLengthMin(int32_t microns) {
        SetInt("Specifications/Minimum Page Length", microns);
    }
    int32_t GetPaperLengthMax() { return GetInt("Specifications/Maximum Page Length", 0); }
    void SetPaperLengthMax(int32_t microns) {
        SetInt("Specifications/Maximum Page Length", microns);
    }

    // ---- Logging: all off, or empty -------------------------------------------------------------

    bool GetLogging() { return GetBool("Logging/Logging", false); }
    void SetLogging(bool on) { SetBool("Logging/Logging", on); }
    bool GetOverwriteFile() { return GetBool("Logging/Overwrite Files", false); }
    void SetOverwriteFile(bool on) { SetBool("Logging/Overwrite Files", on); }
    // Records the printer's code.
    bool GetGenerateFile() { return GetBool("Logging/Print Code Recording", false); }
    void SetGenerateFile(bool on) { SetBool("Logging/Print Code Recording", on); }
    OString GetLogDir() { return GetString("Logging/Directory", ""); }
    void SetLogDir(const OString& folder) { SetString("Logging/Directory", folder); }
    OString GetLogFile() { return GetString("Logging/Log File", ""); }
    void SetLogFile(const OString& file) { SetString("Logging/Log File", file); }

    // ---- Status monitor -------------------------------------------------------------------------

    // Whether the monitor watches the printer; false.
    bool MonitorStatus() { return GetBool("Status/Monitor Status", false); }
    void SetMonitorStatus(bool on) { SetBool("Status/Monitor Status", on); }

    // These two (true and false) answer false while the monitor does not watch the printer.
    bool QueryBeforeJob() { return MonitorStatus() && GetBool("Status/Query Before Job", true); }
    void SetQueryBeforeJob(bool on) { SetBool("Status/Query Before Job", on); }
    bool VerifyJobComplete() {
        return MonitorStatus() && GetBool("Status/Verify Job Complete", false);
    }
    void SetVerifyJobComplete(bool on) { SetBool("Status/Verify Job Complete", on); }

    // False.
    bool ShowOnError() { return GetBool("Status/Show On Error", false); }
    void SetShowOnError(bool on) { SetBool("Status/Show On Error", on); }
    // In the system tray; true.
    bool ShowIcon() { return GetBool("Status/System Tray Icon", true); }
    void SetShowIcon(bool on) { SetBool("Status/System Tray Icon", on); }

    // 30000, 30000 and 1000, in the status monitor's unit.
    int32_t GetWriteTimeout() { return GetInt("Status/Write Timeout", 30000); }
    void SetWriteTimeout(int32_t timeout) { SetInt("Status/Write Timeout", timeout); }
    int32_t GetJobCompleteTimeout() { return GetInt("Status/Job Complete Timeout", 30000); }
    void SetJobCompleteTimeout(int32_t timeout) { SetInt("Status/Job Complete Timeout", timeout); }
    int32_t GetQueryInterval() { return GetInt("Status/Query Interval", 1000); }
    void SetQueryInterval(int32_t interval) { SetInt("Status/Query Interval", interval); }

    // ---- RFID: 0, 5, 0 and 1 --------------------------------------------------------------------

    int32_t GetTransponderOffset() { return GetInt("RFID/Transponder Offset", 0); }
    void SetTransponderOffset(int32_t offset) { SetInt("RFID/Transponder Offset", offset); }
    int32_t GetRetriesPerLabel() { return GetInt("RFID/Retries Per Label", 5); }
    void SetRetriesPerLabel(int32_t retries) { SetInt("RFID/Retries Per Label", retries); }
    int32_t GetMaximumInvalidLabels() { return GetInt("RFID/Maximum Invalid Labels", 0); }
    void SetMaximumInvalidLabels(int32_t labels) { SetInt("RFID/Maximum Invalid Labels", labels); }
    int32_t GetActionOnError() { return GetInt("RFID/Failure Action", 1); }
    void SetActionOnError(int32_t action) { SetInt("RFID/Failure Action", action); }

private:
    OString GetString(const char* name, const char* default_value);
    void SetString(const char* name, const OString& value);
    int32_t GetInt(const char* name, int32_t default_value);
    void SetInt(const char* name, int32_t value);
    bool GetBool(const char* name, bool default_value);
    void SetBool(const char* name, bool value);

    DriverSettingsCore core_;
    bool failed_copy_ = false;
};
