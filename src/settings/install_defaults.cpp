// What the driver's default settings file gives a new printer. The printer model stands below its
// stocks and presets; these operations of it belong to both.
#include "settings/install_defaults.h"

#include "driver/driver_utility.h"
#include "model/prtmodel.h"
#include "settings/preset_list.h"
#include "settings/stock_list.h"

namespace {

constexpr uint32_t UTF8 = 1208;

} // namespace

// A file that does not exist must not be opened: that would make it.
bool OpenDefaultSettings(OFile& file, const prtmodel& model) {
    const OString name = DriverUtility::GetDriverDirectory() << "\\" << model.GetOEM() << "xxenu"
                                                             << ".kds";
    if (!OFile::Exists(name) || !file.Open(name, OFILE_READ)) return false;
    file.SetCodePage(UTF8);
    return true;
}

void prtmodel::InstallDefault_Presets() {
    PresetList presets;
    InstallDefaults(presets, *this, [&](OFile& file) { presets.Import(file, this); });
}

void prtmodel::InstallDefault_Stocks() {
    StockList stocks(this);
    InstallDefaults(stocks, *this, [&](OFile& file) { stocks.Import(file, 0); });
}
