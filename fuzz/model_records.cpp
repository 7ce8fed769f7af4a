// Model data tables: whatever their properties say, the records keep to their layouts. Texts end
// within their fields, and what must not be zero is not.
#include <cstdint>
#include <cstdlib>
#include <cstring>
#include <memory>
#include <string>

#include "model/model_data_cache.h"
#include "model/resource_cache.h"
#include "spooler/printer_info.h"
#include "support/data_file_text.h"
#include "target.h"
#include "zpl/extmodel.h"

namespace {

template <size_t N>
void CheckText(const char (&field)[N]) {
    if (!std::memchr(field, 0, N)) std::abort();
}

} // namespace

FUZZ_TARGET(model_records)(const uint8_t* data, size_t size) {
    // Every table has the same properties, so that one input reaches all readers.
    const std::string text = "[.default]\nDrawing=Drawing:A\nMethod=Method:A\nFont=Font:A\n"
                             "BarCode=BarCode:A\nFeatures=Features:A\n~CustomData=~CustomData:A\n"
                             "Model=Model:A\nManufacturer=Manufacturer:A\n" +
                             std::string(reinterpret_cast<const char*>(data), size);
    std::string file;
    for (const char* table : {"Driver", "Manufacturer", "Model", "Drawing", "Method", "Font",
                              "BarCode", "Features", "~CustomData"})
        file += Record(std::string(table) + ".d", text);

    // The module is not attached and the printer is unknown, so there is no folder and no prefix.
    OResourceCache::Initialize();
    ModelDataCache::Initialize();
    if (OResourceFile* opened = OResourceCache::GetResourceFile("\\.ddt"))
        opened->Parse(file.data(), file.size());
    {
        std::unique_ptr<prtmodel> model(prtmodel::new_ext(PrinterInfo(nullptr)));
        const KVModelData* model_data = model->GetModelData();
        CheckText(model_data->company_name);
        CheckText(model_data->product_name);
        CheckText(model_data->font_prefix);
        if (model_data->copies_limit == 0 || model_data->tracking > 2 ||
            model_data->natural_orientation > 3)
            std::abort();
        OTypedArray<int> resolutions;
        if (model->GetResolutions(resolutions) > 8) std::abort();

        const KVCapabilitiesData* capabilities = model->GetCapabilitiesData();
        for (const KVSymbologyData& symbology : capabilities->symbologies) {
            CheckText(symbology.font_name);
            if (symbology.hr_mode > 2) std::abort();
        }
        for (const KVDefaultFont& font : capabilities->fonts) CheckText(font.name);
        CheckText(model->GetManufacturerInfo()->manufacturer);
        model->GetRFIDCapabilities();
        model->GetCustomData();
        for (unsigned capability = 0; capability < 40; ++capability)
            model->DeviceCapabilitiesW(static_cast<uint16_t>(capability), nullptr, nullptr);
    }
    OResourceCache::Free();
    ModelDataCache::Free();
    return 0;
}
