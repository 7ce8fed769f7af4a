// The lists of the system's dialogs, which other systems arrange otherwise; folders; fonts with a
// hook and a template of the caller's.
#include "dialog_builder.h"
#include "recorder.h"
#include "user_steps.h"

#include <commdlg.h>
#include <dlgs.h>
#include <shellapi.h>
#include <shlobj.h>
#include <win32host/control.h>
#include <win32host/user.h>

#include <gtest/gtest.h>

#include <filesystem>

#include <unistd.h>

namespace {

UserSteps::Step Press(WPARAM id) {
    return [id](HWND dialog) { PostMessageW(dialog, WM_COMMAND, id, 0); };
}

// Selects an item of a list as a user does.
UserSteps::Step Choose(int id, UINT set, WPARAM item, WORD code) {
    return [=](HWND dialog) {
        SendDlgItemMessageW(dialog, id, set, item, 0);
        SendMessageW(dialog, WM_COMMAND, static_cast<WPARAM>(MAKELONG(id, code)),
                     reinterpret_cast<LPARAM>(GetDlgItem(dialog, id)));
    };
}

std::string ItemsOf(HWND dialog, int id, UINT count, UINT text) {
    std::string items;
    for (LRESULT i = 0; i < SendDlgItemMessageW(dialog, id, count, 0, 0); ++i) {
        WCHAR item[100] = {};
        SendDlgItemMessageW(dialog, id, text, static_cast<WPARAM>(i),
                            reinterpret_cast<LPARAM>(item));
        const std::u16string wide = item;
        items += std::string(wide.begin(), wide.end()) + ";";
    }
    return items;
}

class SystemDialogs : public testing::Test {
protected:
    SystemDialogs() {
        root = std::filesystem::temp_directory_path() / ("dialogs" + std::to_string(getpid()));
        before = win32host::Root();
        win32host::SetRoot(root);
        for (const auto* folder : {u"C:\\here", u"C:\\here\\sub"})
            CreateDirectoryW(folder, nullptr);
        for (const auto* name : {u"C:\\here\\a.txt", u"C:\\here\\B.TXT", u"C:\\here\\c.rtf"})
            CloseHandle(CreateFileW(name, GENERIC_WRITE, 0, nullptr, CREATE_ALWAYS, 0, nullptr));
    }
    ~SystemDialogs() override {
        EXPECT_EQ(win32host::CountWindows().windows, 0u);
        win32host::SetRoot(before);
        std::filesystem::remove_all(root);
    }

    std::filesystem::path root;
    std::string before;
};

TEST_F(SystemDialogs, ListFilesThatFitTheFilter) {
    WCHAR file[200] = {};
    OPENFILENAMEW open = {};
    open.lStructSize = sizeof(open);
    open.lpstrFilter = u"Text\0*.txt\0Both\0*.rtf; *.txt\0";
    open.lpstrFile = file;
    open.nMaxFile = 200;
    open.lpstrInitialDir = u"C:\\here";
    open.Flags = OFN_ALLOWMULTISELECT;
    std::vector<std::string> lists;
    const auto look = [&](HWND dialog) {
        lists.push_back(ItemsOf(dialog, lst1, LB_GETCOUNT, LB_GETTEXT));
    };
    {
        UserSteps user({look, Choose(cmb1, CB_SETCURSEL, 1, CBN_SELCHANGE), look,
                        [](HWND dialog) { SetDlgItemTextW(dialog, edt1, u"b*"); }, Press(IDOK),
                        look, Choose(cmb1, CB_SETCURSEL, 1, CBN_SELCHANGE),
                        [](HWND dialog) {
                            EXPECT_EQ(ItemsOf(dialog, cmb2, CB_GETCOUNT, CB_GETLBTEXT),
                                      "C:\\;C:\\here;Z:\\;");
                            SendDlgItemMessageW(dialog, lst1, LB_SETSEL, TRUE, 2);
                            SendDlgItemMessageW(dialog, lst1, LB_SETSEL, TRUE, 4);
                        },
                        Choose(lst1, LB_SETSEL, FALSE, LBN_SELCHANGE), Press(IDOK)});
        EXPECT_TRUE(GetOpenFileNameW(&open));
    }
    const std::vector<std::string> expected = {
        "[..];[sub];a.txt;B.TXT;", "[..];[sub];a.txt;B.TXT;c.rtf;", "[..];[sub];B.TXT;"};
    EXPECT_EQ(lists, expected);
    EXPECT_EQ(open.nFilterIndex, 2u);
    EXPECT_EQ(std::u16string(file, 21), std::u16string(u"C:\\here\0a.txt\0c.rtf\0", 21));
    open.lStructSize = 5;
    EXPECT_FALSE(GetOpenFileNameW(&open));
    EXPECT_EQ(CommDlgExtendedError(), DWORD{CDERR_STRUCTSIZE});
    open.lStructSize = sizeof(open);
    EXPECT_FALSE(GetOpenFileNameW(&open)) << "nobody is there";
    EXPECT_EQ(CommDlgExtendedError(), 0u);
}

std::vector<UINT> g_folder_calls;

TEST_F(SystemDialogs, ChooseFolders) {
    WCHAR name[MAX_PATH] = {}, path[MAX_PATH] = {};
    BROWSEINFOW browse = {};
    browse.pszDisplayName = name;
    browse.lpszTitle = u"Where to?";
    browse.ulFlags = BIF_RETURNONLYFSDIRS;
    browse.lpfn = [](HWND dialog, UINT message, LPARAM, LPARAM folder) {
        g_folder_calls.push_back(message);
        if (message == BFFM_INITIALIZED) SendMessageW(dialog, BFFM_SETSELECTIONW, TRUE, folder);
        return 0;
    };
    browse.lParam = reinterpret_cast<LPARAM>(u"C:\\here");
    PIDLIST_ABSOLUTE folder = nullptr;
    {
        UserSteps user({[](HWND dialog) {
                            EXPECT_EQ(NarrowText(GetDlgItem(dialog, 0x3744)), "C:\\here");
                            EXPECT_EQ(NarrowText(GetDlgItem(dialog, 0x3742)), "Where to?");
                        },
                        Choose(0x3741, LB_SETCURSEL, 1, LBN_DBLCLK), Press(IDOK)});
        folder = SHBrowseForFolderW(&browse);
    }
    EXPECT_TRUE(SHGetPathFromIDListW(folder, path));
    EXPECT_EQ(std::u16string(path), u"C:\\here\\sub");
    EXPECT_EQ(std::u16string(name), u"sub");
    ILFree(folder);
    EXPECT_EQ(g_folder_calls, std::vector<UINT>({BFFM_SELCHANGED, BFFM_INITIALIZED, BFFM_SELCHANGED,
                                                 BFFM_SELCHANGED}));
    UserSteps user({Press(IDCANCEL)});
    browse.lpfn = nullptr;
    EXPECT_EQ(SHBrowseForFolderW(&browse), nullptr);
}

struct HookCalls {
    int initialised = 0;
    int families = 0;
    bool keeps_open = false;
};
HookCalls g_hook;

UINT_PTR CALLBACK FontHook(HWND dialog, UINT message, WPARAM first, LPARAM second) {
    if (message == WM_INITDIALOG) {
        EXPECT_EQ(reinterpret_cast<CHOOSEFONTW*>(second)->lCustData, 7);
        SetDlgItemTextW(dialog, 900, u"own");
        ++g_hook.initialised;
    }
    if (message == WM_COMMAND && first == MAKEWPARAM(cmb1, CBN_SELCHANGE)) ++g_hook.families;
    return message == WM_COMMAND && LOWORD(first) == IDOK && g_hook.keeps_open;
}

TEST_F(SystemDialogs, ChooseFontsInTheCallersTemplate) {
    g_hook = {};
    DialogBuilder builder(true, WS_POPUP | WS_VISIBLE | WS_CAPTION, 0, 0, 300, 200);
    const DWORD list = CBS_HASSTRINGS | WS_VSCROLL | WS_TABSTOP;
    builder.Add(u"COMBOBOX", u"", cmb1, CBS_SIMPLE | CBS_SORT | list, 0, 0, 90, 80);
    builder.Add(u"COMBOBOX", u"", cmb2, CBS_SIMPLE | CBS_OWNERDRAWFIXED | list, 100, 0, 60, 80);
    builder.Add(u"COMBOBOX", u"", cmb3, CBS_SIMPLE | list, 170, 0, 60, 80);
    builder.Add(u"COMBOBOX", u"", cmb5, CBS_DROPDOWNLIST | list, 170, 100, 60, 80);
    builder.Add(u"STATIC", u"", stc5, 0, 0, 100, 60, 20);
    builder.Add(u"EDIT", u"", 900, 0, 0, 130, 60, 14);
    builder.Add(u"BUTTON", u"OK", IDOK, BS_DEFPUSHBUTTON, 0, 150, 50, 14);
    builder.Add(u"BUTTON", u"Help", pshHelp, 0, 60, 150, 50, 14);

    Recorder owner({});
    const UINT help = RegisterWindowMessageW(HELPMSGSTRINGW);
    owner.handler = [&](UINT message, WPARAM, LPARAM, LRESULT&) {
        if (message == help) owner.Note("help");
        return false;
    };
    LOGFONTW font = {};
    CHOOSEFONTW choose = {};
    choose.lStructSize = sizeof(choose);
    choose.hwndOwner = owner.Window();
    choose.lpLogFont = &font;
    choose.lCustData = 7;
    choose.lpfnHook = FontHook;
    choose.hInstance =
        reinterpret_cast<HINSTANCE>(const_cast<void*>(static_cast<const void*>(builder.Get())));
    choose.nSizeMin = 9;
    choose.nSizeMax = 24;
    choose.Flags = CF_SCREENFONTS | CF_TTONLY | CF_NOSIMULATIONS | CF_FORCEFONTEXIST |
                   CF_LIMITSIZE | CF_SHOWHELP | CF_ENABLEHOOK | CF_ENABLETEMPLATEHANDLE;
    std::string sizes, family, own, box;
    {
        UserSteps user({[&](HWND dialog) {
                            sizes = ItemsOf(dialog, cmb3, CB_GETCOUNT, CB_GETLBTEXT);
                            own = NarrowText(GetDlgItem(dialog, 900));
                        },
                        Press(pshHelp), Press(IDOK),
                        [&](HWND dialog) { box = NarrowText(GetDlgItem(dialog, 0xFFFF)); },
                        Press(IDOK), Choose(cmb1, CB_SETCURSEL, 0, CBN_SELCHANGE),
                        [&](HWND dialog) { family = NarrowText(GetDlgItem(dialog, cmb1)); },
                        [](HWND dialog) { SetDlgItemTextW(dialog, cmb3, u"99"); }, Press(IDOK),
                        Press(IDOK), [](HWND dialog) { SetDlgItemTextW(dialog, cmb3, u"12.5"); },
                        [](HWND) { g_hook.keeps_open = true; }, Press(IDOK),
                        [](HWND) { g_hook.keeps_open = false; }, Press(IDOK)});
        EXPECT_TRUE(ChooseFontW(&choose));
    }
    EXPECT_EQ(sizes, "9;10;11;12;14;16;18;20;22;24;");
    EXPECT_EQ(own, "own");
    EXPECT_EQ(owner.Take(), "help");
    EXPECT_EQ(box, "There is no font with that name.\nChoose a font from the list of fonts.");
    EXPECT_EQ(g_hook.initialised, 1);
    EXPECT_EQ(g_hook.families, 1);
    const std::u16string face = font.lfFaceName;
    EXPECT_EQ(std::string(face.begin(), face.end()), family);
    EXPECT_FALSE(face.empty());
    EXPECT_EQ(choose.iPointSize, 125);
    EXPECT_EQ(font.lfHeight, -17);
    EXPECT_TRUE(choose.nFontType & SCREEN_FONTTYPE);

    choose.Flags = CF_SCREENFONTS | CF_INITTOLOGFONTSTRUCT;
    {
        UserSteps user({[&](HWND dialog) {
                            EXPECT_EQ(NarrowText(GetDlgItem(dialog, cmb1)), family);
                            EXPECT_EQ(NarrowText(GetDlgItem(dialog, cmb3)), "13");
                            EXPECT_FALSE(IsWindowVisible(GetDlgItem(dialog, pshHelp)));
                        },
                        Press(IDOK)});
        EXPECT_TRUE(ChooseFontW(&choose)) << "in the system's own template";
    }
    EXPECT_EQ(choose.iPointSize, 130);
    choose.nSizeMax = 2;
    choose.Flags |= CF_LIMITSIZE;
    EXPECT_FALSE(ChooseFontW(&choose));
    EXPECT_EQ(CommDlgExtendedError(), DWORD{CFERR_MAXLESSTHANMIN});
}

TEST_F(SystemDialogs, WhatIsOpenedIsNoted) {
    win32host::TakeSystemActs();
    HWND(WINAPI * help)
    (HWND, LPCWSTR, UINT, DWORD_PTR) = reinterpret_cast<decltype(help)>(
        reinterpret_cast<void (*)()>(GetProcAddress(LoadLibraryW(u"hhctrl.ocx"), "HtmlHelpW")));
    ASSERT_NE(help, nullptr);
    help(nullptr, u"C:\\here\\x.chm::/base/A.html", 0, 0);
    const auto opened = [](LPCWSTR file, LPCWSTR parameters = nullptr) {
        return reinterpret_cast<UINT_PTR>(
            ShellExecuteW(nullptr, u"open", file, parameters, nullptr, 1));
    };
    EXPECT_GT(opened(u"C:\\here\\a.txt"), 32u);
    EXPECT_GT(opened(u"C:\\here"), 32u);
    EXPECT_GT(opened(u"NOTEPAD.EXE", u"C:\\x"), 32u);
    EXPECT_EQ(opened(u"C:\\here\\none.txt"), UINT_PTR(SE_ERR_FNF));
    WinExec("RunDLL32.EXE shell32.dll,Control_RunDLL intl.cpl,,0", 1);
    std::string acts;
    for (const auto& act : win32host::TakeSystemActs())
        acts += std::to_string(act.kind) + " " + std::string(act.what.begin(), act.what.end()) +
                "|" + std::string(act.parameters.begin(), act.parameters.end()) + "\n";
    EXPECT_EQ(acts, "2 C:\\here\\x.chm|/base/A.html\n"
                    "0 C:\\here\\a.txt|\n"
                    "3 C:\\here|\n"
                    "1 NOTEPAD.EXE|C:\\x\n"
                    "1 RunDLL32.EXE|shell32.dll,Control_RunDLL intl.cpl,,0\n");
}

} // namespace
