// What a printer keeps in its memories: graphics, fonts, stored formats.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

struct StoredObject {
    char device = 'R';
    std::string name;      // 1 to 8 characters, upper case
    std::string extension; // 1 to 3 characters, upper case
    uint32_t size = 0;     // bytes
    char letter = ' ';     // the letter that ^CW gave a font
    bool resident = false; // part of the printer: cannot be replaced or deleted
};

// The name of an object as commands write it, "R:LOGO.GRF". Missing parts stay empty and the device
// is R; names are cut to eight characters, extensions to three, and put in upper case.
struct ObjectName {
    explicit ObjectName(const std::string& text);

    char device = 'R';
    std::string name, extension;
};

class ObjectStore {
public:
    static constexpr size_t kMaxObjects = 1000;

    // With the printer's resident fonts on device Z.
    ObjectStore();

    // Stores or replaces an object. False for a device that cannot be written (only R, E, B and A
    // can), for an empty name, and when there are kMaxObjects.
    bool Store(const ObjectName& where, uint32_t size);

    // Deletes what matches: "*" and "?" in any part. The number of objects deleted.
    int Delete(const ObjectName& pattern);

    // Gives a font a letter, which any other font loses. False when there is no such object.
    bool SetLetter(const ObjectName& where, char letter);

    // The objects that match, by device (R E B A Z), each device's in the order of their storing.
    std::vector<StoredObject> Find(const ObjectName& pattern) const;

    // Bytes free on a device.
    uint32_t Free(char device) const;

    // How many objects of that extension there are.
    int Count(const std::string& extension) const;

    // All devices that the printer has, in the order of directories.
    static const std::string& Devices();

private:
    std::vector<StoredObject> objects_;
};
