// Requests to the status monitor as printer data: any name, with any bytes left for it in the
// printer's key. It changes only the shared settings of that printer.
#include <windows.h>

#include <cstdint>
#include <string>

#include "fuzz_host.h"
#include "input.h"
#include "keys/prtreg.h"
#include "keys/shared_keys_text.h"
#include "qstmon/qstmon.h"
#include "target.h"

namespace {

// A checksum of everything in the registry that no client may touch.
uint32_t Forbidden() {
    ORegistry registry;
    uint32_t checksum = 0;
    for (const char* key : {"LOCAL_MACHINE:SOFTWARE", "PRINT:", "PRINT:Printers",
                            "PRINT:Printers/P", "CURRENT_USER:Software"}) {
        OStringArray keys, values;
        registry.EnumKeys(key, keys);
        registry.EnumValues(key, values);
        checksum = checksum * 31 + SharedKeysChecksum(keys);
        checksum = checksum * 31 + SharedKeysChecksum(values);
    }
    return checksum;
}

} // namespace

FUZZ_TARGET(monitor_data)(const uint8_t* data, size_t size) {
    static const FuzzHost host(UsualModelData());
    static prtreg registry("P");
    Input input(data, size);
    const std::string name = input.Text(input.Number16());
    const std::vector<uint8_t> left = input.Take(size);
    const auto left_size = static_cast<uint32_t>(left.size());
    registry.SetDWORD("PRINT:Printers/P/Attributes", 0x800); // bidirectional
    registry.SetByte("Settings:Network Sharing", 1);
    registry.SetByte("LOCAL:Status Monitor/Here", 1);
    registry.SetBinary("DATA:Shadow Key Data", left.data(), left_size);
    registry.SetDWORD("DATA:Shadow Key Size", left_size);
    static const uint32_t before = Forbidden();

    const std::u16string wide(name.begin(), name.end());
    const WCHAR* const question = wide.c_str();
    DWORD type = 0, needed = 0;
    std::vector<BYTE> answer(16);
    const DWORD error = MonitorPrinterData(TEXT("P"), question, &type, answer.data(),
                                           static_cast<DWORD>(answer.size()), &needed);
    Check(error != ERROR_SUCCESS || needed <= answer.size());
    MonitorTakesJob(TEXT("P"), data, static_cast<DWORD>(size));
    Check(Forbidden() == before);
    registry.Delete("DATA:", true);
    registry.Delete("LOCAL:", true);
    return 0;
}
