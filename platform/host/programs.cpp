// Programs, files and help that the system is asked to open. This host notes them; it has no
// programs of its own, but does what rundll32 would.
#include <windows.h>

#include <htmlhelp.h>
#include <shellapi.h>
#include <win32host/control.h>

#include "host/guarded.h"
#include "host/text.h"

#include <algorithm>
#include <mutex>
#include <string>
#include <utility>

namespace win32host {
namespace {

std::mutex g_programs_lock;
std::vector<StartedProgram> g_started;
std::vector<SystemAct> g_acts;

void Note(SystemAct act) {
    std::lock_guard guard(g_programs_lock);
    g_acts.push_back(std::move(act));
}

std::u16string WideText(const std::string& text) {
    const auto length = static_cast<int>(text.size());
    std::u16string wide(
        static_cast<size_t>(MultiByteToWideChar(CP_ACP, 0, text.data(), length, nullptr, 0)),
        u'\0');
    MultiByteToWideChar(CP_ACP, 0, text.data(), length, wide.data(), static_cast<int>(wide.size()));
    return wide;
}

// The program, which may be in quotes, and what follows it.
SystemAct RunOf(const std::u16string& command) {
    const bool quoted = !command.empty() && command[0] == u'"';
    const size_t start = quoted ? 1 : 0;
    const size_t end = std::min(command.find(quoted ? u'"' : u' ', start), command.size());
    const size_t rest = std::min(command.find_first_not_of(u"\" ", end), command.size());
    return {SystemAct::Run, command.substr(start, end - start), command.substr(rest)};
}

bool IsProgram(std::u16string_view file) {
    for (std::u16string_view extension : {u".exe", u".com", u".bat", u".cmd"})
        if (file.size() > extension.size() &&
            SameName(file.substr(file.size() - extension.size()), extension))
            return true;
    return false;
}

constexpr UINT kStarted = 33;

// Calls "LIBRARY,ENTRY ARGUMENTS".
UINT RunLibrary(const std::string& command, UINT show) {
    const size_t comma = command.find(',');
    if (comma == std::string::npos) return ERROR_FILE_NOT_FOUND;
    const size_t end = std::min(command.find(' ', comma), command.size());
    const std::string entry = command.substr(comma + 1, end - comma - 1);
    std::string arguments = end < command.size() ? command.substr(end + 1) : std::string();

    const std::u16string library = WideText(command.substr(0, comma));
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

std::vector<SystemAct> TakeSystemActs() {
    std::lock_guard guard(g_programs_lock);
    return std::exchange(g_acts, {});
}

} // namespace win32host

using namespace win32host;

extern "C" {

UINT WINAPI WinExec(LPCSTR command_line, UINT show) {
    return Guarded(UINT{ERROR_FILE_NOT_FOUND}, [&]() -> UINT {
        if (!command_line) return ERROR_FILE_NOT_FOUND;
        {
            std::lock_guard guard(g_programs_lock);
            g_started.push_back({command_line, show});
        }
        const std::string command = command_line;
        Note(RunOf(WideText(command)));
        static const std::string kRundll = "rundll32.exe ";
        if (command.compare(0, kRundll.size(), kRundll) != 0) return ERROR_FILE_NOT_FOUND;
        return RunLibrary(command.substr(kRundll.size()), show);
    });
}

HINSTANCE WINAPI ShellExecuteW(HWND owner, LPCWSTR operation, LPCWSTR file, LPCWSTR parameters,
                               LPCWSTR folder, INT show) {
    (void)owner;
    (void)folder;
    (void)show;
    const auto answer = [](UINT_PTR number) { return reinterpret_cast<HINSTANCE>(number); };
    return Guarded(answer(SE_ERR_OOM), [&] {
        const std::u16string path = CopyOf(file);
        const DWORD attributes = GetFileAttributesW(path.c_str());
        const bool is_there = attributes != INVALID_FILE_ATTRIBUTES;
        const bool is_folder = is_there && attributes & FILE_ATTRIBUTE_DIRECTORY;
        SystemAct act = {SystemAct::Open, path, CopyOf(parameters)};
        if (is_folder || (operation && SameName(operation, u"explore")))
            act.kind = SystemAct::Folder;
        else if (IsProgram(path))
            act.kind = SystemAct::Run;
        else if (!is_there && path.find(u"://") == std::u16string::npos &&
                 path.compare(0, 7, u"mailto:") != 0)
            return answer(SE_ERR_FNF);
        Note(std::move(act));
        return answer(kStarted);
    });
}

HWND WINAPI HtmlHelpW(HWND caller, LPCWSTR file, UINT command, DWORD_PTR data) {
    (void)caller;
    return Guarded(HWND(nullptr), [&]() -> HWND {
        if (command == HH_CLOSE_ALL) return nullptr;
        SystemAct act = {SystemAct::Help, CopyOf(file), {}};
        const size_t colons = act.what.find(u"::");
        if (colons != std::u16string::npos) {
            act.parameters = act.what.substr(colons + 2);
            act.what.resize(colons);
        } else if (command == HH_DISPLAY_TOPIC && data) {
            act.parameters = reinterpret_cast<LPCWSTR>(data);
        }
        Note(std::move(act));
        return nullptr;
    });
}

} // extern "C"
