// The machine as Linux describes it.
#pragma once

#include <cstdint>
#include <string>

namespace win32host {

// The first processor. Texts are empty and numbers 0 where Linux does not tell.
struct Processor {
    std::string vendor; // "GenuineIntel"
    std::string name;   // as its maker calls it
    unsigned family = 0;
    unsigned model = 0;
    unsigned stepping = 0;
};
Processor FirstProcessor();

// Windows' word for the kind of processor: "AMD64", "x86", "ARM64". Linux's own for others.
std::string ProcessorArchitecture();

// The system that the host runs on.
struct System {
    std::string name;   // the distribution with its version: "Debian GNU/Linux 12 (bookworm)"
    std::string kernel; // with its release: "Linux 6.1.0-18-amd64"
};
System RunningSystem();

unsigned ProcessorCount(); // those in use

uint64_t PhysicalMemory();  // in bytes
uint64_t AvailableMemory(); // of that

} // namespace win32host
