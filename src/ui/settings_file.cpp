#include "ui/settings_file.h"

#include <algorithm>
#include <cstring>

#include "core/memory.h"
#include "core/replaced_file.h"
#include "model/driver_settings.h"
#include "model/prtmodel.h"

namespace {

constexpr uint32_t kUTF8 = 1208;
constexpr char kHead[] = "<driver version='6.6'>";

uint16_t Count(int number) {
    return static_cast<uint16_t>(std::clamp(number, 0, 0xFFFF));
}

void ImportText(OFile& file, int flags, SettingsFileLists& settings, KDSettingsResult& result) {
    file.SetCodePage(kUTF8);
    if (flags & SETTINGS_STOCKS) result.stocks = Count(settings.stocks.Import(file, 0));
    if (flags & SETTINGS_PRESETS)
        result.presets = Count(settings.presets.Import(file, &settings.model));
    if (flags & SETTINGS_BAR_FONTS)
        result.bar_fonts = Count(settings.data_fonts.ImportBarFont(file, &settings.model));
    if ((flags & SETTINGS_RFID_FONTS) && settings.model.HasRFID())
        result.rfid_fonts = Count(settings.data_fonts.ImportRFID(file, &settings.model));
    if (flags & SETTINGS_OPTIONS) {
        DriverSettings options;
        options.Load(settings.model.GetRegistry());
        result.options = options.Import(file, settings.model.GetModelName().nstring());
        // They may say what the model can do.
        if (result.options) settings.model.FlushDataCache();
    }
}

KDSettingsResult WriteText(OFile& file, int flags, const SettingsFileLists& settings) {
    KDSettingsResult result = {};
    file.SetCodePage(kUTF8);
    file << kHead << OCore::endl << OCore::endl;
    if (flags & SETTINGS_STOCKS) result.stocks = Count(settings.stocks.Export(file));
    if (flags & SETTINGS_PRESETS) result.presets = Count(settings.presets.Export(file));
    if (flags & SETTINGS_BAR_FONTS)
        result.bar_fonts = Count(settings.data_fonts.ExportBarFont(file, &settings.model));
    if ((flags & SETTINGS_RFID_FONTS) && settings.model.HasRFID())
        result.rfid_fonts = Count(settings.data_fonts.ExportRFID(file, &settings.model));
    if (flags & SETTINGS_OPTIONS) {
        DriverSettings options;
        options.Load(settings.model.GetRegistry());
        result.options = options.Export(file, settings.model.GetModelName().nstring());
    }
    return result;
}

} // namespace

KDSettingsResult ExportSettingsFile(const OString& name, int flags, SettingsFileLists settings) {
    const AllocationWatch memory;
    ReplacedFile replaced(name);
    if (!replaced.GetFile().is_open()) return {};
    const KDSettingsResult result = WriteText(replaced.GetFile(), flags, settings);
    // What could not be read is missing in the text.
    if (memory.Failed() || ((flags & SETTINGS_OPTIONS) && !result.options)) return {};
    return replaced.Commit() ? result : KDSettingsResult{};
}

KDSettingsResult ImportSettingsFile(const OString& name, int flags, SettingsFileLists settings) {
    // To open a file that is not there would make one.
    OFile file;
    if (!OFile::Exists(name) || !file.Open(name, OFILE_READ)) return {};
    return ImportSettingsFile(file, flags, settings);
}

KDSettingsResult ImportSettingsFile(OFile& file, int flags, SettingsFileLists settings) {
    KDSettingsResult result = {};
    const AllocationWatch memory;
    char head[4];
    const bool whole = file.Read(head, sizeof head) == sizeof head;
    file.Seek(0, FILE_BEGIN);
    if (!whole) return result;
    const auto begins = [&](const char* start) {
        return std::memcmp(head, start, std::strlen(start)) == 0;
    };
    if (begins("<dri")) {
        ImportText(file, flags, settings, result);
    } else if (begins("KBF1")) {
        if (flags & SETTINGS_BAR_FONTS)
            result.bar_fonts = Count(settings.data_fonts.ImportKBF1(file, &settings.model));
    } else if (begins("KFM1")) {
        if (flags & SETTINGS_STOCKS) result.stocks = Count(settings.stocks.ImportKFM1(file));
    } else if (begins("DM")) {
        if (flags & SETTINGS_PRESETS)
            result.presets = Count(settings.presets.ImportKPR1(file, &settings.model));
    }
    // Half of a file is not stored.
    if (file.HasFailed() || memory.Failed()) {
        settings.stocks.KeepStored();
        settings.presets.KeepStored();
        settings.data_fonts.KeepStored();
        return {};
    }
    return result;
}
