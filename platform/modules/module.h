// Loaded modules.
#pragma once

#include "modules/pe_image.h"

#include <windows.h>

#include <link.h>

#include <memory>
#include <mutex>
#include <optional>
#include <span>
#include <string>
#include <vector>

namespace win32host {

// The bytes of a PE file in memory and what was found in them. They are a copy and not a mapping,
// as the file may be replaced or cut while it is in use.
class ResourceFile {
public:
    // Null if the file cannot be read, is not a PE file or is larger than any resource library.
    static std::unique_ptr<ResourceFile> Load(const std::string& path);

    std::optional<PeImage> image;
    std::vector<uint8_t> bytes;
};

// What an HMODULE names: an ELF library that can run, a PE file with its resources, the program
// itself, or one of the system's own libraries, whose functions this library provides.
class Module {
public:
    ~Module();

    HMODULE Handle() { return reinterpret_cast<HMODULE>(this); }

    // The resources: the file's own for a PE file, else those of NAME.mui beside it, which is
    // looked for once. Null if there are none.
    const ResourceFile* Resources();

    std::string path;         // POSIX, without links
    std::u16string file_name; // Windows form, as GetModuleFileNameW answers it
    dev_t device = 0;         // of an ELF file
    ino_t inode = 0;
    bool data_only = false;
    bool permanent = false; // the program and the system's libraries are never unloaded
    unsigned uses = 1;
    void* library = nullptr; // from dlopen
    link_map* map = nullptr; // the library's own, to tell its functions from its dependencies'
    std::unique_ptr<ResourceFile> resources;
    bool resources_sought = false;
};

// Guards the list of modules. It is held while a module's entry point runs, which may load others.
std::recursive_mutex& LoaderLock();

// The module, or the program for null. Null with ERROR_INVALID_HANDLE for anything else. The loader
// lock must be held as long as the pointer is used.
Module* FindModule(HMODULE handle);

// The bytes from `address` to the end of the PE file that contains it; empty if no loaded file
// does.
std::span<const uint8_t> ResourceBytesFrom(const void* address);

} // namespace win32host
