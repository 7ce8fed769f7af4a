#include "object_cache.h"

#include <algorithm>
#include <cstring>

#include "cache_settings.h"
#include "printer_value.h"

namespace {

constexpr WCHAR kObjectsValue[] = TEXT("Render Cache Objects");

// As many as fit into a description, whose size is a 16-bit number.
constexpr size_t kMostObjects = 1000;
static_assert(sizeof(KVCacheInformation) + kMostObjects * sizeof(KVCacheItemInfo) <= 0xFFFF);

std::vector<KeptObject> ReadObjects(HANDLE printer) {
    std::vector<KeptObject> objects(kMostObjects);
    const size_t size = ReadPrinterValue(printer, kObjectsValue, objects.data(),
                                         objects.size() * sizeof(KeptObject));
    objects.resize(size % sizeof(KeptObject) ? 0 : size / sizeof(KeptObject));
    for (KeptObject& object : objects) object.info.name[sizeof object.info.name - 1] = 0;
    return objects;
}

void Raise(uint16_t& counter) {
    if (counter < 0xFFFF) ++counter;
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
        , mutex_(CreateMutexW(nullptr, FALSE, TEXT("Valdrick Printer Objects"))) {
        if (mutex_) WaitForSingleObject(mutex_, INFINITE);
        list = ReadObjects(cache.printer_);
    }
    ~Objects() {
        if (mutex_) ReleaseMutex(mutex_);
        if (mutex_) CloseHandle(mutex_);
    }
    Objects(const Objects&) = delete;
    Objects& operator=(const Objects&) = delete;

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
    static constexpr uint32_t kNoNumber = UINT32_MAX;

    uint32_t FreeNumber(KVCacheItemInfo::Kind kind, const KVCacheSettings& settings) const;
    // Moves the object that has not been used for the longest time to `gone`: one of a kind, or of
    // either kind for a null pointer. False if all are locked.
    bool MakeRoom(const KVCacheItemInfo::Kind* kind, std::vector<KeptObject>& gone);

    const ObjectCache& cache_;
    const HANDLE mutex_;
};

uint32_t ObjectCache::Objects::FreeNumber(KVCacheItemInfo::Kind kind,
                                          const KVCacheSettings& settings) const {
    const bool format = kind == KVCacheItemInfo::FORMAT;
    const uint32_t last = format ? settings.last_format : settings.last_graphic;
    for (uint32_t number = format ? settings.first_format : settings.first_graphic; number <= last;
         ++number)
        if (std::none_of(list.begin(), list.end(), [&](const KeptObject& object) {
                return object.info.kind == kind && object.info.number == number;
            }))
            return number;
    return kNoNumber;
}

bool ObjectCache::Objects::MakeRoom(const KVCacheItemInfo::Kind* kind,
                                    std::vector<KeptObject>& gone) {
    auto oldest = list.end();
    for (auto at = list.begin(); at != list.end(); ++at)
        if (!at->info.locked && (!kind || at->info.kind == *kind) &&
            (oldest == list.end() || at->info.counters[1] > oldest->info.counters[1]))
            oldest = at;
    if (oldest == list.end()) return false;
    gone.push_back(*oldest);
    list.erase(oldest);
    return true;
}

void ObjectCache::Objects::Add(const ObjectEvent& event, const KVCacheSettings& settings,
                               std::vector<KeptObject>& gone) {
    KeptObject object = {};
    object.location = static_cast<unsigned char>(event.where.device);
    object.info.kind = event.kind;
    (event.where.name + '.' + event.where.extension)
        .copy(object.info.name, sizeof object.info.name - 1);
    object.info.number = kNoNumber;
    uint32_t id = 1;
    for (const KeptObject& other : list) id = std::max(id, other.info.id + 1);
    object.info.id = id;
    // What is stored again stays the same object.
    const auto is_same = [&](const KeptObject& other) { return other.Where() == event.where; };
    if (const auto same = std::find_if(list.begin(), list.end(), is_same); same != list.end()) {
        object = *same;
        list.erase(same);
    }
    object.info.size = event.size;
    const uint32_t location = event.kind == KVCacheItemInfo::FORMAT ? settings.format_location
                                                                    : settings.graphics_location;
    if (object.location != location || event.size > settings.memory) return;

    while (object.info.number == kNoNumber) {
        object.info.number = FreeNumber(event.kind, settings);
        if (object.info.number == kNoNumber && !MakeRoom(&event.kind, gone)) return;
    }
    const auto used = [this] {
        uint64_t bytes = 0;
        for (const KeptObject& other : list) bytes += other.info.size;
        return bytes;
    };
    while (used() + event.size > settings.memory || list.size() >= kMostObjects)
        if (!MakeRoom(nullptr, gone)) return;
    list.push_back(object);
}

// ---- Jobs ---------------------------------------------------------------------------------------

bool ObjectCache::EndJob() {
    const std::vector<ObjectEvent> events = watch_.End();
    if (events.empty()) return true;
    const KVCacheSettings settings = ReadCacheSettings(printer_);
    Objects objects(*this);
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
    for (const KeptObject& object : objects.list)
        if (!Erase(object)) return false;
    objects.list.clear();
    return objects.Store();
}

bool ObjectCache::Forget(uint32_t location) {
    Objects objects(*this);
    std::erase_if(objects.list,
                  [&](const KeptObject& object) { return object.location == location; });
    return objects.Store();
}

bool ObjectCache::Act(const KVCacheItemAction& action) {
    Objects objects(*this);
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
