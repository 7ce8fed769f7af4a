#include "cache_settings.h"

#include "printer_value.h"

namespace {

constexpr WCHAR kSettingsValue[] = TEXT("Render Cache Settings");

constexpr KVCacheSettings kUsualSettings = {1 << 20, 1, 100, 1, 100, 'R', 'R'};

} // namespace

KVCacheSettings ReadCacheSettings(HANDLE printer) {
    KVCacheSettings settings = {};
    const size_t size = ReadPrinterValue(printer, kSettingsValue, &settings, sizeof settings);
    return size == sizeof settings ? settings : kUsualSettings;
}

bool WriteCacheSettings(const WCHAR* printer_name, const KVCacheSettings* settings) {
    return WritePrinterValue(printer_name, kSettingsValue, settings, sizeof *settings);
}
