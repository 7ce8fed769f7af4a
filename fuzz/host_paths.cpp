// Any UTF-16 text as a Windows path name: a name on drive C never leads out of the root folder.
#include <cstdint>
#include <string>

#include "../platform/files/paths.h"
#include "fuzz_host.h"
#include "input.h"
#include "target.h"

FUZZ_TARGET(host_paths)(const uint8_t* data, size_t size) {
    static const FuzzHost host(UsualModelData());
    Input input(data, size);
    const bool narrow = input.Number() % 2 != 0;
    const std::string bytes = input.Rest();
    const std::u16string name = narrow ? std::u16string(bytes.begin(), bytes.end()) : Units(bytes);

    const std::u16string full = win32host::FullPath(name);
    const auto place = win32host::HostPath(name);
    if (!place) return 0;
    Check(place->starts_with("/") && place->find('\0') == std::string::npos);
    Check((*place + '/').find("/../") == std::string::npos);
    const bool on_c = full.size() >= 2 && (full[0] | 0x20) == u'c' && full[1] == u':';
    if (on_c) Check((*place + '/').starts_with(host.OnDriveC("") + '/'));
    return 0;
}
