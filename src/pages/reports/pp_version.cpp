#include "pages/reports/pp_version.h"

#include <windows.h>

#include <cstring>
#include <iterator>

#include "locale/report_text_numbers.h"
#include "model/prtmodel.h"
#include "spooler/driver_utility.h"
#include "spooler/platform_flags.h"
#include "ui/prtui.h"

namespace {

constexpr int kInfoStop = 120; // in quarters of a character's width

// Whether the driver's version file beside the module marks the build as not released.
bool IsPrerelease(const prtmodel& model) {
    OString file = DriverUtility::GetDriverDirectory();
    // The OEM field is "o" and the two letters of the code.
    const char* const oem = model.GetOEM();
    file << "\\" << model.GetPrefix() << (*oem ? oem + 1 : oem) << ".ini";
    WCHAR release[3] = {};
    GetPrivateProfileStringW(TEXT("Version"), TEXT("Release"), TEXT("1"), release,
                             static_cast<DWORD>(std::size(release)), file.wstring());
    return release[0] == '0';
}

const char* TargetPlatform() {
    if (!winNT) return "Windows 95, 98, ME";
    return win2000 ? "Windows 2000, XP" : "Windows NT 4.0";
}

} // namespace

void ppVersion::Init() {
    ppInformation::Init();
    capabilities_ = GetModel()->GetCapabilitiesData();
    is_prerelease_ = IsPrerelease(*GetModel());
}

bool ppVersion::RefreshInformation() {
    Info_Clear();
    Info_Title(TEXT_INFO_TITLE);
    ShowDriver();
    ShowSystem();
    ShowSoftware();
    ShowPorts();
    ShowPrinters();
    ShowSpecifications();
    ShowStocks();
    ShowBarCodes();
    ShowSettings();
    return true;
}

void ppVersion::ShowDriver() {
    Tab(TEXT_INFO_DRIVER_TAB);
    prtui& ui = *GetUI();
    OString version, version_tag;
    ui.GetVersionInfo(version);
    ui.GetVersionTag(version_tag);
    Info_Item(TEXT_INFO_PRODUCT, GetModel()->GetDriverName());
    Info_Item(TEXT_INFO_VERSION, version);
    if (is_prerelease_) Info_Item(TEXT_INFO_VERSION_TAG, version_tag);
    Info_Line("");
    Info_Item(TEXT_INFO_MADE_FOR, TargetPlatform());
    Info_Item(TEXT_INFO_BUILT, ui.GetBuildDate());
    if (is_prerelease_) {
        Info_Line("");
        Info_Item(TEXT_INFO_BRANCH, ui.GetSCMBranch());
        Info_Item(TEXT_INFO_SOURCE_REVISION, ui.GetSCMRevision());
    }
    Info_Line("");
    Info_Line(ui.GetCopyright());
}

// ---- Lines --------------------------------------------------------------------------------------

void ppVersion::Tab(const UStringResource& title) {
    Info_Tab(title);
    Info_TabStop(kInfoStop);
}

void ppVersion::ItemIfAny(int label, const OString& value) {
    if (value.GetLength() > 0) Info_Item(label, value);
}

void ppVersion::ItemOr(int label, const OString& value, int otherwise) {
    if (value.GetLength() > 0)
        Info_Item(label, value);
    else
        Info_Item(label, otherwise);
}

void ppVersion::LengthItem(int label, int32_t microns) {
    Info_Item(label, microns_to_string(microns));
}

void ppVersion::SupportItem(int label, bool is_supported) {
    Info_Item(label, is_supported ? TEXT_INFO_SUPPORTED : TEXT_INFO_NOT_SUPPORTED);
}
