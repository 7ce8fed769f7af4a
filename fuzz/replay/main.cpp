// Runs one fuzz target on files, without a fuzzer, so that its seeds and inputs that once made it
// fail are tests.
//
// usage: fuzz_replay TARGET FILE_OR_FOLDER...
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <string>
#include <vector>

#define LISTED_TARGET(name) extern "C" int Fuzz_##name(const uint8_t* data, size_t size);
#include "fuzz_targets.h"
#undef LISTED_TARGET

namespace {

namespace fs = std::filesystem;

struct Target {
    const char* name;
    int (*run)(const uint8_t*, size_t);
};

const Target kTargets[] = {
#define LISTED_TARGET(name) {#name, Fuzz_##name},
#include "fuzz_targets.h"
#undef LISTED_TARGET
};

// A root folder for targets that have no host of their own.
class Machine {
public:
    Machine() {
        std::string pattern = (fs::temp_directory_path() / "replay-XXXXXX").string();
        if (!mkdtemp(pattern.data())) std::abort();
        folder_ = pattern;
        setenv("LABELHOST_ROOT", pattern.c_str(), 1);
    }
    ~Machine() {
        std::error_code ignored;
        fs::remove_all(folder_, ignored);
    }
    Machine(const Machine&) = delete;
    Machine& operator=(const Machine&) = delete;

private:
    fs::path folder_;
};

void Run(const Target& target, const fs::path& path) {
    std::ifstream file(path, std::ios::binary);
    // Exactly the bytes of the file, so that reads beyond them are found.
    const std::vector<char> bytes{std::istreambuf_iterator<char>(file), {}};
    const std::vector<uint8_t> input(bytes.begin(), bytes.end());
    std::fprintf(stderr, "%s %s\n", target.name, path.filename().c_str());
    target.run(input.data(), input.size());
}

} // namespace

int main(int argc, char** argv) {
    for (const Target& target : kTargets) {
        if (argc < 3 || std::strcmp(argv[1], target.name) != 0) continue;
        const Machine machine;
        size_t files = 0;
        for (int i = 2; i < argc; ++i) {
            if (fs::is_regular_file(argv[i])) {
                Run(target, argv[i]);
                ++files;
            } else if (fs::is_directory(argv[i])) {
                for (const auto& entry : fs::directory_iterator(argv[i])) {
                    Run(target, entry.path());
                    ++files;
                }
            }
        }
        if (files > 0) return 0;
        std::fprintf(stderr, "fuzz_replay: no files for '%s'\n", argv[1]);
        return 1;
    }
    std::fputs("usage: fuzz_replay TARGET FILE_OR_FOLDER...\ntargets:", stderr);
    for (const Target& target : kTargets) std::fprintf(stderr, " %s", target.name);
    std::fputs("\n", stderr);
    return 2;
}
