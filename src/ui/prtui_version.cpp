// What the module's version resource says.
#include <cstring>

#include "core/memory.h"
#include "spooler/driver_utility.h"
#include "ui/copyright_years.h"
#include "ui/prtui.h"

bool prtui::LoadFileVersionInfo() {
    if (version_info_) return true;
    const HINSTANCE module = DriverUtility::GetModuleHandle();
    WCHAR file[MAX_PATH] = {};
    const DWORD length = module ? GetModuleFileNameW(module, file, MAX_PATH) : 0;
    if (length == 0 || length >= MAX_PATH) return false;
    DWORD ignored = 0;
    const DWORD size = GetFileVersionInfoSizeW(file, &ignored);
    if (size == 0) return false;
    std::unique_ptr<BYTE[]> block(new (kCounted) BYTE[size]);
    if (!block || !GetFileVersionInfoW(file, 0, size, block.get())) return false;
    version_info_ = std::move(block);
    return true;
}

OString prtui::VersionText(const char* name) {
    if (!LoadFileVersionInfo()) return OString();
    const OString path = OString("\\StringFileInfo\\000004B0\\") + name;
    void* units = nullptr;
    UINT length = 0;
    if (!VerQueryValueW(version_info_.get(), path.wstring(), &units, &length) || length == 0)
        return OString();
    // Its terminator counts, but need not be there.
    OString text;
    WCHAR* room = text.GetBufferW(static_cast<int>(length));
    if (!room) return OString();
    std::memcpy(room, units, length * sizeof(WCHAR));
    room[length] = 0;
    return text;
}

void prtui::GetVersionInfo(OString& version) {
    version = VersionText("ProductVersion");
}

void prtui::GetVersionTag(OString& tag) {
    tag = VersionText("Product Tag");
}

OString prtui::GetBuildDate() {
    return VersionText("Build Date");
}

OString prtui::GetSCMBranch() {
    return VersionText("SCM Branch");
}

OString prtui::GetSCMRevision() {
    return VersionText("SCM Revision");
}

OString prtui::GetCopyright() {
    constexpr uint32_t WESTERN = 1252;
    const OString notice = VersionText("LegalCopyright");
    const int mark = notice.Find(TEXT("(c)"));
    if (locale.GetCurrentCP() != WESTERN || mark < 0) return notice;
    const WCHAR* rest = notice.wstring() + mark + 3;
    if (*rest) ++rest;
    return OString(TEXT("Copyright \u00A9")) + OString(rest);
}

void prtui::ReadCopyrightYears() {
    if (copyright_start_ != 0) return;
    const CopyrightYears years = ::ReadCopyrightYears(GetCopyright());
    copyright_start_ = years.start;
    copyright_end_ = years.end;
}

int32_t prtui::GetCopyrightStart() {
    ReadCopyrightYears();
    return copyright_start_;
}

int32_t prtui::GetCopyrightEnd() {
    ReadCopyrightYears();
    return copyright_end_;
}
