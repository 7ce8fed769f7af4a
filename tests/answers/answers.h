// A host program's questions to the module, and the record of its answers: one line for each, which
// is the same on every system if the answers are.
#pragma once

#include <windows.h>

#include <cstdint>
#include <string>
#include <vector>

#include "support/wide.h"
#include "zplui.h"

using Bytes = std::vector<uint8_t>;

// The module, loaded as by any host program.
class Module {
public:
    // Ends the program if there is no such module.
    explicit Module(const WCHAR* path);

    // A function that the header declares. Ends the program if the module lacks it.
    template <class F>
    F Function(const char* name) const {
        return reinterpret_cast<F>(reinterpret_cast<void (*)()>(Find(name)));
    }

private:
    FARPROC Find(const char* name) const;

    HMODULE module_;
};
#define EXPORT(module, name) (module).Function<decltype(&name)>(#name)

// Numbers that look random and are the same everywhere.
class Noise {
public:
    explicit Noise(uint32_t seed)
        : state_(seed) {}
    uint8_t Byte() {
        state_ = state_ * 1664525u + 1013904223u;
        return static_cast<uint8_t>(state_ >> 24);
    }

private:
    uint32_t state_;
};

// Writes "question: 42".
void Tell(const std::string& question, int64_t answer);

// Writes "question: 3 bytes, 61 62 63". For more than 32 bytes it writes a checksum and the first.
void Tell(const std::string& question, const void* bytes, size_t size);
inline void Tell(const std::string& question, const Bytes& bytes) {
    Tell(question, bytes.data(), bytes.size());
}

// Ends the program with a message unless `good`.
void Require(bool good, const std::string& what);

inline DEVMODEW* DevModeIn(Bytes& bytes) {
    return reinterpret_cast<DEVMODEW*>(bytes.data());
}

// Installs the module and the files of the folder `product` as the drivers of some models. Returns
// the installed module's path.
Wide InstallDriver(const Wide& module, const Wide& product);

// Adds a printer of each model and asks the installed module about it, then removes the drivers.
void AskPrinters(const Module& module);
