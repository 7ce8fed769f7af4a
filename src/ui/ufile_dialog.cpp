#include "ui/ufile_dialog.h"

#include <commdlg.h>

#include <algorithm>

#include "ui/udialog.h"

namespace {

constexpr uint32_t kFileRoom = 5200;

int LengthOf(const WCHAR* text) {
    int length = 0;
    while (text[length]) ++length;
    return length;
}

} // namespace

UFileDialog::UFileDialog(UDialog& owner, ORegistry& registry, const UStringResource& type)
    : owner_(owner)
    , registry_(registry)
    , type_(type.GetText(owner)) {}

void UFileDialog::AddFilter(int text, const char* pattern) {
    OString shown = owner_.GetString(text);
    shown << " (" << pattern << ")";
    filters_.Add(shown);
    filters_.Add(OString(pattern));
}

OString UFileDialog::ValueName(const char* what) const {
    OString name("UserSettings:Last ");
    return name << ORegistry::EncodeName(type_) << " " << what;
}

void UFileDialog::ReadLast() {
    folder_ = registry_.GetString(ValueName("Path"), OString());
    if (name_.IsEmpty()) name_ = registry_.GetString(ValueName("Name"), OString());
    filter_ = registry_.GetInt(ValueName("Filter"), 1);
    filter_ = std::clamp(filter_, int32_t{1}, std::max(int32_t{1}, filters_.GetSize() / 2));
}

void UFileDialog::StoreLast() {
    const OString path = GetPath();
    // What cannot be remembered is not proposed the next time; nothing else depends on it.
    registry_.SetString(ValueName("Path"), path.PathPart());
    registry_.SetString(ValueName("Name"), path.FilePart());
    registry_.SetInt(ValueName("Filter"), filter_);
}

bool UFileDialog::Browse(int kind) {
    if (!files_.SetSize(kFileRoom)) return false;
    ReadLast();
    const int length = std::min(LengthOf(name_.wstring()), static_cast<int>(kFileRoom) - 1);
    std::copy_n(name_.wstring(), length, files_.GetData());
    files_[static_cast<uint32_t>(length)] = 0;

    OBuffer<WCHAR> filters;
    if (filters_.GetSize() > 0 && filters_.Pack(filters, OPACK_LIST) == 0) return false;

    OPENFILENAMEW request = {};
    request.lStructSize = sizeof request;
    request.hwndOwner = owner_.GetWindow();
    request.lpstrFilter = filters.GetData();
    request.nFilterIndex = static_cast<DWORD>(filter_);
    request.lpstrFile = files_.GetData();
    request.nMaxFile = kFileRoom;
    request.lpstrInitialDir = folder_.IsEmpty() ? nullptr : folder_.wstring();
    request.lpstrTitle = type_.wstring();
    request.lpstrDefExt = extension_.IsEmpty() ? nullptr : extension_.wstring();
    request.Flags = OFN_EXPLORER | OFN_HIDEREADONLY | OFN_NOCHANGEDIR | OFN_PATHMUSTEXIST | flags_;
    request.Flags |= kind == SAVE ? OFN_OVERWRITEPROMPT : OFN_FILEMUSTEXIST;
    const BOOL chosen = kind == SAVE ? GetSaveFileNameW(&request) : GetOpenFileNameW(&request);
    if (!chosen) return false;
    // A single path is not followed by the second terminator of a list, but perhaps by the rest of
    // the proposed name.
    const auto after = static_cast<uint32_t>(LengthOf(files_.GetData())) + 1;
    if (request.nFileOffset < after && after < kFileRoom) files_[after] = 0;
    filter_ = static_cast<int32_t>(request.nFilterIndex);
    StoreLast();
    return true;
}

OString UFileDialog::GetPath() const {
    OStringArray paths;
    GetPaths(paths);
    return paths.GetSize() > 0 ? paths[0] : OString();
}

void UFileDialog::GetPaths(OStringArray& paths) const {
    paths.SetSize(0);
    if (files_.GetSize() == 0) return;
    const OString first(files_.GetData());
    const WCHAR* next = files_.GetData() + LengthOf(files_.GetData()) + 1;
    // Only a choice of several files has more texts after the first.
    if (!(flags_ & OFN_ALLOWMULTISELECT) || !*next) {
        paths.Add(first);
        return;
    }
    for (; *next; next += LengthOf(next) + 1) {
        OString path = first;
        const WCHAR* const folder = first.wstring();
        if (folder[first.wlen() - 1] != '\\') path << "\\";
        paths.Add(path << next);
    }
}
