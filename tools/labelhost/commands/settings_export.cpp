#include "commands/settings_export.h"

#include "fault.h"
#include "files.h"
#include "machine/machine.h"
#include "text.h"

void CallWithFile(const OpenSettings& settings, const char* function, const std::string& file,
                  int contents) {
    const auto call = settings.Export<void(WINAPI*)(HANDLE, LPCWSTR, int)>(function);
    call(settings.handle(), ToWide(HostPath(file)).c_str(), contents);
}

void ImportSettings(const OpenSettings& settings, const std::string& file, int contents) {
    CallWithFile(settings, "DAL_Settings_Import", file, contents);
    settings.Export<void(WINAPI*)(HANDLE)>("DAL_Settings_Save")(settings.handle());
    if (GetLastError() != NO_ERROR)
        throw Fault("cannot store the settings of '" + settings.printer() + "'");
}

std::string ExportedSettings(const OpenSettings& settings, int contents) {
    const FileAside file(NameOf(std::filesystem::temp_directory_path() / "labelhost.kds"));
    CallWithFile(settings, "DAL_Settings_Export", file.name(), contents);
    return ReadBytes("cannot read settings file", file.name());
}
