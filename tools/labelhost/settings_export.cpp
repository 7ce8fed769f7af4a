#include "settings_export.h"

#include "fault.h"
#include "files.h"
#include "machine.h"
#include "text.h"

void CallWithFile(const OpenSettings& settings, const char* function, const std::string& file,
                  int contents) {
    const auto call = settings.Export<void(WINAPI*)(HANDLE, LPCWSTR, int)>(function);
    call(settings.handle(), ToWide(HostPath(file)).c_str(), contents);
}

std::string ExportedSettings(const OpenSettings& settings, int contents) {
    const FileAside file(NameOf(std::filesystem::temp_directory_path() / "labelhost.kds"));
    CallWithFile(settings, "DAL_Settings_Export", file.name(), contents);
    return ReadBytes("cannot read settings file", file.name());
}
