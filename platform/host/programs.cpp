// WinExec: this host has no programs of its own, but does what rundll32 would.
#include <windows.h>

#include <win32host/control.h>

#include "host/guarded.h"

#include <algorithm>
#include <mutex>
#include <string>
#include <utility>

namespace win32host {
namespace {

std::mutex g_programs_lock;
std::vector<StartedProgram> g_started;

constexpr UINT kStarted = 33;

// Calls "LIBRARY,ENTRY ARGUMENTS".
UINT RunLibrary(const std::string& command, UINT show) {
    const size_t comma = command.find(',');
    if (comma == std::string::npos) return ERROR_FILE_NOT_FOUND;
    const size_t end = std::min(command.find(' ', comma), command.size());
    const std::string entry = command.substr(comma + 1, end - comma - 1);
    std::string arguments = end < command.size() ? command.substr(end + 1) : std::string();

    const int size =
        MultiByteToWideChar(CP_ACP, 0, command.data(), static_cast<int>(comma), nullptr, 0);
    std::u16string library(static_cast<size_t>(size), u'\0');
    MultiByteToWideChar(CP_ACP, 0, command.data(), static_cast<int>(comma), library.data(), size);
    const HMODULE module = LoadLibraryW(library.c_str());
    if (!module) return ERROR_FILE_NOT_FOUND;
    const FARPROC function = GetProcAddress(module, entry.c_str());
    if (function)
        reinterpret_cast<void(CALLBACK*)(HWND, HINSTANCE, LPSTR, int)>(reinterpret_cast<void (*)()>(
            function))(nullptr, module, arguments.data(), static_cast<int>(show));
    FreeLibrary(module);
    return kStarted; // rundll32 itself ran
}

} // namespace

std::vector<StartedProgram> TakeStartedPrograms() {
    std::lock_guard guard(g_programs_lock);
    return std::exchange(g_started, {});
}

} // namespace win32host

extern "C" UINT WINAPI WinExec(LPCSTR command_line, UINT show) {
    using namespace win32host;
    return Guarded(UINT{ERROR_FILE_NOT_FOUND}, [&]() -> UINT {
        if (!command_line) return ERROR_FILE_NOT_FOUND;
        {
            std::lock_guard guard(g_programs_lock);
            g_started.push_back({command_line, show});
        }
        const std::string command = command_line;
        static const std::string kRundll = "rundll32.exe ";
        if (command.compare(0, kRundll.size(), kRundll) != 0) return ERROR_FILE_NOT_FOUND;
        return RunLibrary(command.substr(kRundll.size()), show);
    });
}
