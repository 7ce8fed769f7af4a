// The description of the objects in the printer: whatever it says, the list has only objects that
// are in it, each once, in every sort order.
#include <cstdint>
#include <cstdlib>

#include "printer/cache_contents.h"
#include "target.h"

FUZZ_TARGET(cache_description)(const uint8_t* data, size_t size) {
    CacheContents contents;
    contents.Take(data, static_cast<uint32_t>(size));
    const int count = contents.GetSize();
    if (count > 0 &&
        sizeof(KVCacheInformation) + static_cast<size_t>(count) * sizeof(KVCacheItemInfo) > size)
        std::abort();
    for (int column = CacheContents::OBJECT; column <= CacheContents::NAME; ++column) {
        contents.SortBy(static_cast<CacheContents::Column>(column));
        if (contents.GetSize() != count) std::abort();
    }
    contents.Toggle(CacheContents::VIEW_GRAPHICS);
    const int formats = contents.GetSize();
    contents.Toggle(CacheContents::VIEW_FORMATS);
    if (formats + contents.GetSize() != count) std::abort();
    return 0;
}
