// Any bytes as a PE file, whose resources are looked up and read to their ends.
#include "../platform/modules/pe_image.h"
#include "target.h"

#include <algorithm>
#include <numeric>

FUZZ_TARGET(pe_resources)(const uint8_t* data, size_t size) {
    using win32host::PeImage;
    using win32host::ResourceName;
    const auto image = PeImage::Parse({data, size});
    if (!image) return 0;
    ResourceName text;
    text.is_number = false;
    text.text = u"NAMED_DATA";
    for (const uint16_t type : {uint16_t{4}, uint16_t{6}, uint16_t{10}}) {
        ResourceName type_name;
        type_name.number = type;
        static_cast<void>(image->Names(type_name));
        for (uint16_t number = 0; number < 32; ++number) {
            ResourceName name;
            name.number = number;
            for (const ResourceName& wanted : {name, text}) {
                DWORD error = 0;
                const auto entry =
                    image->FindEntry(type_name, wanted, number % 3 ? 0 : 9, 0x0407, error);
                const auto bytes = entry ? image->Data(*entry) : std::nullopt;
                if (!bytes) continue;
                volatile unsigned sum = std::accumulate(bytes->begin(), bytes->end(), 0u);
                static_cast<void>(sum);
                for (unsigned index = 0; index < 16; ++index)
                    if (const auto found = win32host::StringOfBlock(*bytes, index))
                        sum = std::accumulate(found->begin(), found->end(), 0u);
            }
        }
    }
    return 0;
}
