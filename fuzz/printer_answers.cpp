// Every reader of a printer's answers, on any bytes.

#include <cstdint>

#include "core/ostring_array.h"
#include "model/property_set.h"
#include "target.h"
#include "zpl/host_lists.h"
#include "zpl/host_status.h"

FUZZ_TARGET(printer_answers)(const uint8_t* data, size_t size) {
    const char* answer = reinterpret_cast<const char*>(data);
    const auto length = static_cast<uint32_t>(size);
    OPropertySet properties;
    ReadHostIdentification(answer, length, properties);
    ReadHostStatus(answer, length, properties);
    ReadHostMemory(answer, length, properties);
    ReadPowerStatus(answer, length);
    OStringArray files, configuration;
    ReadFileList(answer, length, files);
    ReadFileList(answer, length, files);
    ReadConfigurationList(answer, length, configuration);
    return 0;
}
