#include "settings/install_defaults.h"

#include "spooler/driver_utility.h"

namespace {

constexpr uint32_t kUTF8 = 1208;

} // namespace

// A file that does not exist must not be opened: that would create it.
bool OpenDefaultSettings(OFile& file, const prtmodel& model) {
    const OString name = DriverUtility::GetDriverDirectory() << "\\" << model.GetOEM() << "xxenu"
                                                             << ".kds";
    if (!OFile::Exists(name) || !file.Open(name, OFILE_READ)) return false;
    file.SetCodePage(kUTF8);
    return true;
}
