// Registry texts from settings files: reading must survive anything, and every value that was read
// must survive being written and read again.
#include <cstdint>
#include <cstdlib>
#include <cstring>

#include "input.h"
#include "registry/oregistry_text.h"
#include "target.h"

namespace {

void CheckRoundTrip(const RegistryValue& value) {
    OStringArray lines;
    RegistryLineArray array(lines);
    RegistryTextWriter(array).WriteValue(value.name.wstring(), value.type, value.data.GetData(),
                                         value.data.GetSize());
    RegistryTextReader reader;
    Check(reader.Read("[HKEY_CURRENT_USER\\Key]") == RegistryTextReader::BeginKey);
    for (int i = 0; i + 1 < lines.GetSize(); ++i) {
        Check(reader.Read(lines[i]) == RegistryTextReader::Nothing);
    }
    Check(reader.Read(lines[lines.GetSize() - 1]) == RegistryTextReader::StoreValue);
    const RegistryValue& again = reader.Value();
    Check(again.name == value.name && again.type == value.type);
    Check(again.data.GetSize() == value.data.GetSize());
    Check(value.data.GetSize() == 0 ||
          std::memcmp(again.data.GetData(), value.data.GetData(), value.data.GetSize()) == 0);
}

} // namespace

FUZZ_TARGET(registry_text)(const uint8_t* data, size_t size) {
    RegistryTextReader reader;
    while (size > 0) {
        const auto* end = static_cast<const uint8_t*>(std::memchr(data, '\n', size));
        const size_t length = end ? static_cast<size_t>(end - data) : size;
        OString line;
        line.SetCodePage(1208);
        if (char* text = line.GetBufferA(static_cast<int>(length))) {
            std::memcpy(text, data, length);
            text[length] = 0;
        }
        if (reader.Read(line) == RegistryTextReader::StoreValue) CheckRoundTrip(reader.Value());
        const size_t taken = end ? length + 1 : length;
        data += taken;
        size -= taken;
    }
    return 0;
}
