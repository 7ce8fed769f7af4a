// The settings for formats and graphics that the rendering module keeps in the printer. Only for
// the page that changes them.
#pragma once

#include <cstdint>

#include "printer/cache_parameters.h"
#include "printer/escape_records.h"

class prtstream;

// False, with `settings` unchanged, if the rendering module does not answer.
bool ReadCacheSettings(prtstream& stream, KVCacheSettings& settings);
void WriteCacheSettings(prtstream& stream, const KVCacheSettings& settings);
// Makes the rendering module return to its own settings, and reads them.
bool ResetCacheSettings(prtstream& stream, KVCacheSettings& settings);

// Change the settings. Each value is brought within the limits of `parameters`. The first of two
// numbers pushes the last one up, and the last one pushes the first one down.
void SetCacheMemory(KVCacheSettings& settings, const CacheParameters& parameters,
                    int32_t kilobytes);
void SetFirstFormat(KVCacheSettings& settings, const CacheParameters& parameters, int32_t number);
void SetLastFormat(KVCacheSettings& settings, const CacheParameters& parameters, int32_t number);
void SetFirstGraphic(KVCacheSettings& settings, const CacheParameters& parameters, int32_t number);
void SetLastGraphic(KVCacheSettings& settings, const CacheParameters& parameters, int32_t number);
