// DEVMODEs as bytes: in files, and as the driver makes them.
#pragma once

#include <windows.h>

#include <string>
#include <vector>

class DevModeBytes {
public:
    // The DEVMODE that a file holds (POSIX path); what follows it is left out. Throws Fault when
    // the file cannot be read and when it holds none.
    static DevModeBytes ReadFrom(const std::string& path);

    // Throws Fault unless the bytes begin with a DEVMODE; `what` says where they come from.
    DevModeBytes(std::vector<BYTE> bytes, const std::string& what);

    // Writes the file aside and renames it, so that nobody finds half of it. Throws Fault.
    void WriteTo(const std::string& path) const;

    PDEVMODEW get() { return reinterpret_cast<PDEVMODEW>(bytes_.data()); }
    const DEVMODEW* get() const { return reinterpret_cast<const DEVMODEW*>(bytes_.data()); }
    // As many as the DEVMODE says.
    const std::vector<BYTE>& bytes() const { return bytes_; }

    // `count` bytes at `offset`, which need not be there.
    bool Holds(size_t offset, size_t count) const {
        return offset <= bytes_.size() && count <= bytes_.size() - offset;
    }
    BYTE* At(size_t offset) { return bytes_.data() + offset; }
    const BYTE* At(size_t offset) const { return bytes_.data() + offset; }

    // Where the driver's configuration begins, and how many bytes of it there are; {0, 0} when it
    // has none.
    struct Part {
        size_t offset = 0, size = 0;
    };
    Part Configuration() const;

private:
    std::vector<BYTE> bytes_;
};
