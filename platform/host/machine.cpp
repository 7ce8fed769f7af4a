#include "host/machine.h"

#include <sys/utsname.h>
#include <unistd.h>

#include <cstdlib>
#include <fstream>

namespace win32host {
namespace {

uint64_t Pages(int which) {
    const auto pages = sysconf(which);
    const auto size = sysconf(_SC_PAGESIZE);
    return pages > 0 && size > 0 ? static_cast<uint64_t>(pages) * static_cast<uint64_t>(size) : 0;
}

} // namespace

Processor FirstProcessor() {
    Processor processor;
    std::ifstream file("/proc/cpuinfo");
    // "model name\t: NAME". An empty line ends the first processor.
    for (std::string line; std::getline(file, line) && !line.empty();) {
        const size_t colon = line.find(':');
        if (colon == line.npos) continue;
        const std::string key = line.substr(0, line.find_last_not_of(" \t", colon - 1) + 1);
        const size_t start = line.find_first_not_of(' ', colon + 1);
        const std::string value = start == line.npos ? "" : line.substr(start);
        const auto number = static_cast<unsigned>(std::strtoul(value.c_str(), nullptr, 0));
        // ARM processors have numbers under other names, and no text.
        if (key == "vendor_id") processor.vendor = value;
        if (key == "model name") processor.name = value;
        if (key == "cpu family" || key == "CPU architecture") processor.family = number;
        if (key == "model" || key == "CPU part") processor.model = number;
        if (key == "stepping" || key == "CPU revision") processor.stepping = number;
    }
    return processor;
}

std::string ProcessorArchitecture() {
    // A 32-bit program on a 64-bit system is told what it can use, as on Windows.
    if (sizeof(void*) == 4) return "x86";
    utsname system = {};
    if (uname(&system) != 0) return "";
    const std::string machine = system.machine;
    if (machine == "x86_64") return "AMD64";
    return machine == "aarch64" ? "ARM64" : machine;
}

unsigned ProcessorCount() {
    const auto count = sysconf(_SC_NPROCESSORS_ONLN);
    return count > 0 ? static_cast<unsigned>(count) : 1;
}

uint64_t PhysicalMemory() {
    return Pages(_SC_PHYS_PAGES);
}

uint64_t AvailableMemory() {
    return Pages(_SC_AVPHYS_PAGES);
}

} // namespace win32host
