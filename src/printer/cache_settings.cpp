#include "printer/cache_settings.h"

#include <algorithm>

#include "printer/prtstream.h"

namespace {

uint32_t Within(int32_t value, int32_t least, int32_t most) {
    return static_cast<uint32_t>(std::max(least, std::min(value, most)));
}

void SetFirst(uint32_t& first, uint32_t& last, uint32_t number) {
    first = number;
    last = std::max(last, number);
}

void SetLast(uint32_t& first, uint32_t& last, uint32_t number) {
    last = number;
    first = std::min(first, number);
}

} // namespace

bool ReadCacheSettings(prtstream& stream, KVCacheSettings& settings) {
    KVCacheSettings read = {};
    const auto answer = static_cast<int32_t>(stream.Escape(
        ESCAPE_READ_CACHE_SETTINGS, 0, nullptr, sizeof read, reinterpret_cast<char*>(&read)));
    if (answer < 1) return false;
    settings = read;
    return true;
}

void WriteCacheSettings(prtstream& stream, const KVCacheSettings& settings) {
    stream.Escape(ESCAPE_WRITE_CACHE_SETTINGS, sizeof settings,
                  reinterpret_cast<const char*>(&settings), 0, nullptr);
}

bool ResetCacheSettings(prtstream& stream, KVCacheSettings& settings) {
    stream.CacheAction({KVCacheAction::RESET_SETTINGS, 0});
    return ReadCacheSettings(stream, settings);
}

void SetCacheMemory(KVCacheSettings& settings, const CacheParameters& parameters,
                    int32_t kilobytes) {
    settings.memory = Within(kilobytes, 0, parameters.largest_memory) * 1024;
}

void SetFirstFormat(KVCacheSettings& settings, const CacheParameters& parameters, int32_t number) {
    SetFirst(settings.first_format, settings.last_format,
             Within(number, parameters.format_min, parameters.format_max));
}

void SetLastFormat(KVCacheSettings& settings, const CacheParameters& parameters, int32_t number) {
    SetLast(settings.first_format, settings.last_format,
            Within(number, parameters.format_min, parameters.format_max));
}

void SetFirstGraphic(KVCacheSettings& settings, const CacheParameters& parameters, int32_t number) {
    SetFirst(settings.first_graphic, settings.last_graphic,
             Within(number, parameters.graphics_min, parameters.graphics_max));
}

void SetLastGraphic(KVCacheSettings& settings, const CacheParameters& parameters, int32_t number) {
    SetLast(settings.first_graphic, settings.last_graphic,
            Within(number, parameters.graphics_min, parameters.graphics_max));
}
