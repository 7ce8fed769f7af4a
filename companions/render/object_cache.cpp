#include "object_cache.h"

#include <algorithm>
#include <cstring>
#include <optional>
#include <set>
#include <utility>

#include "cache_settings.h"
#include "core/machine_lock.h"
#include "printer_value.h"

namespace {

constexpr WCHAR kObjectsValue[] = TEXT("Render Cache Objects");

// As many as fit into a description, whose size is a 16-bit number.
constexpr size_t kMostObjects = 1000;
static_assert(sizeof(KVCacheInformation) + kMostObjects * sizeof(KVCacheItemInfo) <= 0xFFFF);

constexpr DWORD kLongestWait = 60 * 1000;

// Whether it can be one that was stored here: its name goes into commands as it is.
bool IsSound(const KeptObject& object) {
    if (object.info.kind > KVCacheItemInfo::FORMAT) return false;
    if (object.location < 'A' || object.location > 'Z') return false;
    const ObjectName where = object.Where();
    const std::string name = where.name + '.' + where.extension;
    const auto is_bad = [](unsigned char c) { return c < ' ' || std::strchr("^~,*?", c); };
    return name == object.info.name && std::none_of(name.begin(), name.end(), is_bad);
}

// The objects in the printer's data, but for those that are damaged or there twice.
std::vector<KeptObject> ReadObjects(HANDLE printer) {
    std::vector<KeptObject> stored(kMostObjects);
    const size_t size =
        ReadPrinterValue(printer, kObjectsValue, stored.data(), stored.size() * sizeof(KeptObject));
    stored.resize(size % sizeof(KeptObject) ? 0 : size / sizeof(KeptObject));
    std::vector<KeptObject> objects;
    std::set<uint32_t> ids;
    std::set<std::pair<uint16_t, uint32_t>> numbers;
    std::set<std::string> names;
    for (KeptObject& object : stored) {
        object.info.name[sizeof object.info.name - 1] = 0;
        if (IsSound(object) && ids.insert(object.info.id).second &&
            numbers.emplace(object.info.kind, object.info.number).second &&
            names.insert(object.Where().Text()).second)
            objects.push_back(object);
    }
    return objects;
}

void Raise(uint16_t& counter) {
    if (counter < 0xFFFF) ++counter;
}

// ---- Numbers ------------------------------------------------------------------------------------

struct Range {
    uint32_t first, last;

    bool Has(uint32_t number) const { return number >= first && number <= last; }
};

// The lowest number of a range that is not taken; nothing if all are.
std::optional<uint32_t> LowestFree(const std::set<uint32_t>& taken, Range range) {
    for (uint64_t number = range.first; number <= range.last; ++number)
        if (!taken.contains(static_cast<uint32_t>(number))) return static_cast<uint32_t>(number);
    return std::nullopt;
}

std::optional<uint32_t> FreeNumber(const std::vector<KeptObject>& list, uint16_t kind,
                                   Range range) {
    std::set<uint32_t> taken;
    for (const KeptObject& object : list)
        if (object.info.kind == kind) taken.insert(object.info.number);
    return LowestFree(taken, range);
}

// Above those of all objects, so that nobody takes a new one for one that was there.
uint32_t FreeId(const std::vector<KeptObject>& list) {
    std::set<uint32_t> taken;
    for (const KeptObject& object : list) taken.insert(object.info.id);
    const uint32_t highest = taken.empty() ? 0 : *taken.rbegin();
    const uint32_t first = highest < UINT32_MAX ? highest + 1 : 1;
    return *LowestFree(taken, {first, UINT32_MAX}); // the list is short
}

} // namespace

ObjectName KeptObject::Where() const {
    return ObjectName(std::string(1, static_cast<char>(location)) + ':' + info.name);
}

// ---- The list -----------------------------------------------------------------------------------

class ObjectCache::Objects {
public:
    explicit Objects(const ObjectCache& cache)
        : cache_(cache)
        , lock_(TEXT("Valdrick Printer Objects"), kLongestWait) {
        if (IsLocked()) list = ReadObjects(cache.printer_);
    }

    // False if others did not let go of the list. Then it must stay as it is.
    bool IsLocked() const { return lock_.IsHeld(); }

    [[nodiscard]] bool Store() const {
        return WritePrinterValue(cache_.name_.c_str(), kObjectsValue,
                                 list.empty() ? nullptr : list.data(),
                                 list.size() * sizeof(KeptObject));
    }

    // Puts what was stored into the list, and moves what has to make room for it to `gone`.
    void Add(const ObjectEvent& event, const KVCacheSettings& settings,
             std::vector<KeptObject>& gone);

    std::vector<KeptObject> list;

private:
    const ObjectCache& cache_;
    const MachineLock lock_;
};

void ObjectCache::Objects::Add(const ObjectEvent& event, const KVCacheSettings& settings,
                               std::vector<KeptObject>& gone) {
    const bool is_format = event.kind == KVCacheItemInfo::FORMAT;
    const uint32_t location = is_format ? settings.format_location : settings.graphics_location;
    const Range range = is_format ? Range{settings.first_format, settings.last_format}
                                  : Range{settings.first_graphic, settings.last_graphic};
    const auto is_same = [&](const KeptObject& other) { return other.Where() == event.where; };
    // It is in the printer again, and must not be erased at the end of the job.
    std::erase_if(gone, is_same);

    KeptObject object = {};
    std::optional<uint32_t> number;
    // What is stored again stays the same object.
    if (const auto same = std::find_if(list.begin(), list.end(), is_same); same != list.end()) {
        object = *same;
        number = object.info.number;
        list.erase(same);
    } else {
        object.location = static_cast<unsigned char>(event.where.device);
        object.info.id = FreeId(list);
        object.info.kind = event.kind;
        (event.where.name + '.' + event.where.extension)
            .copy(object.info.name, sizeof object.info.name - 1);
        number = FreeNumber(list, event.kind, range);
    }
    object.info.size = event.size;
    if (object.location != location) return;

    // Who makes room is found on a copy: if it is not enough, all stay.
    std::vector<KeptObject> staying = list, going;
    // Takes the object that has not been used for the longest time, of those that help. False if
    // there is none that is not locked.
    const auto make_room = [&](const auto& helps) {
        auto oldest = staying.end();
        for (auto at = staying.begin(); at != staying.end(); ++at)
            if (!at->info.locked && helps(*at) &&
                (oldest == staying.end() || at->info.counters[1] > oldest->info.counters[1]))
                oldest = at;
        if (oldest == staying.end()) return false;
        going.push_back(*oldest);
        staying.erase(oldest);
        return true;
    };
    if (!number) {
        if (!make_room([&](const KeptObject& other) {
                return other.info.kind == event.kind && range.Has(other.info.number);
            }))
            return;
        number = going.back().info.number;
    }
    uint64_t bytes = event.size;
    for (const KeptObject& other : staying) bytes += other.info.size;
    while (bytes > settings.memory || staying.size() >= kMostObjects) {
        if (!make_room([](const KeptObject&) { return true; })) return;
        bytes -= going.back().info.size;
    }
    object.info.number = *number;
    list = std::move(staying);
    list.push_back(object);
    gone.insert(gone.end(), going.begin(), going.end());
}

// ---- Jobs ---------------------------------------------------------------------------------------

bool ObjectCache::EndJob() {
    const std::vector<ObjectEvent> events = watch_.End();
    if (events.empty()) return true;
    const KVCacheSettings settings = ReadCacheSettings(printer_);
    Objects objects(*this);
    if (!objects.IsLocked()) return true;
    for (KeptObject& object : objects.list) Raise(object.info.counters[1]);
    std::vector<KeptObject> gone;
    for (const ObjectEvent& event : events) {
        if (event.act == ObjectEvent::STORED) {
            objects.Add(event, settings, gone);
            continue;
        }
        if (event.act == ObjectEvent::ERASED)
            std::erase_if(objects.list, [&](const KeptObject& object) {
                return object.Where().Matches(event.where);
            });
        for (KeptObject& object : objects.list) {
            if (object.Where() != event.where) continue;
            Raise(object.info.counters[0]);
            object.info.counters[1] = 0;
        }
    }
    bool good = true;
    for (const KeptObject& object : gone) good = Erase(object) && good;
    // A user who may not change the printer's data prints all the same.
    static_cast<void>(objects.Store());
    return good;
}

bool ObjectCache::Erase(const KeptObject& object) {
    return output_.Write("^XA^ID" + object.Where().Text() + "^FS^XZ\r\n");
}

// ---- Questions and actions ----------------------------------------------------------------------

int ObjectCache::Describe(unsigned char* output, ULONG size) const {
    const std::vector<KeptObject> objects = ReadObjects(printer_);
    size_t count = objects.size();
    KVCacheInformation header = {};
    if (output && size < sizeof header) return -1;
    // More may have come since the size was asked for.
    if (output) count = std::min(count, (size - sizeof header) / sizeof(KVCacheItemInfo));
    header.size = static_cast<uint16_t>(sizeof header + count * sizeof(KVCacheItemInfo));
    header.count = static_cast<uint16_t>(count);
    if (!output) return header.size;
    std::memcpy(output, &header, sizeof header);
    for (size_t i = 0; i < count; ++i)
        std::memcpy(output + sizeof header + i * sizeof(KVCacheItemInfo), &objects[i].info,
                    sizeof(KVCacheItemInfo));
    return header.size;
}

bool ObjectCache::Clear() {
    Objects objects(*this);
    if (!objects.IsLocked()) return false;
    for (const KeptObject& object : objects.list)
        if (!Erase(object)) return false;
    objects.list.clear();
    return objects.Store();
}

bool ObjectCache::Forget(uint32_t location) {
    Objects objects(*this);
    if (!objects.IsLocked()) return false;
    std::erase_if(objects.list,
                  [&](const KeptObject& object) { return object.location == location; });
    return objects.Store();
}

bool ObjectCache::Act(const KVCacheItemAction& action) {
    Objects objects(*this);
    if (!objects.IsLocked()) return false;
    const auto found =
        std::find_if(objects.list.begin(), objects.list.end(),
                     [&](const KeptObject& object) { return object.info.id == action.id; });
    if (found == objects.list.end()) return false;
    switch (action.action) {
    case KVCacheItemAction::PRINT: {
        const std::string print = (found->info.kind == KVCacheItemInfo::FORMAT
                                       ? "^XA^XF" + found->Where().Text()
                                       : "^XA^FO0,0^XG" + found->Where().Text() + ",1,1") +
                                  "^FS^XZ\r\n";
        Read(print.data(), print.size());
        return output_.Write(print);
    }
    case KVCacheItemAction::REMOVE:
        if (!Erase(*found)) return false;
        objects.list.erase(found);
        break;
    case KVCacheItemAction::LOCK:
    case KVCacheItemAction::UNLOCK:
        found->info.locked = action.action == KVCacheItemAction::LOCK;
        break;
    default:
        return false;
    }
    return objects.Store();
}
