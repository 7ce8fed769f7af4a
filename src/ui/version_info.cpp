#include "ui/version_info.h"

#include <algorithm>
#include <cstring>

#include "core/memory.h"
#include "core/numbers.h"
#include "spooler/driver_utility.h"

namespace {

constexpr int kYearDigits = 4;
constexpr uint32_t kWestern = 1252;

int32_t YearAt(const OString& notice, int at) {
    WCHAR year[kYearDigits + 1] = {};
    std::copy_n(notice.wstring() + at, std::min(kYearDigits, notice.wlen() - at), year);
    return xtol(year);
}

} // namespace

CopyrightYears ReadCopyrightYears(const OString& notice) {
    const WCHAR* text = notice.wstring();
    const int length = notice.wlen();
    int at = 0;
    while (at < length && text[at] != '1' && text[at] != '2') ++at;
    if (at == length) return {};
    CopyrightYears years;
    years.start = YearAt(notice, at);
    at += kYearDigits;
    years.end = at < length && text[at] == '-' ? YearAt(notice, at + 1) : years.start;
    return years;
}

bool VersionInfo::Load() {
    if (block_) return true;
    const HINSTANCE module = DriverUtility::GetModuleHandle();
    WCHAR file[MAX_PATH] = {};
    const DWORD length = module ? GetModuleFileNameW(module, file, MAX_PATH) : 0;
    if (length == 0 || length >= MAX_PATH) return false;
    DWORD ignored = 0;
    const DWORD size = GetFileVersionInfoSizeW(file, &ignored);
    if (size == 0) return false;
    std::unique_ptr<BYTE[]> block(new (kCounted) BYTE[size]);
    if (!block || !GetFileVersionInfoW(file, 0, size, block.get())) return false;
    block_ = std::move(block);
    return true;
}

OString VersionInfo::GetText(const char* name) {
    if (!Load()) return OString();
    const OString path = OString("\\StringFileInfo\\000004B0\\") + name;
    void* units = nullptr;
    UINT length = 0;
    if (!VerQueryValueW(block_.get(), path.wstring(), &units, &length) || length == 0)
        return OString();
    // Its terminator counts but need not be there.
    OString text;
    WCHAR* room = text.GetBufferW(static_cast<int>(length));
    if (!room) return OString();
    std::memcpy(room, units, length * sizeof(WCHAR));
    room[length] = 0;
    return text;
}

OString VersionInfo::GetCopyright(uint32_t code_page) {
    const OString notice = GetText("LegalCopyright");
    const int mark = notice.Find(TEXT("(c)"));
    if (code_page != kWestern || mark < 0) return notice;
    const WCHAR* rest = notice.wstring() + mark + 3;
    if (*rest) ++rest;
    return OString(TEXT("Copyright \u00A9")) + OString(rest);
}
