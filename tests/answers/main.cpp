// Asks the module questions that do not depend on the machine, and writes the answers to the
// standard output. The program is built for every system from this source, so that the answers can
// be compared.
//
// usage: answers MODULE PRODUCT
//
// The module is installed with the files of the folder PRODUCT, under names that the machine must
// not use otherwise.
#include "answers/answers.h"

#include <cstdio>
#include <cstdlib>
#include <string>

namespace {

// Of an ASCII path.
Wide WidePath(const std::string& path) {
    Wide wide;
    for (const char c : path) wide += static_cast<WCHAR>(c);
    return wide;
}

} // namespace

Module::Module(const WCHAR* path)
    : module_(LoadLibraryW(path)) {
    Require(module_ != nullptr, "cannot load the module");
}

FARPROC Module::Find(const char* name) const {
    const FARPROC function = GetProcAddress(module_, name);
    Require(function != nullptr, std::string("the module lacks ") + name);
    return function;
}

void Require(bool good, const std::string& what) {
    if (good) return;
    std::fprintf(stderr, "answers: %s (error %u)\n", what.c_str(),
                 static_cast<unsigned>(GetLastError()));
    std::exit(1);
}

void Tell(const std::string& question, int64_t answer) {
    std::printf("%s: %s\n", question.c_str(), std::to_string(answer).c_str());
}

void Tell(const std::string& question, const void* bytes, size_t size) {
    const auto* all = static_cast<const uint8_t*>(bytes);
    std::printf("%s: %s bytes,", question.c_str(), std::to_string(size).c_str());
    constexpr size_t kShown = 32;
    if (size > kShown) {
        uint64_t checksum = 0xCBF29CE484222325; // FNV-1a
        for (size_t i = 0; i < size; ++i) checksum = (checksum ^ all[i]) * 0x100000001B3;
        std::printf(" checksum %08X%08X, first", static_cast<unsigned>(checksum >> 32),
                    static_cast<unsigned>(checksum & 0xFFFFFFFF));
    }
    for (size_t i = 0; i < size && i < kShown; ++i) std::printf(" %02x", all[i]);
    std::printf("\n");
}

int main(int count, char** arguments) {
    if (count != 3) {
        std::fputs("usage: answers MODULE PRODUCT\n", stderr);
        return 2;
    }
    const Module module(InstallDriver(WidePath(arguments[1]), WidePath(arguments[2])).c_str());
    AskPrinters(module);
    return 0;
}
