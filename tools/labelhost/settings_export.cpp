#include "settings_export.h"

#include "fault.h"
#include "text.h"

#include <unistd.h>

#include <cstdio>
#include <filesystem>
#include <memory>

namespace fs = std::filesystem;

TemporaryFile::TemporaryFile(std::string path)
    : path_(std::move(path) + ".new" + std::to_string(getpid())) {}

TemporaryFile::~TemporaryFile() {
    std::remove(path_.c_str());
}

std::string ReadSettingsFile(const std::string& path) {
    const auto fail = [&] { throw FileFault("cannot read settings file", path); };
    const std::unique_ptr<std::FILE, int (*)(std::FILE*)> file(std::fopen(path.c_str(), "rb"),
                                                               std::fclose);
    if (!file) fail();
    std::string text;
    char piece[65536];
    for (size_t size; (size = std::fread(piece, 1, sizeof piece, file.get())) > 0;)
        text.append(piece, size);
    if (std::ferror(file.get())) fail(); // a folder, for one
    return text;
}

void CallWithFile(const OpenSettings& settings, const char* function, const std::string& file,
                  int contents) {
    const auto call = settings.Export<void(WINAPI*)(HANDLE, LPCWSTR, int)>(function);
    call(settings.handle(), ToWide(fs::absolute(file).string()).c_str(), contents);
}

std::string ExportedSettings(const OpenSettings& settings, int contents) {
    const TemporaryFile file((fs::temp_directory_path() / "labelhost.kds").string());
    CallWithFile(settings, "DAL_Settings_Export", file.path(), contents);
    return ReadSettingsFile(file.path());
}
