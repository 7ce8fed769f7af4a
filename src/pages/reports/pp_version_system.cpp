// ppVersion: the system that the driver runs on.
#include <windows.h>

#include "core/locale_utility.h"
#include "core/physical_memory.h"
#include "keys/user_info.h"
#include "locale/report_text_numbers.h"
#include "pages/reports/pp_version.h"
#include "registry/oregistry.h"
#include "ui/component_utility.h"

namespace {

constexpr char kProcessorKey[] = "LOCAL_MACHINE:Hardware/Description/System/CentralProcessor/0/";

constexpr uint64_t kMegabyte = 1048576;

// Those that Windows has fonts for.
constexpr uint32_t kCodePages[] = {874,  932,  936,  949,  950,  1250, 1251,
                                   1252, 1253, 1254, 1255, 1256, 1257, 1258};

// Empty if it is not set.
OString EnvironmentText(const WCHAR* name) {
    OString text;
    const DWORD size = GetEnvironmentVariableW(name, nullptr, 0);
    if (size == 0) return text;
    WCHAR* const room = text.GetBufferW(static_cast<int>(size));
    if (!room) return OString();
    // It may have grown meanwhile. Then nothing was written.
    if (GetEnvironmentVariableW(name, room, size) >= size) *room = 0;
    return text;
}

OString LanguageOf(LCID locale) {
    WCHAR name[128] = {}; // Windows has no longer ones
    GetLocaleInfoW(locale, LOCALE_SLANGUAGE, name, 128);
    return name;
}

int TextOfDrive(UINT type) {
    switch (type) {
    case DRIVE_REMOVABLE:
        return TEXT_INFO_REMOVABLE;
    case DRIVE_FIXED:
        return TEXT_INFO_FIXED;
    case DRIVE_REMOTE:
        return TEXT_INFO_REMOTE;
    case DRIVE_CDROM:
        return TEXT_INFO_CD_ROM;
    case DRIVE_RAMDISK:
        return TEXT_INFO_RAM_DISK;
    default:
        return TEXT_INFO_UNKNOWN;
    }
}

} // namespace

void ppVersion::ShowSystem() {
    Tab(TEXT_INFO_SYSTEM_TAB);
    ShowOperatingSystem();
    ShowProcessor();
    ShowUser();
    Info_Header(TEXT_INFO_DISPLAY_HEADING);
    OString screen;
    screen << GetSystemMetrics(SM_CXSCREEN) << " x " << GetSystemMetrics(SM_CYSCREEN);
    Info_Item(TEXT_INFO_SCREEN, screen);
    ShowRegionalSettings();
    ShowDrives();
}

void ppVersion::ShowOperatingSystem() {
    Info_Header(TEXT_INFO_SYSTEM_HEADING);
    OString name, edition, service_pack;
    ComponentUtility::GetOSInformation(name, edition, service_pack);
    if (edition.GetLength() > 0) name << " - " << edition;
    Info_Item(TEXT_INFO_SYSTEM, name);
    ItemIfAny(TEXT_INFO_SERVICE_PACK, service_pack);
    WCHAR folder[MAX_PATH] = {};
    GetWindowsDirectoryW(folder, MAX_PATH);
    Info_Item(TEXT_INFO_WINDOWS_FOLDER, OString(folder));
    GetSystemDirectoryW(folder, MAX_PATH);
    Info_Item(TEXT_INFO_SYSTEM_FOLDER, OString(folder));
}

void ppVersion::ShowProcessor() {
    Info_Header(TEXT_INFO_PROCESSOR_HEADING);
    ORegistry registry;
    const OString key = kProcessorKey;
    ItemIfAny(TEXT_INFO_PROCESSOR_MAKER, registry.GetString(key + "VendorIdentifier", ""));
    const OString identifier = registry.GetString(key + "Identifier", "");
    Info_Item(TEXT_INFO_PROCESSOR, registry.GetString(key + "ProcessorNameString", identifier));
    ItemIfAny(TEXT_INFO_ARCHITECTURE, EnvironmentText(TEXT("PROCESSOR_ARCHITECTURE")));
    ItemIfAny(TEXT_INFO_PROCESSOR_LEVEL, EnvironmentText(TEXT("PROCESSOR_LEVEL")));
    ItemIfAny(TEXT_INFO_PROCESSOR_REVISION, EnvironmentText(TEXT("PROCESSOR_REVISION")));
    const OString processors = EnvironmentText(TEXT("NUMBER_OF_PROCESSORS"));
    Info_Item(TEXT_INFO_PROCESSORS, processors.GetLength() > 0 ? processors : OString("1"));
    OString memory;
    memory << (PhysicalMemory() + kMegabyte / 2) / kMegabyte << " MB";
    Info_Item(TEXT_INFO_MEMORY, memory);
}

void ppVersion::ShowUser() {
    Info_Header(TEXT_INFO_USER_HEADING);
    const UserInfo user;
    Info_Item(TEXT_INFO_USER, user.GetUser());
    Info_Item(TEXT_INFO_COMPUTER, user.GetComputer());
    ItemIfAny(TEXT_INFO_DOMAIN, user.GetDomain());
    OString level = GetString(TEXT_INFO_FIRST_USER_LEVEL + user.GetLevel());
    Info_Item(TEXT_INFO_USER_LEVEL, level << " (" << user.GetLevel() << ")");
    const OStringArray& groups = user.GetGroups();
    for (int i = 0; i < groups.GetSize(); ++i) {
        if (i == 0)
            Info_Item(TEXT_INFO_GROUPS, groups[i]);
        else
            Info_Line(OString("\t") + groups[i]);
    }
}

void ppVersion::ShowRegionalSettings() {
    Info_Header(TEXT_INFO_REGIONAL_HEADING);
    Info_Item(TEXT_INFO_SYSTEM_LANGUAGE, LanguageOf(LOCALE_SYSTEM_DEFAULT));
    Info_Item(TEXT_INFO_USER_LANGUAGE, LanguageOf(LOCALE_USER_DEFAULT));
    OString ansi, oem;
    Info_Item(TEXT_INFO_ANSI_CODE_PAGE, ansi << GetACP());
    Info_Item(TEXT_INFO_OEM_CODE_PAGE, oem << GetOEMCP());
    OStringArray sets;
    for (const uint32_t code_page : kCodePages) {
        OString set = GetString_CharSet(LocaleUtility::CodePageToCharSet(code_page));
        sets.Add(set << " (" << code_page << ")");
    }
    Info_Item(TEXT_INFO_CHARACTER_SETS, sets.Join(", "));
}

void ppVersion::ShowDrives() {
    Info_Header(TEXT_INFO_DRIVES_HEADING);
    bool is_first = true;
    for (char letter = 'A'; letter <= 'Z'; ++letter) {
        OString root;
        root << letter << ":\\";
        const UINT type = GetDriveTypeW(root.wstring());
        if (type == DRIVE_UNKNOWN || type == DRIVE_NO_ROOT_DIR) continue;
        if (!is_first) Info_Line("");
        is_first = false;
        Info_Item(TEXT_INFO_DRIVE, root);
        Info_Item(TEXT_INFO_KIND, TextOfDrive(type));
    }
}
