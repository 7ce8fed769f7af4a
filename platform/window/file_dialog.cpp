// The dialogs for opening and saving files.
#include "locale/system_texts.h"
#include "window/file_request.h"
#include "window/system_dialogs.h"

#include "host/guarded.h"
#include "host/text.h"

#include <commdlg.h>
#include <win32host/user.h>

#include <algorithm>

namespace win32host {
namespace {

constexpr UINT kOldFileRequestSize = offsetof(OPENFILENAMEW, pvReserved);

class FileDialog {
public:
    FileDialog(OPENFILENAMEW& request, bool saves)
        : request_(request)
        , wanted_(request, saves) {}

    bool Run();

private:
    static INT_PTR CALLBACK Procedure(HWND dialog, UINT message, WPARAM first, LPARAM second);
    INT_PTR Handle(UINT message, WPARAM first, LPARAM second);
    DialogTemplate Template() const;
    bool SelectsMany() const { return (wanted_.flags & OFN_ALLOWMULTISELECT) != 0; }

    void Initialise();
    void ShowFolder(const std::u16string& folder);
    void ListFiles();
    void Propose();
    void OpenItem();
    void Accept();
    bool IsAcceptable(const std::u16string& path);
    std::u16string CompletePath(const std::u16string& name) const;
    bool Refuse(const std::u16string& path, const char16_t* why);
    std::u16string ListItem(LRESULT item) const;
    LRESULT Answer(const std::u16string& text, WPARAM size, LPARAM buffer) const;

    OPENFILENAMEW& request_;
    FileRequest wanted_;
    std::u16string typed_pattern_; // in place of the filter's
    std::vector<std::u16string> chosen_;
    HWND dialog_ = nullptr;
};

DialogTemplate FileDialog::Template() const {
    const bool offers_read_only = !(wanted_.flags & OFN_HIDEREADONLY);
    DialogTemplate made =
        SystemDialog(wanted_.title, 300, offers_read_only ? 186 : 171, WS_SYSMENU);
    AddSystemControl(made, kStaticClass, stc4, wanted_.saves ? u"Save &in:" : u"Look &in:", SS_LEFT,
                     {7, 9, 52, 17});
    AddControl(made, kComboBoxClass, cmb2, u"", CBS_DROPDOWNLIST | WS_VSCROLL | WS_TABSTOP,
               {55, 7, 293, 107});
    AddControl(made, kListBoxClass, lst1, u"",
               LBS_NOTIFY | LBS_NOINTEGRALHEIGHT | WS_BORDER | WS_VSCROLL | WS_TABSTOP |
                   static_cast<DWORD>(SelectsMany() ? LBS_EXTENDEDSEL : 0),
               {7, 26, 293, 126});
    AddSystemControl(made, kStaticClass, stc3, u"File &name:", SS_LEFT, {7, 135, 52, 143});
    AddControl(made, kEditClass, edt1, u"", ES_AUTOHSCROLL | WS_BORDER | WS_TABSTOP,
               {55, 133, 237, 146});
    AddSystemControl(made, kButtonClass, IDOK, wanted_.saves ? u"&Save" : u"&Open",
                     BS_DEFPUSHBUTTON | WS_TABSTOP, {243, 132, 293, 146});
    AddSystemControl(made, kStaticClass, stc2,
                     wanted_.saves ? u"Save as &type:" : u"Files of &type:", SS_LEFT,
                     {7, 153, 52, 161});
    AddControl(made, kComboBoxClass, cmb1, u"", CBS_DROPDOWNLIST | WS_VSCROLL | WS_TABSTOP,
               {55, 151, 237, 231});
    AddSystemControl(made, kButtonClass, IDCANCEL, u"Cancel", WS_TABSTOP, {243, 150, 293, 164});
    if (offers_read_only)
        AddSystemControl(made, kButtonClass, chx1, u"Open as &read-only",
                         BS_AUTOCHECKBOX | WS_TABSTOP, {55, 169, 237, 179});
    return made;
}

void FileDialog::Initialise() {
    for (const FileFilter& filter : wanted_.filters)
        SendDlgItemMessageW(dialog_, cmb1, CB_ADDSTRING, 0,
                            reinterpret_cast<LPARAM>(filter.text.c_str()));
    SendDlgItemMessageW(dialog_, cmb1, CB_SETCURSEL, wanted_.filter, 0);
    if (wanted_.flags & OFN_READONLY)
        SendDlgItemMessageW(dialog_, chx1, BM_SETCHECK, BST_CHECKED, 0);
    ShowFolder(wanted_.folder);
    SetDlgItemTextW(dialog_, edt1, wanted_.name.c_str());
    SetFocus(GetDlgItem(dialog_, edt1));
    SendDlgItemMessageW(dialog_, edt1, EM_SETSEL, 0, -1);
}

// Shows what is in a folder. The list of folders has it, those above it and the drives.
void FileDialog::ShowFolder(const std::u16string& folder) {
    wanted_.folder = folder;
    SendDlgItemMessageW(dialog_, cmb2, CB_RESETCONTENT, 0, 0);
    std::vector<std::u16string> folders = {folder};
    while (folders.back().size() > 3 && FolderOf(folders.back()) != folders.back() &&
           !FolderOf(folders.back()).empty())
        folders.push_back(FolderOf(folders.back()));
    std::reverse(folders.begin(), folders.end());
    const size_t current = folders.size() - 1;
    for (const char16_t* drive : {u"C:\\", u"Z:\\"})
        if (!SameName(folders.front(), drive)) folders.emplace_back(drive);
    for (const std::u16string& one : folders)
        SendDlgItemMessageW(dialog_, cmb2, CB_ADDSTRING, 0, reinterpret_cast<LPARAM>(one.c_str()));
    SendDlgItemMessageW(dialog_, cmb2, CB_SETCURSEL, current, 0);
    ListFiles();
}

void FileDialog::ListFiles() {
    SendDlgItemMessageW(dialog_, lst1, LB_RESETCONTENT, 0, 0);
    const std::vector<std::u16string> patterns =
        typed_pattern_.empty() ? wanted_.Patterns() : std::vector{typed_pattern_};
    std::vector<std::u16string> folders, files;
    WIN32_FIND_DATAW found = {};
    const HANDLE search = FindFirstFileW(PathIn(wanted_.folder, u"*").c_str(), &found);
    if (search == INVALID_HANDLE_VALUE) return;
    do {
        const std::u16string name = found.cFileName;
        if (IsShownFolder(found, wanted_.folder)) {
            folders.push_back(u"[" + name + u"]");
        } else if (!(found.dwFileAttributes & FILE_ATTRIBUTE_DIRECTORY) &&
                   std::any_of(
                       patterns.begin(), patterns.end(),
                       [&](const std::u16string& pattern) { return FitsPattern(name, pattern); })) {
            files.push_back(name);
        }
    } while (FindNextFileW(search, &found));
    FindClose(search);
    for (auto* names : {&folders, &files}) {
        std::sort(names->begin(), names->end(),
                  [](const auto& a, const auto& b) { return lstrcmpiW(a.c_str(), b.c_str()) < 0; });
        for (const std::u16string& name : *names)
            SendDlgItemMessageW(dialog_, lst1, LB_ADDSTRING, 0,
                                reinterpret_cast<LPARAM>(name.c_str()));
    }
}

std::u16string FileDialog::ListItem(LRESULT item) const {
    const LRESULT length =
        item < 0 ? LB_ERR
                 : SendDlgItemMessageW(dialog_, lst1, LB_GETTEXTLEN, static_cast<WPARAM>(item), 0);
    if (length <= 0) return {};
    std::u16string text(static_cast<size_t>(length) + 1, u'\0');
    SendDlgItemMessageW(dialog_, lst1, LB_GETTEXT, static_cast<WPARAM>(item),
                        reinterpret_cast<LPARAM>(text.data()));
    text.resize(static_cast<size_t>(length));
    return text;
}

// Puts the selected files into the field.
void FileDialog::Propose() {
    std::vector<std::u16string> names;
    const LRESULT count = SendDlgItemMessageW(dialog_, lst1, LB_GETCOUNT, 0, 0);
    for (LRESULT i = 0; i < count; ++i) {
        if (SendDlgItemMessageW(dialog_, lst1, LB_GETSEL, static_cast<WPARAM>(i), 0) <= 0) continue;
        std::u16string name = ListItem(i);
        if (!name.empty() && name.front() != u'[') names.push_back(std::move(name));
    }
    if (names.empty()) return;
    std::u16string text = names.front();
    if (names.size() > 1) {
        text.clear();
        for (const std::u16string& name : names) text += u"\"" + name + u"\" ";
    }
    SetDlgItemTextW(dialog_, edt1, text.c_str());
}

void FileDialog::OpenItem() {
    const std::u16string name = ListItem(SendDlgItemMessageW(dialog_, lst1, LB_GETCURSEL, 0, 0));
    if (name.size() > 2 && name.front() == u'[') {
        ShowFolder(PathIn(wanted_.folder, name.substr(1, name.size() - 2)));
    } else if (!name.empty()) {
        SetDlgItemTextW(dialog_, edt1, name.c_str());
        Accept();
    }
}

// Tells the user. Always false, so that callers can return it.
bool FileDialog::Refuse(const std::u16string& path, const char16_t* why) {
    MessageBoxW(dialog_, (path + u"\n" + SystemText(why)).c_str(), wanted_.title.c_str(),
                MB_OK | MB_ICONEXCLAMATION);
    return false;
}

// The full path with the extension that is added where there is none.
std::u16string FileDialog::CompletePath(const std::u16string& name) const {
    std::u16string path = PathIn(wanted_.folder, name);
    const std::u16string extension = wanted_.ExtensionToAdd();
    const bool has_one = path.find(u'.', FolderOf(path).size()) != std::u16string::npos;
    if (extension.empty() || has_one || (!wanted_.saves && IsThere(path))) return path;
    return path + u"." + extension;
}

bool FileDialog::IsAcceptable(const std::u16string& path) {
    if (wanted_.flags & OFN_NOVALIDATE) return true;
    if (wanted_.flags & (OFN_PATHMUSTEXIST | OFN_FILEMUSTEXIST) && !IsFolder(FolderOf(path)))
        return Refuse(path, u"Path does not exist.\nCheck the path and try again.");
    if (wanted_.flags & OFN_FILEMUSTEXIST && !IsThere(path))
        return Refuse(path, u"File not found.\nCheck the file name and try again.");
    if (wanted_.saves && wanted_.flags & OFN_OVERWRITEPROMPT && IsThere(path))
        return MessageBoxW(
                   dialog_,
                   (path + SystemText(u" already exists.\nDo you want to replace it?")).c_str(),
                   wanted_.title.c_str(), MB_YESNO | MB_ICONEXCLAMATION) == IDYES;
    return true;
}

// Takes what is in the field: a folder or a pattern is shown, files end the dialog.
void FileDialog::Accept() {
    const std::u16string text = TextOfControl(dialog_, edt1);
    std::vector<std::u16string> names = NamesIn(text);
    if (names.empty()) return;
    if (!SelectsMany() && names.size() > 1) {
        Refuse(text, u"The file name is not valid.");
        return;
    }
    const std::u16string first = names.front();
    if (names.size() == 1 && first.find_first_of(u"*?") != std::u16string::npos) {
        const std::u16string path = PathIn(wanted_.folder, first);
        typed_pattern_ = path.substr(path.find_last_of(u"\\/") + 1);
        ShowFolder(FolderOf(path));
        return;
    }
    if (names.size() == 1 && IsFolder(PathIn(wanted_.folder, first))) {
        SetDlgItemTextW(dialog_, edt1, u"");
        ShowFolder(PathIn(wanted_.folder, first));
        return;
    }
    std::vector<std::u16string> paths;
    for (const std::u16string& name : names) {
        if (IsInvalid(name)) {
            Refuse(name, u"The file name is not valid.");
            return;
        }
        const std::u16string path = CompletePath(name);
        if (!IsAcceptable(path)) return;
        if (!IsWindow(dialog_)) return;
        // Several files are told as one folder and their names.
        if (!paths.empty() && !SameName(FolderOf(path), FolderOf(paths.front()))) {
            Refuse(path, u"All files must be in one folder.");
            return;
        }
        paths.push_back(path);
    }
    chosen_ = std::move(paths);
    EndDialog(dialog_, IDOK);
}

LRESULT FileDialog::Answer(const std::u16string& text, WPARAM size, LPARAM buffer) const {
    if (buffer && size > 0)
        *std::copy_n(text.begin(), std::min<size_t>(text.size(), size - 1),
                     reinterpret_cast<LPWSTR>(buffer)) = u'\0';
    return static_cast<LRESULT>(text.size() + 1);
}

INT_PTR FileDialog::Handle(UINT message, WPARAM first, LPARAM second) {
    const auto answer = [&](const std::u16string& text) {
        SetWindowLongPtrW(dialog_, DWLP_MSGRESULT, Answer(text, first, second));
        return TRUE;
    };
    switch (message) {
    case WM_INITDIALOG:
        Initialise();
        return FALSE;
    case CDM_GETSPEC:
        return answer(TextOfControl(dialog_, edt1));
    case CDM_GETFILEPATH:
        return answer(PathIn(wanted_.folder, TextOfControl(dialog_, edt1)));
    case CDM_GETFOLDERPATH:
        return answer(wanted_.folder);
    case WM_COMMAND:
        break;
    default:
        return FALSE;
    }
    switch (LOWORD(first)) {
    case IDOK:
        Accept();
        return TRUE;
    case IDCANCEL:
        EndDialog(dialog_, IDCANCEL);
        return TRUE;
    case cmb1:
        if (HIWORD(first) != CBN_SELCHANGE) return FALSE;
        wanted_.filter =
            static_cast<size_t>(SendDlgItemMessageW(dialog_, cmb1, CB_GETCURSEL, 0, 0));
        typed_pattern_.clear();
        ListFiles();
        return TRUE;
    case cmb2:
        if (HIWORD(first) != CBN_SELCHANGE) return FALSE;
        ShowFolder(
            TextOfItem(dialog_, cmb2, SendDlgItemMessageW(dialog_, cmb2, CB_GETCURSEL, 0, 0)));
        return TRUE;
    case lst1:
        if (HIWORD(first) == LBN_SELCHANGE) Propose();
        if (HIWORD(first) == LBN_DBLCLK) OpenItem();
        return TRUE;
    default:
        return FALSE;
    }
}

INT_PTR CALLBACK FileDialog::Procedure(HWND dialog, UINT message, WPARAM first, LPARAM second) {
    if (message == WM_INITDIALOG) {
        SetWindowLongPtrW(dialog, DWLP_USER, second);
        reinterpret_cast<FileDialog*>(second)->dialog_ = dialog;
    }
    auto* self = reinterpret_cast<FileDialog*>(GetWindowLongPtrW(dialog, DWLP_USER));
    return self ? Guarded(INT_PTR(FALSE), [&] { return self->Handle(message, first, second); })
                : FALSE;
}

bool FileDialog::Run() {
    const INT_PTR result = ShowModal(nullptr, Template(), request_.hwndOwner, Procedure,
                                     reinterpret_cast<LPARAM>(this));
    if (result == -1) SetDialogError(CDERR_INITIALIZATION);
    if (result != IDOK || !StorePaths(request_, chosen_)) return false;
    if (!wanted_.filters.empty()) request_.nFilterIndex = static_cast<DWORD>(wanted_.filter + 1);
    request_.Flags &= ~static_cast<DWORD>(OFN_READONLY | OFN_EXTENSIONDIFFERENT);
    if (request_.nFileExtension != 0 && !wanted_.default_extension.empty() &&
        !SameName(request_.lpstrFile + request_.nFileExtension, wanted_.default_extension))
        request_.Flags |= OFN_EXTENSIONDIFFERENT;
    return true;
}

BOOL AskForFile(LPOPENFILENAMEW request, bool saves) {
    return Guarded(FALSE, [&]() -> BOOL {
        SetDialogError(0);
        if (!request || (request->lStructSize != sizeof(OPENFILENAMEW) &&
                         request->lStructSize != kOldFileRequestSize)) {
            SetDialogError(CDERR_STRUCTSIZE);
            return FALSE;
        }
        return HasUser() && FileDialog(*request, saves).Run();
    });
}

} // namespace
} // namespace win32host

extern "C" {

BOOL WINAPI GetOpenFileNameW(LPOPENFILENAMEW request) {
    return win32host::AskForFile(request, false);
}

BOOL WINAPI GetSaveFileNameW(LPOPENFILENAMEW request) {
    return win32host::AskForFile(request, true);
}

} // extern "C"
