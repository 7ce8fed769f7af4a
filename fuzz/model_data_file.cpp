// Any bytes as a model data file: every resource is found, decompressed and parsed.
#include "model/data_table.h"
#include "model/resource_file.h"
#include "target.h"

FUZZ_TARGET(model_data_file)(const uint8_t* data, size_t size) {
    OResourceFile file("");
    file.Parse(data, size);
    for (const char* name : {"Driver.d", "Model.d", "A", ""})
        if (OResource* resource = file.Find(name)) resource->GetTextData();
    const ODataTable table(&file, "Driver", "M");
    return 0;
}
