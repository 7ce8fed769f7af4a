// What the driver's default settings file gives a new printer. The printer model stands below its
// stocks and presets; these operations of it belong to both.
#include "settings/install_defaults.h"

#include "core/memory.h"
#include "driver/driver_utility.h"
#include "model/prtmodel.h"
#include "settings/preset_list.h"
#include "settings/stock_list.h"

namespace {

constexpr uint32_t UTF8 = 1208;

// Whether all of a file has been taken.
bool IsWhole(const OFile& file, uint32_t failures_before) {
    return !file.HasFailed() && AllocationFailures() == failures_before;
}

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
    OFile file;
    if (!OpenDefaultSettings(file, *this)) return;
    const uint32_t failures = AllocationFailures();
    PresetList presets;
    presets.Load(this);
    presets.Import(file, this);
    if (IsWhole(file, failures)) presets.Save(this);
}

void prtmodel::InstallDefault_Stocks() {
    OFile file;
    if (!OpenDefaultSettings(file, *this)) return;
    const uint32_t failures = AllocationFailures();
    StockList stocks(this);
    stocks.Load(this);
    stocks.Import(file, 0);
    if (IsWhole(file, failures)) stocks.Save(this);
}
