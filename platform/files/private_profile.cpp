// Private profiles: text files of [sections] with key=value lines.
#include "files/paths.h"
#include "host/text.h"

#include <windows.h>

#include <algorithm>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace {

using win32host::SameName;

// Profiles are small files, read and written in one piece. Anything larger is not a profile.
constexpr DWORD kLargestProfile = 16 * 1024 * 1024;

// The file's encoding: the ANSI code page, or UTF-16 or UTF-8 after a byte order mark.
enum class Form { Ansi, Utf16, Utf8 };

struct Profile {
    Form form = Form::Ansi;
    std::vector<std::u16string> lines;
};

std::u16string_view Trim(std::u16string_view text) {
    const size_t first = text.find_first_not_of(u" \t");
    if (first == std::u16string_view::npos) return {};
    return text.substr(first, text.find_last_not_of(u" \t") - first + 1);
}

std::optional<std::u16string_view> SectionOf(std::u16string_view line) {
    line = Trim(line);
    const size_t end = line.find(u']');
    if (!line.starts_with(u'[') || end == std::u16string_view::npos) return std::nullopt;
    return Trim(line.substr(1, end - 1));
}

struct Entry {
    std::u16string_view key;
    std::u16string_view value;
};

std::optional<Entry> EntryOf(std::u16string_view line) {
    const size_t equals = line.find(u'=');
    const std::u16string_view key = Trim(line.substr(0, equals));
    if (key.empty() || key.starts_with(u';') || equals == std::u16string_view::npos)
        return std::nullopt;
    return Entry{key, Trim(line.substr(equals + 1))};
}

std::u16string FromAnsi(std::string_view bytes) {
    if (bytes.empty()) return std::u16string();
    const int size = static_cast<int>(bytes.size());
    std::u16string text(bytes.size(), u'\0');
    text.resize(
        static_cast<size_t>(MultiByteToWideChar(CP_ACP, 0, bytes.data(), size, text.data(), size)));
    return text;
}

std::string ToAnsi(const std::u16string& text) {
    if (text.empty()) return std::string();
    const int size = static_cast<int>(text.size());
    const int needed =
        WideCharToMultiByte(CP_ACP, 0, text.data(), size, nullptr, 0, nullptr, nullptr);
    std::string bytes(static_cast<size_t>(std::max(needed, 0)), '\0');
    WideCharToMultiByte(CP_ACP, 0, text.data(), size, bytes.data(), needed, nullptr, nullptr);
    return bytes;
}

Profile Parse(std::string_view bytes) {
    Profile profile;
    std::u16string text;
    if (bytes.starts_with("\xFF\xFE")) {
        profile.form = Form::Utf16;
        for (size_t i = 2; i + 1 < bytes.size(); i += 2)
            text += static_cast<char16_t>(static_cast<unsigned char>(bytes[i]) |
                                          static_cast<unsigned char>(bytes[i + 1]) << 8);
    } else if (bytes.starts_with("\xEF\xBB\xBF")) {
        profile.form = Form::Utf8;
        text = win32host::Utf16(bytes.substr(3));
    } else {
        text = FromAnsi(bytes);
    }
    for (size_t start = 0; start < text.size();) {
        const size_t end = std::min(text.find(u'\n', start), text.size());
        std::u16string line = text.substr(start, end - start);
        while (!line.empty() && line.back() == u'\r') line.pop_back();
        profile.lines.push_back(std::move(line));
        start = end + 1;
    }
    return profile;
}

std::string Print(const Profile& profile) {
    std::u16string text;
    for (const std::u16string& line : profile.lines) (text += line) += u"\r\n";
    if (profile.form == Form::Ansi) return ToAnsi(text);
    if (profile.form == Form::Utf8) return "\xEF\xBB\xBF" + win32host::Utf8(text);
    std::string bytes = "\xFF\xFE";
    for (char16_t unit : text) {
        bytes += static_cast<char>(unit & 0xFF);
        bytes += static_cast<char>(unit >> 8);
    }
    return bytes;
}

// A name without a folder is in the Windows folder.
std::u16string PlaceOf(LPCWSTR file) {
    const std::u16string name(file);
    if (name.find_first_of(u"\\/:") != std::u16string::npos) return name;
    return win32host::kWindowsFolder + (u"\\" + name);
}

// Reads the rest of an open file.
std::optional<Profile> Read(HANDLE file) {
    const DWORD size = GetFileSize(file, nullptr);
    if (size > kLargestProfile) {
        SetLastError(ERROR_INVALID_DATA);
        return std::nullopt;
    }
    std::string bytes(size, '\0');
    DWORD read = 0;
    if (!ReadFile(file, bytes.data(), size, &read, nullptr)) return std::nullopt;
    bytes.resize(read);
    return Parse(bytes);
}

std::optional<Profile> Load(LPCWSTR file) {
    const HANDLE handle =
        CreateFileW(PlaceOf(file).c_str(), GENERIC_READ, FILE_SHARE_READ | FILE_SHARE_WRITE,
                    nullptr, OPEN_EXISTING, FILE_ATTRIBUTE_NORMAL, nullptr);
    if (handle == INVALID_HANDLE_VALUE) return std::nullopt;
    auto profile = Read(handle);
    CloseHandle(handle);
    return profile;
}

// The lines after a section's heading, up to the next heading, as a range of indices.
struct Range {
    size_t begin;
    size_t end;
};

std::optional<Range> LinesOf(const Profile& profile, std::u16string_view section) {
    const auto& lines = profile.lines;
    for (size_t i = 0; i < lines.size(); ++i) {
        const auto heading = SectionOf(lines[i]);
        if (!heading || !SameName(*heading, section)) continue;
        size_t end = i + 1;
        while (end < lines.size() && !SectionOf(lines[end])) ++end;
        return Range{i + 1, end};
    }
    return std::nullopt;
}

// The line of `key`, or the end of the range.
size_t LineOf(const Profile& profile, const Range& range, std::u16string_view key) {
    for (size_t i = range.begin; i < range.end; ++i) {
        const auto entry = EntryOf(profile.lines[i]);
        if (entry && SameName(entry->key, key)) return i;
    }
    return range.end;
}

// Copies a text, or a list of texts with a zero after each and one more after the last.
DWORD CopyText(std::u16string_view text, LPWSTR buffer, DWORD size) {
    const size_t count = std::min<size_t>(text.size(), size - 1);
    *std::copy_n(text.begin(), count, buffer) = u'\0';
    return static_cast<DWORD>(count);
}

DWORD CopyList(const std::u16string& list, LPWSTR buffer, DWORD size) {
    if (size < 2) return CopyText(u"", buffer, size);
    const size_t count = std::min<size_t>(list.size(), size - 2);
    std::copy_n(list.begin(), count, buffer);
    if (count < list.size()) { // end a name that was cut
        buffer[count] = buffer[count + 1] = u'\0';
        return size - 2;
    }
    buffer[count] = u'\0';
    if (count == 0) buffer[1] = u'\0';
    return static_cast<DWORD>(count);
}

std::u16string ListSections(const Profile& profile) {
    std::u16string list;
    for (const auto& line : profile.lines)
        if (const auto section = SectionOf(line)) (list += *section) += u'\0';
    return list;
}

std::u16string ListKeys(const Profile& profile, std::u16string_view section) {
    std::u16string list;
    const auto range = LinesOf(profile, section);
    for (size_t i = range ? range->begin : 0; range && i < range->end; ++i)
        if (const auto entry = EntryOf(profile.lines[i])) (list += entry->key) += u'\0';
    return list;
}

std::u16string_view WithoutQuotes(std::u16string_view value) {
    const bool quoted =
        value.size() >= 2 && (value[0] == u'"' || value[0] == u'\'') && value.back() == value[0];
    return quoted ? value.substr(1, value.size() - 2) : value;
}

void Change(Profile& profile, std::u16string_view section, LPCWSTR key, LPCWSTR text) {
    auto& lines = profile.lines;
    const auto at = [&](size_t i) { return lines.begin() + static_cast<ptrdiff_t>(i); };
    std::optional<Range> range = LinesOf(profile, section);
    if (!key) {
        if (range) lines.erase(at(range->begin - 1), at(range->end));
        return;
    }
    const size_t line = range ? LineOf(profile, *range, Trim(key)) : 0;
    const bool found = range && line < range->end;
    if (!text) {
        if (found) lines.erase(at(line));
        return;
    }
    std::u16string entry = std::u16string(Trim(key)) + u"=" + text;
    if (found) {
        lines[line] = std::move(entry);
        return;
    }
    if (!range) {
        lines.push_back(u"[" + std::u16string(section) + u"]");
        lines.push_back(std::move(entry));
        return;
    }
    // After the section's last line that is not empty.
    while (range->end > range->begin && Trim(lines[range->end - 1]).empty()) --range->end;
    lines.insert(at(range->end), std::move(entry));
}

} // namespace

extern "C" {

DWORD WINAPI GetPrivateProfileStringW(LPCWSTR section, LPCWSTR key, LPCWSTR fallback, LPWSTR text,
                                      DWORD size, LPCWSTR file) {
    if (!text || size == 0) return 0;
    const auto profile = file ? Load(file) : std::nullopt;
    if (profile && !section) return CopyList(ListSections(*profile), text, size);
    if (profile && !key) {
        const std::u16string keys = ListKeys(*profile, Trim(section));
        if (!keys.empty()) return CopyList(keys, text, size);
    } else if (profile) {
        const auto range = LinesOf(*profile, Trim(section));
        const size_t line = range ? LineOf(*profile, *range, Trim(key)) : 0;
        if (range && line < range->end)
            return CopyText(WithoutQuotes(EntryOf(profile->lines[line])->value), text, size);
    }
    std::u16string_view other = fallback ? fallback : u"";
    other = other.substr(0, other.find_last_not_of(u' ') + 1); // blanks at its end do not count
    if (!section || !key) return CopyList(std::u16string(other), text, size);
    return CopyText(other, text, size);
}

BOOL WINAPI WritePrivateProfileStringW(LPCWSTR section, LPCWSTR key, LPCWSTR text, LPCWSTR file) {
    if (!file) {
        SetLastError(ERROR_INVALID_PARAMETER);
        return FALSE;
    }
    if (!section) { // asks to flush the cache, and there is none
        SetLastError(ERROR_FILE_NOT_FOUND);
        return FALSE;
    }
    const HANDLE handle = CreateFileW(PlaceOf(file).c_str(), GENERIC_READ | GENERIC_WRITE, 0,
                                      nullptr, OPEN_ALWAYS, FILE_ATTRIBUTE_NORMAL, nullptr);
    if (handle == INVALID_HANDLE_VALUE) return FALSE;
    auto profile = Read(handle);
    BOOL done = FALSE;
    if (profile) {
        Change(*profile, Trim(section), key, text);
        const std::string bytes = Print(*profile);
        DWORD written = 0;
        SetFilePointer(handle, 0, nullptr, FILE_BEGIN);
        done =
            WriteFile(handle, bytes.data(), static_cast<DWORD>(bytes.size()), &written, nullptr) &&
            SetEndOfFile(handle);
    }
    CloseHandle(handle);
    return done;
}

} // extern "C"
