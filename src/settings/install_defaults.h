// The settings that a new printer gets.
#pragma once

#include <cstdint>

#include "core/memory.h"
#include "core/ofile.h"
#include "model/prtmodel.h"

// Opens the default settings file of a model's brand, which is beside the driver, for reading as
// UTF-8. False if there is none.
bool OpenDefaultSettings(OFile& file, const prtmodel& model);

// Loads a list, lets `import(file)` add entries from that file, and stores the list unless the
// file, the model or the list could be read only in part.
template <class List, class Import>
void InstallDefaults(List& list, const prtmodel& model, Import import) {
    OFile file;
    if (!OpenDefaultSettings(file, model)) return;
    const AllocationWatch memory;
    list.Load(&model);
    import(file);
    if (file.HasFailed() || memory.Failed() || !model.WasReadWhole()) return;
    // Nobody is there to be told. A printer that cannot be given its defaults works without them.
    static_cast<void>(list.Save(&model));
}
