#include "registry/hardware.h"

#include "host/machine.h"
#include "host/text.h"

#include <windows.h>

#include <atomic>
#include <initializer_list>
#include <string>
#include <utility>

namespace win32host::registry {
namespace {

constexpr std::u16string_view kHardware = u"HARDWARE";

// The location that was described last.
std::atomic<Location> g_described = nullptr;

bool LeadsToHardware(std::u16string_view path) {
    if (!path.starts_with(u'H') && !path.starts_with(u'h')) return false; // as nearly always
    return SameName(path.substr(0, path.find(u'\\')), kHardware);
}

std::u16string Identifier(const Processor& processor) {
    return Utf16(ProcessorArchitecture() + " Family " + std::to_string(processor.family) +
                 " Model " + std::to_string(processor.model) + " Stepping " +
                 std::to_string(processor.stepping));
}

void SetText(Store& store, int64_t key, std::u16string_view name, const std::u16string& text) {
    if (text.empty()) {
        store.DeleteValue(key, name);
        return;
    }
    const auto* bytes = reinterpret_cast<const char*>(text.c_str());
    const std::string wanted(bytes, (text.size() + 1) * sizeof(char16_t));
    const Value* value = nullptr;
    const bool is_known = store.Read(key, name, value) == ERROR_SUCCESS && value->found;
    if (is_known && value->type == REG_SZ && value->bytes == wanted) return;
    store.Write(key, name, REG_SZ, reinterpret_cast<const BYTE*>(wanted.data()), wanted.size());
}

using Texts = std::initializer_list<std::pair<std::u16string_view, std::u16string>>;

void Describe(Store& store, int64_t machine_key, std::u16string_view path, const Texts& texts) {
    KeyFound key;
    bool is_new = false;
    if (store.Create(machine_key, path, {}, key, is_new) != ERROR_SUCCESS) return;
    for (const auto& [name, text] : texts) SetText(store, key.id, name, text);
}

} // namespace

void DescribeHardware(Location location, int64_t machine_key, std::u16string_view path) {
    if (!LeadsToHardware(path) || g_described.exchange(location) == location) return;
    try {
        Store& store = StoreOf(location);
        const Processor processor = FirstProcessor();
        Describe(store, machine_key, u"HARDWARE\\DESCRIPTION\\System\\CentralProcessor\\0",
                 {{u"VendorIdentifier", Utf16(processor.vendor)},
                  {u"ProcessorNameString", Utf16(processor.name)},
                  {u"Identifier", Identifier(processor)}});
        const System system = RunningSystem();
        Describe(store, machine_key, u"HARDWARE\\DESCRIPTION\\Host",
                 {{u"Name", Utf16(system.name)}, {u"Kernel", Utf16(system.kernel)}});
    } catch (const Error&) {
        // The caller finds what is there.
    }
}

} // namespace win32host::registry
