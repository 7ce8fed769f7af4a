#include "ui/udirectory_dialog.h"

#include <windows.h>

#include <objbase.h>
#include <shlobj.h>

#include "ui/udialog.h"

bool UDirectoryDialog::Browse(const OString& text) {
    BROWSEINFOW request = {};
    request.hwndOwner = owner_.GetWindow();
    request.lpszTitle = text.wstring();
    request.ulFlags = BIF_RETURNONLYFSDIRS;
    const PIDLIST_ABSOLUTE folder = SHBrowseForFolderW(&request);
    if (!folder) return false;
    WCHAR path[MAX_PATH] = {};
    const bool has_path = SHGetPathFromIDListW(folder, path);
    CoTaskMemFree(folder);
    if (has_path) path_ = path;
    return has_path;
}
