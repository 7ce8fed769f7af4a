#include "emulator/object_store.h"

#include <algorithm>

namespace {

constexpr uint32_t kDeviceBytes = 8u << 20;

std::string Upper(std::string text, size_t longest) {
    text.resize(std::min(text.size(), longest));
    for (char& c : text)
        if (c >= 'a' && c <= 'z') c = static_cast<char>(c - 'a' + 'A');
    return text;
}

// Patterns are at most eight characters long.
bool Matches(const char* text, const char* pattern) {
    if (*pattern == '*') return Matches(text, pattern + 1) || (*text && Matches(text + 1, pattern));
    if (!*text || !*pattern) return *text == *pattern;
    return (*pattern == '?' || *pattern == *text) && Matches(text + 1, pattern + 1);
}

bool Matches(const StoredObject& object, const ObjectName& pattern) {
    return (pattern.device == '*' || pattern.device == '?' || pattern.device == object.device) &&
           Matches(object.name.c_str(), pattern.name.c_str()) &&
           Matches(object.extension.c_str(), pattern.extension.c_str());
}

bool CanBeWritten(char device) {
    return device == 'R' || device == 'E' || device == 'B' || device == 'A';
}

} // namespace

ObjectName::ObjectName(const std::string& text) {
    std::string rest = text;
    if (rest.size() >= 2 && rest[1] == ':') {
        device = Upper(rest.substr(0, 1), 1)[0];
        rest.erase(0, 2);
    }
    const size_t dot = rest.find('.');
    name = Upper(rest.substr(0, dot), 8);
    if (dot != std::string::npos) extension = Upper(rest.substr(dot + 1), 3);
}

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
        objects_.push_back({'Z', resident.name, resident.extension, resident.size, ' ', true});
}

bool ObjectStore::Store(const ObjectName& where, uint32_t size) {
    if (!CanBeWritten(where.device) || where.name.empty() || where.extension.empty()) return false;
    for (StoredObject& object : objects_) {
        if (object.device == where.device && object.name == where.name &&
            object.extension == where.extension) {
            object.size = size;
            return true;
        }
    }
    if (objects_.size() >= kMaxObjects) return false;
    objects_.push_back({where.device, where.name, where.extension, size, ' ', false});
    return true;
}

int ObjectStore::Delete(const ObjectName& pattern) {
    const auto gone =
        std::remove_if(objects_.begin(), objects_.end(), [&](const StoredObject& object) {
            return !object.resident && Matches(object, pattern);
        });
    const auto count = objects_.end() - gone;
    objects_.erase(gone, objects_.end());
    return static_cast<int>(count);
}

bool ObjectStore::SetLetter(const ObjectName& where, char letter) {
    const auto same = [&](const StoredObject& object) {
        return object.device == where.device && object.name == where.name &&
               object.extension == where.extension;
    };
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
            if (object.device == device && Matches(object, pattern)) found.push_back(object);
    return found;
}

uint32_t ObjectStore::Free(char device) const {
    if (!CanBeWritten(device)) return 0;
    uint64_t used = 0;
    for (const StoredObject& object : objects_)
        if (object.device == device) used += object.size;
    return used < kDeviceBytes ? static_cast<uint32_t>(kDeviceBytes - used) : 0;
}

int ObjectStore::Count(const std::string& extension) const {
    return static_cast<int>(
        std::count_if(objects_.begin(), objects_.end(),
                      [&](const StoredObject& object) { return object.extension == extension; }));
}

const std::string& ObjectStore::Devices() {
    static const std::string devices = "REBAZ";
    return devices;
}
