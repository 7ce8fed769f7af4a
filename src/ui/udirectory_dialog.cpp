#include "ui/udirectory_dialog.h"

#include <windows.h>

#include <objbase.h>
#include <shlobj.h>

#include "ui/udialog.h"

namespace {

int CALLBACK ChooseFirstFolder(HWND dialog, UINT message, LPARAM, LPARAM folder) {
    if (message == BFFM_INITIALIZED) SendMessageW(dialog, BFFM_SETSELECTIONW, TRUE, folder);
    return 0;
}

} // namespace

bool UDirectoryDialog::Browse(const OString& text, const OString& start) {
    BROWSEINFOW request = {};
    request.hwndOwner = owner_.GetWindow();
    request.lpszTitle = text.wstring();
    request.ulFlags = BIF_RETURNONLYFSDIRS;
    request.lpfn = ChooseFirstFolder;
    request.lParam = reinterpret_cast<LPARAM>(start.wstring());
    const PIDLIST_ABSOLUTE folder = SHBrowseForFolderW(&request);
    if (!folder) return false;
    WCHAR path[MAX_PATH] = {};
    const bool has_path = SHGetPathFromIDListW(folder, path);
    CoTaskMemFree(folder);
    if (has_path) path_ = path;
    return has_path;
}
