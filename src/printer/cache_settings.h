// How the rendering module keeps formats and graphics in the printer: the work of the page that
// changes it, and of nothing else.
#pragma once

#include <cstdint>

#include "printer/cache_parameters.h"
#include "printer/escape_records.h"

class prtstream;

// False, and `settings` as they were, when the rendering module does not tell.
bool ReadCacheSettings(prtstream& stream, KVCacheSettings& settings);
void WriteCacheSettings(prtstream& stream, const KVCacheSettings& settings);
// Has the rendering module return to its own settings, and reads them.
bool ResetCacheSettings(prtstream& stream, KVCacheSettings& settings);

// Changes to the settings. Each value is brought within the limits of `parameters`. The first of
// two numbers pushes the last one up, the last one pushes the first one down.
void SetCacheMemory(KVCacheSettings& settings, const CacheParameters& parameters,
                    int32_t kilobytes);
void SetFirstFormat(KVCacheSettings& settings, const CacheParameters& parameters, int32_t number);
void SetLastFormat(KVCacheSettings& settings, const CacheParameters& parameters, int32_t number);
void SetFirstGraphic(KVCacheSettings& settings, const CacheParameters& parameters, int32_t number);
void SetLastGraphic(KVCacheSettings& settings, const CacheParameters& parameters, int32_t number);
