#include "ui/component_utility.h"

#include <algorithm>
#include <memory>

#include "core/memory.h"
#include "core/ostring_array.h"
#include "locale/text_numbers.h"
#include "registry/oregistry.h"
#include "ui/prtpage.h"

namespace {

constexpr char kControlsFile[] = "comctl32.dll";
constexpr char kRichEditFile[] = "riched20.dll";
constexpr char kSocketsFile[] = "ws2_32.dll";

// The versions of riched20.dll that brought a version of the control, newest first.
constexpr struct {
    const char* control;
    const char* file;
} kRichEdits[] = {{"3.0", "5.30"}, {"2.0", "5.0"}};

enum class Component { FILE, RICH_EDIT, HTML_HELP, FABLEWICK };

// Which component a name means; for a file, `file` gets its name.
Component ComponentOf(const OString& name, OString& file) {
    const auto is = [&](const char* other) { return name.CompareNoCase(other) == 0; };
    if (is("RichEdit")) return Component::RICH_EDIT;
    if (is("HTML Help")) return Component::HTML_HELP;
    if (is("Fablewick")) return Component::FABLEWICK;
    file = is("Com Control") ? OString(kControlsFile)
           : is("WinSock")   ? OString(kSocketsFile)
                             : name;
    return Component::FILE;
}

// The version resource of a file, or null.
std::unique_ptr<BYTE[]> ReadVersionResource(const OString& file) {
    DWORD ignored = 0;
    const DWORD size = GetFileVersionInfoSizeW(file.wstring(), &ignored);
    if (size == 0) return nullptr;
    std::unique_ptr<BYTE[]> block(new (kCounted) BYTE[size]);
    if (!block || !GetFileVersionInfoW(file.wstring(), 0, size, block.get())) return nullptr;
    return block;
}

void AppendParts(const OString& version, OTypedArray<int>* parts) {
    if (!parts) return;
    OStringArray pieces;
    pieces.Split(version, ".");
    for (int i = 0; i < pieces.GetSize(); ++i) parts->Add(static_cast<int32_t>(pieces[i]));
}

// `limit` is the number of pieces that count.
int CompareParts(const OTypedArray<int>& parts, const OString& required, int limit) {
    OStringArray pieces;
    pieces.Split(required, ".");
    const int count = std::min(pieces.GetSize(), limit);
    for (int i = 0; i < count; ++i) {
        const int part = i < parts.GetSize() ? parts[i] : 0;
        const auto wanted = static_cast<int32_t>(pieces[i]);
        if (part != wanted) return part > wanted ? 1 : -1;
    }
    return 0;
}

OString RichEditVersion() {
    for (const auto& known : kRichEdits)
        if (CheckComponentVersion(kRichEditFile, known.file, false) >= 0) return known.control;
    return "1.0";
}

int CheckRichEdit(const OString& required) {
    if (required == "1.0") return 1;
    OString file_version = required;
    for (const auto& known : kRichEdits)
        if (required == known.control) file_version = known.file;
    return CheckComponentVersion(kRichEditFile, file_version, false) >= 0 ? 1 : 0;
}

// A text of the resource in its first language.
OString TextOfVersion(const BYTE* block, const char* folder, const char* name) {
    const OString path = OString(folder) + name;
    void* text = nullptr;
    UINT length = 0;
    if (!VerQueryValueW(block, path.wstring(), &text, &length) || length == 0) return OString();
    OString copy;
    WCHAR* const room = copy.GetBufferW(static_cast<int>(length));
    if (!room) return OString();
    // The terminator counts but need not be there.
    std::copy_n(static_cast<const WCHAR*>(text), length, room);
    room[length] = 0;
    return copy;
}

} // namespace

OString GetProductVersion(const OString& file, OTypedArray<int>* parts, bool from_strings) {
    if (from_strings) {
        ComponentUtility::tagProductVersionInfo info;
        ComponentUtility::GetProductVersionInfo(file, &info);
        AppendParts(info.product_version, parts);
        return info.product_version;
    }
    const auto block = ReadVersionResource(file);
    void* root = nullptr;
    UINT size = 0;
    if (!block || !VerQueryValueW(block.get(), TEXT("\\"), &root, &size) ||
        size < sizeof(VS_FIXEDFILEINFO))
        return OString();
    const auto* const info = static_cast<const VS_FIXEDFILEINFO*>(root);
    const int numbers[] = {HIWORD(info->dwProductVersionMS), LOWORD(info->dwProductVersionMS),
                           HIWORD(info->dwProductVersionLS), LOWORD(info->dwProductVersionLS)};
    if (parts)
        for (const int number : numbers) parts->Add(number);
    OString version;
    version << numbers[0] << "." << numbers[1];
    if (numbers[2] != 0 || numbers[3] != 0) version << "." << numbers[2];
    if (numbers[3] != 0) version << "." << numbers[3];
    return version;
}

OString GetExplorerVersion(OTypedArray<int>* parts) {
    const OString version = ORegistry().GetString(
        "LOCAL_MACHINE:Software/Microsoft/Internet Explorer/Version", OString());
    AppendParts(version, parts);
    return version;
}

OString GetFablewickVersion(OTypedArray<int>* parts) {
    ORegistry registry;
    const OString type = registry.GetString("CLASSES_ROOT:.fwk/", OString());
    if (type.IsEmpty()) return OString();
    OString command("CLASSES_ROOT:");
    command << ORegistry::EncodeName(type) << "/shell/open/command/";
    command = registry.GetString(command, OString());
    OStringArray words;
    words.Split(command, " ");
    if (words.GetSize() == 0) return OString();
    const OString version = GetProductVersion(words[0], nullptr, false);
    AppendParts(version, parts);
    return version;
}

int CheckComponentVersion(const OString& file, const OString& required, bool from_strings) {
    constexpr int kFileParts = 4;
    OTypedArray<int> parts;
    if (GetProductVersion(file, &parts, from_strings).IsEmpty()) return -1;
    return required.IsEmpty() ? 1 : CompareParts(parts, required, kFileParts);
}

int CheckExplorerVersion(const OString& required) {
    OTypedArray<int> parts;
    if (GetExplorerVersion(&parts).IsEmpty()) return -1;
    return CompareParts(parts, required, INT_MAX);
}

int CheckFablewickVersion(const OString& required) {
    OTypedArray<int> parts;
    if (GetFablewickVersion(&parts).IsEmpty()) return -1;
    return CompareParts(parts, required, INT_MAX);
}

OString ComponentUtility::GetVersion(const OString& name) {
    OString file;
    switch (ComponentOf(name, file)) {
    case Component::RICH_EDIT:
        return RichEditVersion();
    case Component::HTML_HELP:
        return GetExplorerVersion(nullptr);
    case Component::FABLEWICK:
        return GetFablewickVersion(nullptr);
    default:
        return GetProductVersion(file, nullptr, false);
    }
}

int ComponentUtility::CheckVersion(const OString& name, const OString& required) {
    OString file;
    switch (ComponentOf(name, file)) {
    case Component::RICH_EDIT:
        return CheckRichEdit(required);
    case Component::HTML_HELP:
        return CheckExplorerVersion(required);
    case Component::FABLEWICK:
        return CheckFablewickVersion(required);
    default:
        return CheckComponentVersion(file, required, false);
    }
}

bool ComponentUtility::IsInstalled(const OString& name, const OString& required) {
    return CheckVersion(name, required) >= 0;
}

bool ComponentUtility::GetProductVersionInfo(const OString& file, tagProductVersionInfo* info) {
    const auto block = ReadVersionResource(file);
    void* translation = nullptr;
    UINT size = 0;
    if (!block ||
        !VerQueryValueW(block.get(), TEXT("\\VarFileInfo\\Translation"), &translation, &size) ||
        size < 2 * sizeof(WORD))
        return false;
    const auto* const language = static_cast<const WORD*>(translation);
    OString folder;
    folder.Format(TEXT("\\StringFileInfo\\%04X%04X\\"), language[0], language[1]);
    const char* const start = folder.nstring();
    info->product_version = TextOfVersion(block.get(), start, "ProductVersion");
    info->company_name = TextOfVersion(block.get(), start, "CompanyName");
    info->file_description = TextOfVersion(block.get(), start, "FileDescription");
    info->legal_copyright = TextOfVersion(block.get(), start, "LegalCopyright");
    return true;
}

int ComponentUtility::ComponentUpdateRequired(prtpage* page, int message) {
    OString text = page->GetString(message);
    text << "\n\n" << page->GetString(TEXT_UPDATE_COMPONENT);
    return page->Message(text, page->GetString(TEXT_COMPONENT_REQUIRED), MB_ICONSTOP | MB_OK);
}
