// The functions by which a module asks the system to open something are replaced in the table of
// its imports.
#include "sheet/host.h"

#include "text.h"

#include <windows.h>

#include <htmlhelp.h>
#include <shellapi.h>

#include <algorithm>
#include <cstring>
#include <string>

namespace {

constexpr INT_PTR kStarted = 33;
constexpr INT_PTR kNoFile = 2; // SE_ERR_FNF

Json opened_things;

// The system's own function: the module may be this program itself, whose imports are replaced
// then.
FARPROC(WINAPI* get_proc_address)(HMODULE, LPCSTR) = nullptr;

void NoteThing(const char* kind, const std::string& what, const std::string& parameters) {
    opened_things.push_back({{"kind", kind}, {"what", what}, {"parameters", parameters}});
}

bool IsProgram(const std::string& file) {
    for (const char* extension : {".exe", ".com", ".bat", ".cmd"})
        if (file.size() > 4 && SameText(file.substr(file.size() - 4), extension)) return true;
    return false;
}

HINSTANCE WINAPI NotedShellExecute(HWND, LPCWSTR operation, LPCWSTR file, LPCWSTR parameters,
                                   LPCWSTR, INT) {
    const std::string what = ToUtf8(file);
    const DWORD attributes = GetFileAttributesW(file);
    const bool there = attributes != INVALID_FILE_ATTRIBUTES;
    const char* kind = "open";
    if ((there && attributes & FILE_ATTRIBUTE_DIRECTORY) || SameText(ToUtf8(operation), "explore"))
        kind = "folder";
    else if (IsProgram(what))
        kind = "run";
    else if (!there && what.find("://") == std::string::npos && !what.starts_with("mailto:"))
        return reinterpret_cast<HINSTANCE>(kNoFile);
    NoteThing(kind, what, ToUtf8(parameters));
    return reinterpret_cast<HINSTANCE>(kStarted);
}

UINT WINAPI NotedWinExec(LPCSTR command_line, UINT) {
    const std::string command = command_line ? command_line : "";
    const bool quoted = command.starts_with('"');
    const size_t start = quoted ? 1 : 0;
    const size_t end = std::min(command.find(quoted ? '"' : ' ', start), command.size());
    const size_t rest = std::min(command.find_first_not_of("\" ", end), command.size());
    NoteThing("run", command.substr(start, end - start), command.substr(rest));
    return static_cast<UINT>(kStarted);
}

HWND WINAPI NotedHtmlHelp(HWND, LPCWSTR file, UINT command, DWORD_PTR data) {
    if (command == HH_CLOSE_ALL) return nullptr;
    std::string what = ToUtf8(file), topic;
    if (const size_t colons = what.find("::"); colons != std::string::npos) {
        topic = what.substr(colons + 2);
        what.resize(colons);
    } else if (command == HH_DISPLAY_TOPIC && data) {
        topic = ToUtf8(reinterpret_cast<LPCWSTR>(data));
    }
    NoteThing("help", what, topic);
    return nullptr;
}

FARPROC WINAPI NotedGetProcAddress(HMODULE module, LPCSTR name);

template <class Function>
FARPROC Address(Function* function) {
    return reinterpret_cast<FARPROC>(reinterpret_cast<void (*)()>(function));
}

const struct {
    const char* name;
    FARPROC function;
} kReplaced[] = {
    {"ShellExecuteW", Address(NotedShellExecute)},
    {"WinExec", Address(NotedWinExec)},
    {"HtmlHelpW", Address(NotedHtmlHelp)},
    {"GetProcAddress", Address(NotedGetProcAddress)},
};

FARPROC Replacement(const char* name) {
    for (const auto& replaced : kReplaced)
        if (std::strcmp(name, replaced.name) == 0) return replaced.function;
    return nullptr;
}

FARPROC WINAPI NotedGetProcAddress(HMODULE module, LPCSTR name) {
    const bool by_name = reinterpret_cast<UINT_PTR>(name) > 0xFFFF;
    const FARPROC noted = by_name ? Replacement(name) : nullptr;
    return noted ? noted : get_proc_address(module, name);
}

void Write(FARPROC& slot, FARPROC function) {
    DWORD before = 0;
    if (!VirtualProtect(&slot, sizeof slot, PAGE_READWRITE, &before)) return;
    slot = function;
    VirtualProtect(&slot, sizeof slot, before, &before);
}

template <class T>
T* At(HMODULE module, size_t offset) {
    return reinterpret_cast<T*>(reinterpret_cast<BYTE*>(module) + offset);
}

// Calls `visit(name, slot)` for every function that the module imports by name.
template <class Visit>
void VisitImports(HMODULE module, Visit visit) {
    const auto* dos = At<IMAGE_DOS_HEADER>(module, 0);
    const auto* headers = At<IMAGE_NT_HEADERS>(module, static_cast<size_t>(dos->e_lfanew));
    const auto& directory = headers->OptionalHeader.DataDirectory[IMAGE_DIRECTORY_ENTRY_IMPORT];
    if (!directory.VirtualAddress) return;
    for (auto* library = At<IMAGE_IMPORT_DESCRIPTOR>(module, directory.VirtualAddress);
         library->Name; ++library) {
        if (!library->OriginalFirstThunk) continue;
        const auto* names = At<IMAGE_THUNK_DATA>(module, library->OriginalFirstThunk);
        auto* slots = At<FARPROC>(module, library->FirstThunk);
        for (; names->u1.AddressOfData; ++names, ++slots)
            if (!IMAGE_SNAP_BY_ORDINAL(names->u1.Ordinal))
                visit(At<IMAGE_IMPORT_BY_NAME>(module, names->u1.AddressOfData)->Name, *slots);
    }
}

} // namespace

OpenedThings::OpenedThings(HMODULE module) {
    opened_things = Json::array();
    if (!get_proc_address) get_proc_address = GetProcAddress;
    if (!module) return;
    VisitImports(module, [](const char* name, FARPROC& slot) {
        if (const FARPROC noted = Replacement(name)) Write(slot, noted);
    });
}

Json OpenedThings::Told() const {
    return opened_things;
}
