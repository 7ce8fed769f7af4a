#include "settings/prtconfig.h"

#include <algorithm>
#include <cstring>

#include "model/prtmodel.h"

namespace {

constexpr size_t kPresetChecksum = offsetof(prtconfig, length) - sizeof(uint32_t);

// The bytes of configuration and tail. Old drivers did not count the user commands.
size_t ExtentOf(const endconfig& tail) {
    const size_t commands = offsetof(prtconfig, length);
    return tail.size < commands ? tail.size + commands : tail.size;
}

// The bytes of the configuration before a tail.
size_t RoomOf(const endconfig& tail) {
    return ExtentOf(tail) - sizeof tail;
}

bool IsSigned(const endconfig& tail) {
    return std::memcmp(tail.signature, "kvk", sizeof tail.signature) == 0;
}

const prtconfig* BlockOf(const endconfig& tail) {
    return reinterpret_cast<const prtconfig*>(reinterpret_cast<const char*>(&tail) - RoomOf(tail));
}

} // namespace

bool prtconfig::operator==(const prtconfig& other) const {
    for (int i = 0; i < USER_COMMANDS; ++i)
        if (std::strncmp(user[i], other.user[i], USER_COMMAND_SIZE) != 0) return false;
    if (length != other.length) return false;
    const size_t start = offsetof(prtconfig, version);
    if (length <= start) return true;
    return std::memcmp(reinterpret_cast<const char*>(this) + start,
                       reinterpret_cast<const char*>(&other) + start, length - start) == 0;
}

void prtconfig::Reset(const prtmodel* model) {
    std::memset(user, 0, sizeof user);
    flags = 0;
    reserved = 0;
    option_length = 6350;
    dithercfg settings;
    settings.Reset();
    if (model)
        settings.clustered_matrix = dithercfg::_DefaultClusterMatrix(model->GetXResolution());
    dither = settings;
}

void prtconfig::Validate(const prtmodel* model) {
    const int cleared =
        (model->CanMirror() ? 0 : FLAG_MIRROR) | (model->CanNegative() ? 0 : FLAG_NEGATIVE);
    flags = static_cast<uint16_t>(flags & ~cleared);
    dithercfg settings = dither;
    settings.Validate();
    dither = settings;
}

bool prtconfig::validate_range(int32_t& value, int32_t min, int32_t max) {
    const int32_t before = value;
    value = std::max(std::min(value, max), min);
    return value != before;
}

void prtconfig::set_user(const OString& text, int number) {
    if (number < 0 || number >= USER_COMMANDS) return;
    const char* bytes = text.nstring();
    const size_t size = strnlen(bytes, USER_COMMAND_SIZE);
    std::memcpy(user[number], bytes, size);
    std::memset(user[number] + size, 0, USER_COMMAND_SIZE - size);
}

uint32_t prtconfig::GetPresetCRC32() const {
    uint32_t checksum;
    std::memcpy(&checksum, reinterpret_cast<const char*>(this) + kPresetChecksum, sizeof checksum);
    return checksum;
}

void prtconfig::SetPresetCRC32(uint32_t checksum) {
    const size_t last = USER_COMMAND_SIZE - sizeof checksum - 1; // the terminator before it
    if (!std::memchr(user[USER_COMMANDS - 1], 0, last)) return;
    std::memcpy(reinterpret_cast<char*>(this) + kPresetChecksum, &checksum, sizeof checksum);
}

const endconfig* prtconfig::get_tail(const void* record, uint16_t size, uint16_t extra) {
    if (extra < sizeof(endconfig)) return nullptr;
    const char* end = static_cast<const char*>(record) + size + extra;
    const auto* tail = reinterpret_cast<const endconfig*>(end - sizeof(endconfig));
    return IsSigned(*tail) && ExtentOf(*tail) <= extra ? tail : nullptr;
}

const endconfig* prtconfig::get_tail(const DEVMODEW* dev_mode) {
    if (!dev_mode || dev_mode->dmSpecVersion == 0 || dev_mode->dmDriverVersion == 0 ||
        dev_mode->dmSize == 0)
        return nullptr;
    return get_tail(dev_mode, dev_mode->dmSize, dev_mode->dmDriverExtra);
}

endconfig* prtconfig::get_tail(DEVMODEW* dev_mode) {
    return const_cast<endconfig*>(get_tail(static_cast<const DEVMODEW*>(dev_mode)));
}

const prtconfig* prtconfig::get_cfg(const DEVMODEW* dev_mode) {
    const endconfig* tail = get_tail(dev_mode);
    if (!tail || RoomOf(*tail) < sizeof(prtconfig)) return nullptr;
    const prtconfig* config = BlockOf(*tail);
    return config->length <= RoomOf(*tail) ? config : nullptr;
}

prtconfig* prtconfig::get_cfg(DEVMODEW* dev_mode) {
    return const_cast<prtconfig*>(get_cfg(static_cast<const DEVMODEW*>(dev_mode)));
}

void prtconfig::Copy(endconfig* destination, const endconfig* source) {
    if (!destination || !source || destination == source) return;
    if (!IsSigned(*destination) || !IsSigned(*source) ||
        std::memcmp(destination->prefix, source->prefix, sizeof source->prefix) != 0)
        return;
    const size_t room = RoomOf(*destination);
    const size_t head = offsetof(prtconfig, flags); // as far as length and version
    if (room < head || RoomOf(*source) < head) return;

    auto* to = const_cast<prtconfig*>(BlockOf(*destination));
    const prtconfig* from = BlockOf(*source);
    if (to->version != from->version) return;
    const uint16_t own_length = to->length;
    const size_t size = std::min<size_t>({to->length, from->length, room, RoomOf(*source)});
    std::memmove(to, from, size);
    // A longer one does not become ours along with its length.
    if (to->length > own_length) to->length = own_length;
}

// Reset of a complete block and GetTotalSize belong to the printer language, in extconfig.
