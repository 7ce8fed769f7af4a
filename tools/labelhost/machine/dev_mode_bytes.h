// DEVMODEs as bytes: in files, and as the driver makes them.
#pragma once

#include <windows.h>

#include <string>
#include <vector>

class DevModeBytes {
public:
    // The DEVMODE in a file (POSIX path); what follows it is ignored. Throws Fault if the file
    // cannot be read or does not hold one.
    static DevModeBytes ReadFrom(const std::string& path);

    // Throws Fault unless the bytes start with a DEVMODE; `what` says where they come from.
    DevModeBytes(std::vector<BYTE> bytes, const std::string& what);

    // Writes the file aside and renames it, so that nobody finds half a file. Throws Fault.
    void WriteTo(const std::string& path) const;

    PDEVMODEW get() { return reinterpret_cast<PDEVMODEW>(bytes_.data()); }
    const DEVMODEW* get() const { return reinterpret_cast<const DEVMODEW*>(bytes_.data()); }
    // As many as the DEVMODE says it has.
    const std::vector<BYTE>& bytes() const { return bytes_; }

    // True if the DEVMODE has `count` bytes at `offset`.
    bool Holds(size_t offset, size_t count) const {
        return offset <= bytes_.size() && count <= bytes_.size() - offset;
    }
    BYTE* At(size_t offset) { return bytes_.data() + offset; }
    const BYTE* At(size_t offset) const { return bytes_.data() + offset; }

    // Where the driver's configuration starts, and how many bytes of it there are; {0, 0} if there
    // is none.
    struct Part {
        size_t offset = 0, size = 0;
    };
    Part Configuration() const;

private:
    std::vector<BYTE> bytes_;
};
