// The dialog for folders.
#include "locale/system_texts.h"
#include "window/file_request.h"
#include "window/system_dialogs.h"

#include "host/guarded.h"
#include "host/text.h"

#include <commdlg.h>
#include <shlobj.h>
#include <win32host/user.h>

#include <cstring>

namespace win32host {
namespace {

// Identifiers of its controls.
constexpr int kFolderTitle = 0x3742;
constexpr int kFolderStatus = 0x3743;
constexpr int kFolderField = 0x3744;
constexpr int kFolderList = 0x3741;

// A folder as one item that holds its path, and the item of size 0 that ends every list.
PIDLIST_ABSOLUTE MakeIdList(const std::u16string& path) {
    const size_t bytes = (path.size() + 1) * sizeof(WCHAR);
    const size_t size = sizeof(USHORT) + bytes;
    auto* list = static_cast<BYTE*>(CoTaskMemAlloc(size + sizeof(USHORT)));
    if (!list) return nullptr;
    const auto item = static_cast<USHORT>(size);
    memcpy(list, &item, sizeof(item));
    memcpy(list + sizeof(item), path.c_str(), bytes);
    memset(list + size, 0, sizeof(USHORT));
    return reinterpret_cast<PIDLIST_ABSOLUTE>(list);
}

class FolderDialog {
public:
    explicit FolderDialog(const BROWSEINFOW& request)
        : request_(request) {}

    // The chosen folder; empty if there is none.
    std::u16string Run();

private:
    static INT_PTR CALLBACK Procedure(HWND dialog, UINT message, WPARAM first, LPARAM second);
    INT_PTR Handle(UINT message, WPARAM first, LPARAM second);
    void Call(UINT message, LPARAM parameter) const;
    void ShowFolder(const std::u16string& folder);
    void OpenItem();
    void Accept();

    const BROWSEINFOW& request_;
    std::u16string folder_ = u"C:\\";
    HWND dialog_ = nullptr;
};

void FolderDialog::Call(UINT message, LPARAM parameter) const {
    if (request_.lpfn) request_.lpfn(dialog_, message, parameter, request_.lParam);
}

void FolderDialog::ShowFolder(const std::u16string& folder) {
    folder_ = folder;
    SetDlgItemTextW(dialog_, kFolderField, folder.c_str());
    SendDlgItemMessageW(dialog_, kFolderList, LB_RESETCONTENT, 0, 0);
    const auto add = [&](const std::u16string& name) {
        SendDlgItemMessageW(dialog_, kFolderList, LB_ADDSTRING, 0,
                            reinterpret_cast<LPARAM>(name.c_str()));
    };
    for (const char16_t* drive : {u"C:\\", u"Z:\\"})
        if (!SameName(folder.substr(0, 3), drive)) add(drive);
    WIN32_FIND_DATAW found = {};
    const HANDLE search = FindFirstFileW(PathIn(folder, u"*").c_str(), &found);
    if (search != INVALID_HANDLE_VALUE) {
        do {
            if (IsShownFolder(found, folder)) add(found.cFileName);
        } while (FindNextFileW(search, &found));
        FindClose(search);
    }
    const PIDLIST_ABSOLUTE list = MakeIdList(folder);
    Call(BFFM_SELCHANGED, reinterpret_cast<LPARAM>(list));
    CoTaskMemFree(list);
}

void FolderDialog::OpenItem() {
    const LRESULT item = SendDlgItemMessageW(dialog_, kFolderList, LB_GETCURSEL, 0, 0);
    WCHAR name[MAX_PATH] = {};
    if (item < 0 || SendDlgItemMessageW(dialog_, kFolderList, LB_GETTEXTLEN,
                                        static_cast<WPARAM>(item), 0) >= MAX_PATH)
        return;
    SendDlgItemMessageW(dialog_, kFolderList, LB_GETTEXT, static_cast<WPARAM>(item),
                        reinterpret_cast<LPARAM>(name));
    ShowFolder(PathIn(folder_, name));
}

void FolderDialog::Accept() {
    const std::u16string path = PathIn(folder_, TextOfControl(dialog_, kFolderField));
    if (IsFolder(path)) {
        folder_ = path;
        EndDialog(dialog_, IDOK);
        return;
    }
    MessageBoxW(dialog_, (path + u"\n" + SystemText(u"Folder not found.")).c_str(),
                SystemText(u"Browse for Folder").c_str(), MB_OK | MB_ICONEXCLAMATION);
}

INT_PTR FolderDialog::Handle(UINT message, WPARAM first, LPARAM second) {
    switch (message) {
    case WM_INITDIALOG:
        ShowFolder(folder_);
        Call(BFFM_INITIALIZED, 0);
        return TRUE;
    case BFFM_SETSELECTIONW: {
        std::u16string folder;
        if (first && second)
            folder = PathIn(folder_, reinterpret_cast<LPCWSTR>(second));
        else if (WCHAR path[MAX_PATH];
                 SHGetPathFromIDListW(reinterpret_cast<PCIDLIST_ABSOLUTE>(second), path))
            folder = path;
        if (IsFolder(folder)) ShowFolder(folder);
        return TRUE;
    }
    case BFFM_ENABLEOK:
        EnableWindow(GetDlgItem(dialog_, IDOK), second != 0);
        return TRUE;
    case WM_COMMAND:
        break;
    default:
        return FALSE;
    }
    if (LOWORD(first) == IDOK) {
        Accept();
        return TRUE;
    }
    if (LOWORD(first) == IDCANCEL) {
        EndDialog(dialog_, IDCANCEL);
        return TRUE;
    }
    if (LOWORD(first) == kFolderList && HIWORD(first) == LBN_DBLCLK) {
        OpenItem();
        return TRUE;
    }
    return FALSE;
}

INT_PTR CALLBACK FolderDialog::Procedure(HWND dialog, UINT message, WPARAM first, LPARAM second) {
    if (message == WM_INITDIALOG) {
        SetWindowLongPtrW(dialog, DWLP_USER, second);
        reinterpret_cast<FolderDialog*>(second)->dialog_ = dialog;
    }
    auto* self = reinterpret_cast<FolderDialog*>(GetWindowLongPtrW(dialog, DWLP_USER));
    return self ? Guarded(INT_PTR(FALSE), [&] { return self->Handle(message, first, second); })
                : FALSE;
}

std::u16string FolderDialog::Run() {
    DialogTemplate made = SystemDialog(SystemText(u"Browse for Folder"), 218, 200, WS_SYSMENU);
    AddControl(made, kStaticClass, kFolderTitle, CopyOf(request_.lpszTitle), SS_LEFT | SS_NOPREFIX,
               {7, 7, 211, 31});
    if (request_.ulFlags & BIF_STATUSTEXT)
        AddControl(made, kStaticClass, kFolderStatus, u"", SS_LEFT | SS_NOPREFIX, {7, 31, 211, 39});
    AddControl(made, kListBoxClass, kFolderList, u"",
               LBS_NOTIFY | LBS_SORT | LBS_NOINTEGRALHEIGHT | WS_BORDER | WS_VSCROLL | WS_TABSTOP,
               {7, 42, 211, 156});
    AddControl(made, kEditClass, kFolderField, u"", ES_AUTOHSCROLL | WS_BORDER | WS_TABSTOP,
               {7, 161, 211, 174});
    AddSystemControl(made, kButtonClass, IDOK, u"OK", BS_DEFPUSHBUTTON | WS_TABSTOP,
                     {107, 180, 157, 194});
    AddSystemControl(made, kButtonClass, IDCANCEL, u"Cancel", WS_TABSTOP, {161, 180, 211, 194});
    const INT_PTR result =
        ShowModal(nullptr, made, request_.hwndOwner, Procedure, reinterpret_cast<LPARAM>(this));
    return result == IDOK ? folder_ : std::u16string();
}

} // namespace
} // namespace win32host

using namespace win32host;

extern "C" {

PIDLIST_ABSOLUTE WINAPI SHBrowseForFolderW(LPBROWSEINFOW request) {
    return Guarded(PIDLIST_ABSOLUTE(nullptr), [&]() -> PIDLIST_ABSOLUTE {
        if (!request || !HasUser()) return nullptr;
        const std::u16string folder = FolderDialog(*request).Run();
        if (folder.empty()) return nullptr;
        if (request->pszDisplayName) {
            std::u16string name = folder.substr(folder.find_last_of(u'\\') + 1);
            if (name.empty()) name = folder; // a drive
            const size_t count = std::min<size_t>(name.size(), MAX_PATH - 1);
            *std::copy_n(name.begin(), count, request->pszDisplayName) = u'\0';
        }
        return MakeIdList(folder);
    });
}

BOOL WINAPI SHGetPathFromIDListW(PCIDLIST_ABSOLUTE folder, LPWSTR path) {
    if (!folder || !path || folder->mkid.cb <= sizeof(USHORT)) return FALSE;
    const size_t bytes = folder->mkid.cb - sizeof(USHORT);
    if (bytes > MAX_PATH * sizeof(WCHAR)) return FALSE;
    memcpy(path, folder->mkid.abID, bytes);
    return TRUE;
}

void WINAPI ILFree(LPITEMIDLIST folder) {
    CoTaskMemFree(folder);
}

} // extern "C"
