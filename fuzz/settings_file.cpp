// Any bytes as a settings file of any kind, with everything in it imported into one printer.
#include <windows.h>

#include <win32host/control.h>

#include <algorithm>
#include <cstdint>
#include <cstdlib>
#include <cstring>
#include <filesystem>
#include <fstream>
#include <memory>
#include <string>

#include "config/settings_file.h"
#include "driver/driver_utility.h"
#include "driver/printer_info.h"
#include "model/model_data_cache.h"
#include "model/resource_cache.h"
#include "support/data_file_text.h"
#include "zpl/extmodel.h"

namespace {

// A host of this process's own, which ends with it, with a printer that prints bar codes and writes
// tags.
class Host {
public:
    Host() {
        std::string pattern = (std::filesystem::temp_directory_path() / "fuzz-XXXXXX").string();
        if (!mkdtemp(pattern.data())) std::abort();
        folder_ = pattern;
        win32host::SetRoot(pattern);
        OResourceCache::Initialize();
        ModelDataCache::Initialize();
        DriverUtility::SetModuleHandle(GetModuleHandleW(TEXT("kernel32.dll")));
        const std::string driver_folder = DriverUtility::GetDriverDirectory().nstring();
        std::string path = (folder_ / "drive_c").string() + driver_folder.substr(2) + "/zpl.ddt";
        std::replace(path.begin(), path.end(), '\\', '/');
        std::filesystem::create_directories(std::filesystem::path(path).parent_path());
        std::ofstream(path, std::ios::binary)
            << Record("Driver.d", "[M]\nModel=Model:A\n")
            << Record("Model.d", "[A]\nBarCode=BarCode:A\nResolution=203\n~RFID.TagTypes=EPC64\n")
            << Record("BarCode.d", "[A]\nCode39=yes\nCode128=yes\n");

        ORegistry registry;
        registry.SetString("PRINT:Printers/P/Name", "P");
        registry.SetString("PRINT:Printers/P/Printer Driver", "M");
        const OString driver = "PRINT:Environments/Windows NT x86/Drivers/Version-3/M/";
        registry.SetString(driver + "Driver", "zplui.dll");
        registry.SetString(driver + "Data File", "zplqv.ddt");
        model_.reset(prtmodel::new_ext(PrinterInfo("P")));
        if (!model_ || !model_->HasRFID()) std::abort();
    }
    ~Host() {
        model_.reset();
        ModelDataCache::Free();
        OResourceCache::Free();
        std::error_code ignored;
        std::filesystem::remove_all(folder_, ignored);
    }
    prtmodel* Model() const { return model_.get(); }

private:
    std::filesystem::path folder_;
    std::unique_ptr<prtmodel> model_;
};

constexpr char kIn[] = "C:\\in.kds";
constexpr char kOut[] = "C:\\out.kds";

constexpr int kAll = SETTINGS_STOCKS | SETTINGS_PRESETS | SETTINGS_BAR_FONTS | SETTINGS_RFID_FONTS |
                     SETTINGS_OPTIONS;

// What has been imported is in order, and a file that it is exported to has it all.
void Check(StockList& stocks, PresetList& presets, DataFontManager& fonts, prtmodel& model,
           bool text) {
    for (const Stock *stock = stocks.GetNext(nullptr), *next;
         stock && (next = stocks.GetNext(stock)); stock = next) {
        const int names = std::strcmp(stock->GetName().nstring(), next->GetName().nstring());
        if (stock->is_user() == next->is_user() ? names >= 0 : next->is_user()) std::abort();
    }
    for (const Preset *preset = presets.GetNext(nullptr), *next;
         preset && (next = presets.GetNext(preset)); preset = next)
        if (preset->Collate(*next) > 0) std::abort();

    const KDSettingsResult written =
        ExportSettingsFile(kOut, kAll, {model, stocks, presets, fonts});
    StockList stocks_again(&model);
    PresetList presets_again;
    DataFontManager fonts_again;
    const KDSettingsResult read =
        ImportSettingsFile(kOut, kAll, {model, stocks_again, presets_again, fonts_again});
    // The names of old drivers may have line ends in them.
    if (text && (read.stocks != written.stocks || read.presets != written.presets ||
                 read.bar_fonts != written.bar_fonts || read.rfid_fonts != written.rfid_fonts))
        std::abort();
    if (!written.options) std::abort();
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    static const Host host;
    prtmodel& model = *host.Model();
    OFile(OString(kIn), OFILE_WRITE).Write(data, static_cast<uint32_t>(size));
    StockList stocks(&model);
    PresetList presets;
    DataFontManager fonts;
    ImportSettingsFile(kIn, kAll, {model, stocks, presets, fonts});
    Check(stocks, presets, fonts, model, size > 0 && data[0] == '<');
    return 0;
}
