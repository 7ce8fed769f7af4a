// The system's dialogs for files, driven as a user does.
#include "recorder.h"
#include "user_steps.h"

#include <commdlg.h>
#include <dlgs.h>

#include <gtest/gtest.h>

namespace {

using Wide = std::basic_string<WCHAR>;

std::string Narrow(const Wide& text) {
    return {text.begin(), text.end()};
}

class FileDialogs : public testing::Test {
protected:
    FileDialogs()
        : owner({}) {
        CreateDirectoryW(TEXT("C:\\file dialogs"), nullptr);
        CreateDirectoryW(TEXT("C:\\file dialogs\\sub"), nullptr);
        for (const auto* name : {TEXT("C:\\file dialogs\\a.txt"), TEXT("C:\\file dialogs\\b.txt"),
                                 TEXT("C:\\file dialogs\\c.rtf")})
            CloseHandle(CreateFileW(name, GENERIC_WRITE, 0, nullptr, CREATE_ALWAYS, 0, nullptr));
    }

    // Types a name into the dialog's field, which is in another control on newer systems.
    static UserSteps::Step Type(const WCHAR* text) {
        return [text](HWND dialog) {
            const HWND field = GetDlgItem(dialog, edt1);
            SetWindowTextW(field ? field : GetDlgItem(dialog, cmb13), text);
        };
    }
    static UserSteps::Step Press(WPARAM id) {
        return [id](HWND dialog) { PostMessageW(dialog, WM_COMMAND, id, 0); };
    }
    // Notes the folder and the name in the dialog, or that there is a message box.
    UserSteps::Step Look() {
        return [this](HWND dialog) {
            if (GetDlgItem(dialog, 0xFFFF)) {
                seen += "box ";
                return;
            }
            WCHAR text[200] = {};
            SendMessageW(dialog, CDM_GETFOLDERPATH, 200, reinterpret_cast<LPARAM>(text));
            seen += Narrow(text) + ":";
            text[0] = 0;
            SendMessageW(dialog, CDM_GETSPEC, 200, reinterpret_cast<LPARAM>(text));
            seen += Narrow(text) + " ";
        };
    }
    struct Request {
        bool saves;
        DWORD flags;
        const WCHAR* name;
        const WCHAR* extension;
        DWORD filter;
        DWORD room = 200;
    };
    // "path filter title" with '|' for terminators, or "no ERROR".
    std::string Ask(const Request& request, std::vector<UserSteps::Step> steps) {
        WCHAR file[200] = {}, title[50] = {};
        Wide(request.name).copy(file, 199);
        OPENFILENAMEW open = {};
        open.lStructSize = sizeof(open);
        open.hwndOwner = owner.Window();
        open.lpstrFilter = TEXT("Text (*.txt)\0*.txt\0Both\0*.rtf;*.txt\0All\0*.*\0");
        open.nFilterIndex = request.filter;
        open.lpstrFile = file;
        open.nMaxFile = request.room;
        open.lpstrFileTitle = title;
        open.nMaxFileTitle = 50;
        open.lpstrInitialDir = TEXT("C:\\file dialogs");
        open.lpstrDefExt = request.extension;
        open.Flags = OFN_EXPLORER | OFN_HIDEREADONLY | OFN_NOCHANGEDIR | request.flags;
        seen.clear();
        UserSteps user(std::move(steps));
        if (!(request.saves ? GetSaveFileNameW(&open) : GetOpenFileNameW(&open)))
            return "no " + std::to_string(CommDlgExtendedError());
        std::string answer;
        for (int i = 0; file[i] || file[i + 1]; ++i)
            answer += file[i] ? static_cast<char>(file[i]) : '|';
        if (title[0]) {
            EXPECT_EQ(Narrow(file + open.nFileOffset), Narrow(title));
            EXPECT_EQ(open.nFileExtension, answer.find('.') + 1);
        }
        return answer + " " + std::to_string(open.nFilterIndex) + " " + Narrow(title);
    }

    Recorder owner;
    std::string seen;
};

TEST_F(FileDialogs, AnswerWhatTheUserTyped) {
    const auto ok = Press(IDOK), cancel = Press(IDCANCEL);
    constexpr DWORD exists = OFN_FILEMUSTEXIST | OFN_PATHMUSTEXIST;
    struct Case {
        Request request;
        std::vector<UserSteps::Step> steps;
        const char* answer;
        const char* seen = "";
    };
    const Case cases[] = {
        {{false, exists, TEXT(""), nullptr, 1},
         {Type(TEXT("a.txt")), ok},
         "C:\\file dialogs\\a.txt 1 a.txt"},
        {{false, exists, TEXT("b.txt"), nullptr, 2},
         {Look(), ok},
         "C:\\file dialogs\\b.txt 2 b.txt",
         "C:\\file dialogs:b.txt "},
        {{false, 0, TEXT(""), nullptr, 1}, {cancel}, "no 0"},
        {{false, exists, TEXT(""), nullptr, 1},
         {Type(TEXT("zz.txt")), ok, Look(), ok, Look(), cancel},
         "no 0",
         "box C:\\file dialogs:zz.txt "},
        {{false, exists, TEXT(""), nullptr, 1},
         {Type(TEXT("C:\\nowhere\\a.txt")), ok, Look(), ok, cancel},
         "no 0",
         "box "},
        {{false, 0, TEXT(""), nullptr, 1},
         {Type(TEXT("zz.txt")), ok},
         "C:\\file dialogs\\zz.txt 1 zz.txt"},
        {{false, 0, TEXT(""), nullptr, 1},
         {Type(TEXT("sub")), ok, Look(), Type(TEXT("..\\c.rtf")), ok},
         "C:\\file dialogs\\c.rtf 1 c.rtf",
         "C:\\file dialogs\\sub: "},
        {{false, 0, TEXT(""), nullptr, 1}, {ok, Look(), cancel}, "no 0", "C:\\file dialogs: "},
        {{false, 0, TEXT(""), nullptr, 1, 5}, {Type(TEXT("a.txt")), ok}, "no 12291"},
        {{false, exists | OFN_ALLOWMULTISELECT, TEXT(""), nullptr, 1},
         {Type(TEXT("\"a.txt\" \"b.txt\"")), ok},
         "C:\\file dialogs|a.txt|b.txt 1 "},
        {{false, exists | OFN_ALLOWMULTISELECT, TEXT(""), nullptr, 1},
         {Type(TEXT("a.txt")), ok},
         "C:\\file dialogs\\a.txt 1 a.txt"},
        {{true, 0, TEXT(""), TEXT("txt"), 1},
         {Type(TEXT("new")), ok},
         "C:\\file dialogs\\new.txt 1 new.txt"},
        {{true, 0, TEXT(""), TEXT("txt"), 2},
         {Type(TEXT("new")), ok},
         "C:\\file dialogs\\new.rtf 2 new.rtf"},
        {{true, 0, TEXT(""), TEXT("txt"), 3},
         {Type(TEXT("new")), ok},
         "C:\\file dialogs\\new.txt 3 new.txt"},
        {{true, 0, TEXT(""), nullptr, 1}, {Type(TEXT("new")), ok}, "C:\\file dialogs\\new 1 new"},
        {{true, 0, TEXT(""), TEXT("txt"), 1},
         {Type(TEXT("new.zip")), ok},
         "C:\\file dialogs\\new.zip 1 new.zip"},
        {{true, OFN_OVERWRITEPROMPT, TEXT("a.txt"), TEXT("txt"), 1},
         {ok, Look(), Press(IDNO), Look(), ok, Press(IDYES)},
         "C:\\file dialogs\\a.txt 1 a.txt",
         "box C:\\file dialogs:a.txt "},
    };
    for (size_t i = 0; i < std::size(cases); ++i) {
        EXPECT_EQ(Ask(cases[i].request, cases[i].steps), cases[i].answer) << i;
        EXPECT_EQ(seen, cases[i].seen) << i;
    }
}

} // namespace
