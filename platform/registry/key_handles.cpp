#include "registry/key_handles.h"

#include <win32host/fault_control.h>
#include <winerror.h>

#include <atomic>
#include <deque>
#include <mutex>

namespace win32host::registry {
namespace {

// A handle value: two zero bits, the shard, the slot within it and a count of the slot's uses. It
// stays below 0x80000000, where the root keys begin.
constexpr unsigned kShardBits = 4;
constexpr unsigned kSlotBits = 13;
constexpr unsigned kUseBits = 12;
constexpr unsigned kShards = 1u << kShardBits;
constexpr size_t kMostSlots = size_t{1} << kSlotBits;
constexpr uint32_t kUseMask = (1u << kUseBits) - 1;
static_assert(2 + kShardBits + kSlotBits + kUseBits == 31);

struct Slot {
    OpenKey key;
    uint32_t use = 1; // never 0, so that no handle is null
    bool open = false;
};

struct alignas(64) Shard {
    std::mutex lock;
    std::vector<Slot> slots;
    std::deque<size_t> free; // closed slots, the longest closed first
};

// Lives as long as the process, as threads may close keys while it ends.
Shard* Shards() {
    static Shard* const shards = new Shard[kShards];
    return shards;
}

uintptr_t ValueOf(unsigned shard, size_t slot, uint32_t use) {
    return ((((static_cast<uintptr_t>(use) << kSlotBits) | slot) << kShardBits) | shard) << 2;
}

// Runs `action` on the slot that the handle names, under its lock. False if it names none.
template <class Action>
bool OnSlot(HKEY handle, Action action) {
    const auto value = reinterpret_cast<uintptr_t>(handle);
    if (value == 0 || (value & 3) != 0 || value >= 0x80000000u) return false;
    Shard& shard = Shards()[(value >> 2) & (kShards - 1)];
    const size_t index = (value >> (2 + kShardBits)) & (kMostSlots - 1);
    const auto use = static_cast<uint32_t>(value >> (2 + kShardBits + kSlotBits));
    std::lock_guard guard(shard.lock);
    if (index >= shard.slots.size()) return false;
    Slot& slot = shard.slots[index];
    if (!slot.open || slot.use != use) return false;
    action(shard, slot, index);
    return true;
}

} // namespace

HKEY NewKeyHandle(const OpenKey& key) {
    static std::atomic<unsigned> turn{0};
    for (unsigned attempt = 0; attempt < kShards; ++attempt) {
        const unsigned number = turn.fetch_add(1, std::memory_order_relaxed) % kShards;
        Shard& shard = Shards()[number];
        std::lock_guard guard(shard.lock);
        size_t index = shard.slots.size();
        // Closed slots rest until there are so many that none is reused soon.
        constexpr size_t kResting = 64;
        if (shard.free.size() > kResting || (index >= kMostSlots && !shard.free.empty())) {
            index = shard.free.front();
            shard.free.pop_front();
        } else if (index < kMostSlots) {
            shard.slots.emplace_back();
        } else {
            continue;
        }
        Slot& slot = shard.slots[index];
        slot.key = key;
        slot.open = true;
        // The number also fits a 32-bit host, so it is the same everywhere.
        return reinterpret_cast<HKEY>(ValueOf(number, index, slot.use));
    }
    throw Error{ERROR_NOT_ENOUGH_MEMORY};
}

bool FindOpenKey(HKEY handle, OpenKey& key) {
    return OnSlot(handle, [&](Shard&, Slot& slot, size_t) { key = slot.key; });
}

bool CloseKeyHandle(HKEY handle) {
    return OnSlot(handle, [](Shard& shard, Slot& slot, size_t index) {
        slot.open = false;
        slot.use = slot.use == kUseMask ? 1 : slot.use + 1;
        shard.free.push_back(index);
    });
}

} // namespace win32host::registry

size_t win32host::OpenKeys() {
    size_t count = 0;
    for (unsigned number = 0; number < registry::kShards; ++number) {
        registry::Shard& shard = registry::Shards()[number];
        std::lock_guard guard(shard.lock);
        count += shard.slots.size() - shard.free.size();
    }
    return count;
}
