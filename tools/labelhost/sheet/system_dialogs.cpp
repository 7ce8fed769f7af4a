#include "sheet/system_dialogs.h"

#include "sheet/host.h"
#include "sheet/items.h"
#include "sheet/script.h"
#include "sheet/windows_read.h"
#include "text.h"

#include <algorithm>

namespace {

// Controls and messages of the dialogs.
constexpr int kNameBox = 1148;   // cmb13
constexpr int kNameField = 1152; // edt1
constexpr int kFilterBox = 1136; // cmb1
constexpr int kFolderList = 14145;
constexpr int kFolderField = 14148;
constexpr UINT kGetFolderPath = WM_USER + 102;      // CDM_GETFOLDERPATH
constexpr UINT kSetFolderSelection = WM_USER + 103; // BFFM_SETSELECTIONW
constexpr int kLongestPath = 32768;

bool IsMessageButton(HWND control) {
    constexpr int kContinue = 11;
    return IsOfClass(control, "Button") && IdOf(control) >= IDOK && IdOf(control) <= kContinue;
}

bool IsIcon(HWND control) {
    return IsOfClass(control, "Static") && (StyleOf(control) & SS_TYPEMASK) == SS_ICON;
}

HWND NameControl(HWND dialog) {
    const HWND box = GetDlgItem(dialog, kNameBox);
    return box ? box : GetDlgItem(dialog, kNameField);
}

HWND FolderList(HWND dialog) {
    for (const HWND child : ChildrenOf(dialog))
        if (IdOf(child) == kFolderList ||
            IsOfClass(child, "SHBrowseForFolder ShellNameSpace Control"))
            return child;
    return nullptr;
}

HWND MessageTextControl(HWND box) {
    for (const HWND child : ChildrenOf(box))
        if (IsOfClass(child, "Static") && !IsIcon(child)) return child;
    return nullptr;
}

} // namespace

bool IsMessageBox(HWND window) {
    if (!IsOfSystem(window) || !MessageTextControl(window)) return false;
    const std::vector<HWND> children = ChildrenOf(window);
    return std::all_of(children.begin(), children.end(), [](HWND child) {
        return IsMessageButton(child) || IsOfClass(child, "Static") ||
               !(StyleOf(child) & WS_VISIBLE);
    });
}

bool IsFileDialog(HWND window) {
    return NameControl(window) && FilterBox(window) && GetDlgItem(window, IDOK);
}

bool IsFolderDialog(HWND window) {
    return FolderList(window) != nullptr;
}

bool IsFontDialog(HWND window) {
    return IsOfClass(GetDlgItem(window, kFontFamily), "ComboBox") &&
           IsOfClass(GetDlgItem(window, kFontStyle), "ComboBox") &&
           IsOfClass(GetDlgItem(window, kFontSize), "ComboBox");
}

std::string MessageText(HWND box) {
    return TextOf(MessageTextControl(box));
}

std::string MessageIcon(HWND box) {
    const struct {
        LPCWSTR number;
        const char* name;
    } icons[] = {{IDI_HAND, "error"},
                 {IDI_QUESTION, "question"},
                 {IDI_EXCLAMATION, "warning"},
                 {IDI_ASTERISK, "information"}};
    for (const HWND child : ChildrenOf(box)) {
        if (!IsIcon(child)) continue;
        const auto shown = reinterpret_cast<HICON>(SendMessageW(child, STM_GETICON, 0, 0));
        for (const auto& icon : icons)
            if (shown && shown == LoadIconW(nullptr, icon.number)) return icon.name;
    }
    return {};
}

std::vector<HWND> MessageButtons(HWND box) {
    std::vector<HWND> buttons;
    for (const HWND child : ChildrenOf(box))
        if (IsMessageButton(child) && IsWindowVisible(child)) buttons.push_back(child);
    return buttons;
}

std::string ButtonName(HWND button) {
    if (const char* name = AnswerName(IdOf(button))) return name;
    return TextOf(button);
}

std::string FolderIn(HWND dialog) {
    if (FolderList(dialog)) return TextOf(GetDlgItem(dialog, kFolderField));
    WideString path(kLongestPath, 0);
    const LRESULT length =
        SendMessageW(dialog, kGetFolderPath, path.size(), reinterpret_cast<LPARAM>(path.data()));
    return length > 0 ? FromSlot(path.data(), path.size()) : std::string();
}

std::string FileIn(HWND dialog) {
    return TextOf(NameControl(dialog));
}

HWND FilterBox(HWND dialog) {
    const HWND box = GetDlgItem(dialog, kFilterBox);
    return IsOfClass(box, "ComboBox") ? box : nullptr;
}

void EnterFiles(HWND dialog, const std::vector<std::string>& paths) {
    WideString names;
    for (const std::string& path : paths) {
        if (paths.size() == 1)
            names = ToWide(path);
        else
            names += (names.empty() ? ToWide("\"") : ToWide(" \"")) + ToWide(path) + ToWide("\"");
    }
    SendMessageW(NameControl(dialog), WM_SETTEXT, 0, reinterpret_cast<LPARAM>(names.c_str()));
}

void EnterFolder(HWND dialog, const std::string& path) {
    const WideString folder = ToWide(path);
    SendMessageW(dialog, kSetFolderSelection, TRUE, reinterpret_cast<LPARAM>(folder.c_str()));
}

int FontStylePosition(HWND dialog, bool bold, bool italic) {
    const HWND list = GetDlgItem(dialog, kFontStyle);
    for (int i = 0; i < ItemCount(list); ++i) {
        const std::string text = ItemText(list, i);
        const bool is_bold = text.find("Bold") != std::string::npos;
        const bool is_italic =
            text.find("Italic") != std::string::npos || text.find("Oblique") != std::string::npos;
        if (is_bold == bold && is_italic == italic) return i;
    }
    return -1;
}
