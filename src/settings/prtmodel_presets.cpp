// The printer model: installing its presets.
#include "model/prtmodel.h"
#include "settings/install_defaults.h"
#include "settings/preset_list.h"

void prtmodel::InstallDefault_Presets() {
    PresetList presets;
    InstallDefaults(presets, *this, [&](OFile& file) { presets.Import(file, this); });
}
