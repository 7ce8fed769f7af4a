#include "emulator/object_store.h"

#include <algorithm>

namespace {

constexpr uint32_t kDeviceBytes = 8u << 20;

bool CanBeWritten(char device) {
    return device == 'R' || device == 'E' || device == 'B' || device == 'A';
}

} // namespace

ObjectStore::ObjectStore() {
    constexpr struct {
        const char* name;
        const char* extension;
        uint32_t size;
    } kResident[] = {
        {"A", "FNT", 3402},  {"B", "FNT", 3746},     {"D", "FNT", 8194},      {"E8", "FNT", 9810},
        {"F", "FNT", 11264}, {"G", "FNT", 28672},    {"H8", "FNT", 12288},    {"GS", "FNT", 4096},
        {"0", "FNT", 61440}, {"CODE39", "BAR", 512}, {"CODE128", "BAR", 768},
    };
    for (const auto& resident : kResident)
        objects_.push_back(
            {ObjectName(std::string("Z:") + resident.name + '.' + resident.extension),
             resident.size, ' ', true});
}

bool ObjectStore::Store(const ObjectName& where, uint32_t size) {
    if (!CanBeWritten(where.device) || where.name.empty() || where.extension.empty()) return false;
    for (StoredObject& object : objects_) {
        if (object.where == where) {
            object.size = size;
            return true;
        }
    }
    if (objects_.size() >= kMaxObjects) return false;
    objects_.push_back({where, size, ' ', false});
    return true;
}

int ObjectStore::Delete(const ObjectName& pattern) {
    const auto gone =
        std::remove_if(objects_.begin(), objects_.end(), [&](const StoredObject& object) {
            return !object.resident && object.where.Matches(pattern);
        });
    const auto count = objects_.end() - gone;
    objects_.erase(gone, objects_.end());
    return static_cast<int>(count);
}

bool ObjectStore::SetLetter(const ObjectName& where, char letter) {
    const auto same = [&](const StoredObject& object) { return object.where == where; };
    const auto found = std::find_if(objects_.begin(), objects_.end(), same);
    if (found == objects_.end()) return false;
    for (StoredObject& object : objects_)
        if (object.letter == letter) object.letter = ' ';
    found->letter = letter;
    return true;
}

std::vector<StoredObject> ObjectStore::Find(const ObjectName& pattern) const {
    std::vector<StoredObject> found;
    for (const char device : Devices())
        for (const StoredObject& object : objects_)
            if (object.where.device == device && object.where.Matches(pattern))
                found.push_back(object);
    return found;
}

uint32_t ObjectStore::Free(char device) const {
    if (!CanBeWritten(device)) return 0;
    uint64_t used = 0;
    for (const StoredObject& object : objects_)
        if (object.where.device == device) used += object.size;
    return used < kDeviceBytes ? static_cast<uint32_t>(kDeviceBytes - used) : 0;
}

int ObjectStore::Count(const std::string& extension) const {
    return static_cast<int>(
        std::count_if(objects_.begin(), objects_.end(), [&](const StoredObject& object) {
            return object.where.extension == extension;
        }));
}

const std::string& ObjectStore::Devices() {
    static const std::string devices = "REBAZ";
    return devices;
}
