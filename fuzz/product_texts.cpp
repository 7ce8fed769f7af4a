// The inputs of ddtpack: model data files, keys files of custom data, and default settings in text
// form. It and the driver can read what it makes.
#include <cstdint>
#include <string>

#include "ddtpack/custom_data.h"
#include "ddtpack/data_file.h"
#include "ddtpack/default_settings.h"
#include "ddtpack/tool_error.h"
#include "fonts/data_font_manager.h"
#include "fuzz_host.h"
#include "input.h"
#include "model/table_text.h"
#include "settings/preset_list.h"
#include "settings/stock_list.h"
#include "target.h"

namespace {

// True if `work` found nothing wrong.
template <class Work>
bool Succeeds(const Work& work) {
    try {
        work();
        return true;
    } catch (const ToolError&) {
        return false;
    }
}

void CheckSettings(prtmodel* model) {
    OFile file(OString(kOut), OFILE_READ);
    file.SetCodePage(1208);
    StockList stocks(model);
    stocks.Import(file, 0);
    PresetList presets;
    presets.Import(file, model);
    DataFontManager fonts;
    fonts.ImportBarFont(file, model);
}

} // namespace

FUZZ_TARGET(product_texts)(const uint8_t* data, size_t size) {
    static const FuzzHost host(UsualModelData());
    const std::string text(reinterpret_cast<const char*>(data), size);

    Succeeds([&] {
        const std::vector<Resource> resources = DecodeDataFile(text, "in");
        const std::vector<Resource> again = DecodeDataFile(EncodeDataFile(resources), "out");
        Check(again.size() == resources.size());
        for (size_t i = 0; i < again.size(); ++i)
            Check(again[i].name == resources[i].name && again[i].bytes == resources[i].bytes);
    });
    Succeeds([&] {
        const std::string table = CustomDataTable(text, "in");
        TableText lines;
        lines.Parse(table.data(), static_cast<uint32_t>(table.size()));
    });
    if (Succeeds([&] { WriteDefaultSettings(kOut, {{"in", text}}); })) CheckSettings(host.Model());
    return 0;
}
