// The names of folders, full names and names for temporary files.
#include "files/paths.h"
#include "host/text.h"

#include <windows.h>

#include <algorithm>
#include <filesystem>
#include <string>
#include <string_view>

namespace {

constexpr char16_t kTemporaryFolder[] = u"C:\\WINDOWS\\Temp\\";

// Answers `text` the way the functions that name a folder do.
DWORD Answer(std::u16string_view text, DWORD size, LPWSTR buffer) {
    if (!buffer || size <= text.size()) return static_cast<DWORD>(text.size() + 1);
    *std::copy(text.begin(), text.end(), buffer) = u'\0';
    return static_cast<DWORD>(text.size());
}

std::u16string TemporaryName(std::u16string_view folder, std::u16string_view prefix, UINT number) {
    std::u16string name(folder);
    if (!name.empty() && name.back() != u'\\' && name.back() != u'/') name += u'\\';
    name += prefix.substr(0, 3);
    char16_t digits[4];
    size_t count = 0;
    for (UINT rest = number & 0xFFFF; rest || count == 0; rest >>= 4)
        digits[count++] = u"0123456789ABCDEF"[rest & 0xF];
    while (count > 0) name += digits[--count];
    return name + u".TMP";
}

} // namespace

extern "C" {

DWORD WINAPI GetTempPathW(DWORD size, LPWSTR path) {
    // Callers expect the folder to exist.
    if (const auto host = win32host::HostPath(kTemporaryFolder)) {
        std::error_code ignored;
        std::filesystem::create_directories(*host, ignored);
    }
    return Answer(kTemporaryFolder, size, path);
}

DWORD WINAPI GetFullPathNameW(LPCWSTR name, DWORD size, LPWSTR path, LPWSTR* file_part) {
    if (file_part) *file_part = nullptr;
    const std::u16string full = name ? win32host::FullPath(name) : std::u16string();
    if (full.empty()) {
        SetLastError(ERROR_INVALID_NAME);
        return 0;
    }
    const DWORD length = Answer(full, size, path);
    const size_t part = win32host::FileNameOf(full).size();
    if (file_part && length == full.size() && part > 0) *file_part = path + full.size() - part;
    return length;
}

DWORD WINAPI GetCurrentDirectoryW(DWORD size, LPWSTR path) {
    return Answer(win32host::FullPath(u"."), size, path);
}

UINT WINAPI GetSystemDirectoryW(LPWSTR path, UINT size) {
    return Answer(win32host::kSystemFolder, size, path);
}

UINT WINAPI GetWindowsDirectoryW(LPWSTR path, UINT size) {
    return Answer(win32host::kWindowsFolder, size, path);
}

UINT WINAPI GetTempFileNameW(LPCWSTR path, LPCWSTR prefix, UINT unique, LPWSTR name) {
    const std::u16string_view folder = path ? path : u"";
    const std::u16string_view start = prefix ? prefix : u"";
    if (folder.size() > MAX_PATH - 14) {
        SetLastError(ERROR_BUFFER_OVERFLOW);
        return 0;
    }
    const auto answer = [&](std::u16string_view text, UINT number) {
        *std::copy(text.begin(), text.end(), name) = u'\0';
        return number;
    };
    if (unique & 0xFFFF) return answer(TemporaryName(folder, start, unique), unique);
    const DWORD attributes = GetFileAttributesW(folder.empty() ? u"." : path);
    if (attributes == INVALID_FILE_ATTRIBUTES || !(attributes & FILE_ATTRIBUTE_DIRECTORY)) {
        SetLastError(ERROR_DIRECTORY);
        return 0;
    }
    UINT number = GetTickCount() & 0xFFFF;
    for (UINT attempt = 0; attempt < 0x10000; ++attempt, number = (number + 1) & 0xFFFF) {
        if (number == 0) continue;
        const std::u16string text = TemporaryName(folder, start, number);
        const HANDLE file = CreateFileW(text.c_str(), GENERIC_WRITE, 0, nullptr, CREATE_NEW,
                                        FILE_ATTRIBUTE_NORMAL, nullptr);
        if (file != INVALID_HANDLE_VALUE) {
            CloseHandle(file);
            return answer(text, number);
        }
        if (GetLastError() != ERROR_FILE_EXISTS) return 0;
    }
    return 0;
}

} // extern "C"
