// The objects in a printer's memories: graphics, fonts, stored formats.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "zpl/object_name.h"

struct StoredObject {
    ObjectName where;
    uint32_t size = 0;     // bytes
    char letter = ' ';     // the letter that ^CW gave a font
    bool resident = false; // part of the printer; cannot be replaced or deleted
};

class ObjectStore {
public:
    static constexpr size_t kMaxObjects = 1000;

    // Starts with the printer's resident fonts on device Z.
    ObjectStore();

    // Stores or replaces an object. False for a device that cannot be written (only R, E, B and A
    // can), for an empty name, and if there are already kMaxObjects.
    bool Store(const ObjectName& where, uint32_t size);

    // Deletes the objects that match; any part may have "*" and "?". Answers the number deleted.
    int Delete(const ObjectName& pattern);

    // Gives a font a letter, taking it from any other font. False if there is no such object.
    bool SetLetter(const ObjectName& where, char letter);

    // The objects that match, by device (R E B A Z), and on each device in the order in which they
    // were stored.
    std::vector<StoredObject> Find(const ObjectName& pattern) const;

    // The number of free bytes on a device.
    uint32_t Free(char device) const;

    // The number of objects with that extension.
    int Count(const std::string& extension) const;

    // All devices of the printer, in the order of directories.
    static const std::string& Devices();

private:
    std::vector<StoredObject> objects_;
};
