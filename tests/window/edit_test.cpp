// Edit fields: what they tell their parent, and their text after what people and programs do.
#include "parent_window.h"

#include <gtest/gtest.h>

namespace {

const std::map<int, const char*> kEditCodes = {
    {EN_UPDATE, "update"}, {EN_CHANGE, "change"},  {EN_SETFOCUS, "focused"}, {EN_KILLFOCUS, "left"},
    {EN_MAXTEXT, "full"},  {EN_ERRSPACE, "error"}, {EN_HSCROLL, "hscroll"},
};
constexpr DWORD kLine = ES_AUTOHSCROLL;
constexpr DWORD kLines = ES_MULTILINE | ES_AUTOVSCROLL | ES_AUTOHSCROLL | ES_WANTRETURN;

const std::map<std::string, UINT> kEditActs = {{"cut", WM_CUT},
                                               {"copy", WM_COPY},
                                               {"paste", WM_PASTE},
                                               {"clear", WM_CLEAR},
                                               {"undo", EM_UNDO},
                                               {"set", WM_SETTEXT},
                                               {"replace", EM_REPLACESEL},
                                               {"sel", EM_SETSEL},
                                               {"limit", EM_SETLIMITTEXT},
                                               {"unlock", EM_SETREADONLY}};

std::string SelectionOf(HWND edit) {
    DWORD from = 0;
    DWORD to = 0;
    SendMessageW(edit, EM_GETSEL, reinterpret_cast<WPARAM>(&from), reinterpret_cast<LPARAM>(&to));
    return std::to_string(from) + "-" + std::to_string(to);
}

TEST(EditFields, TellWhatHappensAndKeepTheText) {
    const std::string changed = "update change";
    const std::string twice = changed + " " + changed;
    const std::string any = "any";
    const struct {
        DWORD style;
        const char* start;
        const char* acts;
        std::string told;
        const char* text;
        const char* selection;
    } cases[] = {
        {kLine, "abc", "", "", "abc", "0-0"},
        {kLine, "abc", "set xy", changed, "xy", "0-0"},
        {kLine, "abc", "set", changed, "", "0-0"},
        {kLines, "abc", "set xy", "", "xy", "0-0"},
        {kLine, "abc", "focus, type x", "focused " + changed, "xabc", "1-1"},
        {kLine, "abc", "sel 1 3, type xy", twice, "axy", "3-3"},
        {kLine, "abc", "focus, leave", "focused left", "abc", "0-0"},
        {kLine, "abcd", "sel 2 2, type \b, delete", twice, "ad", "1-1"},
        {kLine, "ab", "type \b", "", "ab", "0-0"},
        {kLine, "ab", "sel 2 2, delete", "", "ab", "2-2"},
        {kLine, "abcd", "sel 1 3, delete", changed, "ad", "1-1"},
        {kLine, "ab", "type \x1b\n\r\t\x02", "", "ab", "0-0"},
        // Limits hold for people and for EM_REPLACESEL, not for texts that are set.
        {kLine, "ab", "limit 3, sel 2 2, type xy", changed + " full " + changed, "abx", "3-3"},
        {kLine, "abc", "limit 3, sel 0 1, type xy", changed + " full " + changed, "xbc", "1-1"},
        {kLine, "ab", "limit 3, set long text", changed, "long text", "0-0"},
        {kLine, "abcdef", "limit 3, type x", "full " + changed, "abcdef", "0-0"},
        {kLine, "ab", "limit 4, replace xyz", "full " + changed, "xyab", "2-2"},
        {0, "", "type WWWWWWWWWWWWWWWWWWWW, set ok", any, "ok", "0-0"},
        {kLine, "abcd", "sel 1 3, replace xyz", changed, "axyzd", "4-4"},
        {kLine, "abcd", "replace", "", "abcd", "0-0"},
        {kLine | ES_READONLY, "ab", "type x\b, delete, cut, clear", "", "ab", "0-0"},
        {kLine | ES_READONLY, "ab", "replace x", changed, "xab", "1-1"},
        {kLine | ES_READONLY, "ab", "unlock, type x", changed, "xab", "1-1"},
        {kLine | ES_NUMBER, "", "type 1a2-.", twice, "12", "2-2"},
        {kLine | ES_NUMBER, "", "set a", changed, "a", "0-0"},
        {kLine | ES_UPPERCASE, "a\xe9", "type b", changed, "BA\xc9", "1-1"},
        {kLine | ES_LOWERCASE, "A\xc9", "type B", changed, "ba\xe9", "1-1"},
        {kLine, "abcd", "sel 1 3, cut, sel 0 0, paste", twice, "bcad", "2-2"},
        {kLine, "abcd", "sel 1 3, type \x03, sel 4 4, type \x16", changed, "abcdbc", "6-6"},
        {kLine, "abcd", "cut, clear", "", "abcd", "0-0"},
        {kLine, "abcd", "sel 1 3, type x, undo", any, "abcd", "1-3"},
        {kLine, "abcd", "sel 1 3, type x, undo, undo", any, "axd", "1-2"},
        {kLine, "ab", "sel 2 2, type xyz, undo", any, "ab", "2-2"},
        {kLine, "abcd", "sel 1 3, delete, undo", any, "abcd", "1-3"},
        {kLine, "abcd", "sel 0 -1", "", "abcd", "0-4"},
        {kLine, "abcd", "sel 0 2, sel -1 0", "", "abcd", "2-2"},
        {kLine, "abcd", "sel 99 1", "", "abcd", "1-4"},
        {kLines, "", "type a\rb", twice + " " + changed, "a\r\nb", "4-4"},
        {kLines, "a\r\nb\r\nc", "sel 3 3, type \b, sel 2 2, delete", twice, "abc", "2-2"},
        {kLine, "a\r\nb", "", "", "a\r\nb", "0-0"},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(std::string(c.start) + ": " + c.acts);
        ParentWindow parent(kEditCodes);
        const HWND edit = parent.Make(TEXT("Edit"), Wide(c.start).c_str(), c.style, 1, 10, 10, 100,
                                      c.style & ES_MULTILINE ? 100 : 25);
        Perform(edit, c.acts, kEditActs);
        const std::string told = parent.Take();
        if (c.told != any) {
            EXPECT_EQ(told, c.told);
        }
        EXPECT_EQ(TextOf(edit), Wide(c.text));
        EXPECT_EQ(SelectionOf(edit), c.selection);
    }
}

TEST(EditFields, MoveTheCaretByKeys) {
    const struct {
        DWORD style;
        const char* text;
        const char* acts;
        const char* selection;
    } cases[] = {
        {kLine, "abc", "sel 2 2, left", "1-1"},
        {kLine, "abc", "sel 2 2, right", "3-3"},
        {kLine, "abc", "sel 3 3, right", "3-3"},
        {kLine, "abcd", "sel 1 3, left", "2-2"},
        {kLine, "abc", "sel 2 2, home", "0-0"},
        {kLine, "abc", "sel 1 1, end", "3-3"},
        {kLine, "abc", "sel 2 2, left shift", "1-2"},
        {kLine, "abcd", "sel 1 3, left shift", "1-2"},
        {kLine, "abc", "sel 2 2, home shift", "0-2"},
        {kLine, "abc", "sel 2 2, end shift", "2-3"},
        {kLine, "ab  cd ef", "right control", "4-4"},
        {kLine, "ab  cd ef", "sel 6 6, left control", "4-4"},
        {kLine, "ab  cd ef", "sel 4 4, left control", "0-0"},
        {kLine, "ab cd", "sel 1 1, right shift control", "1-3"},
        {kLine, "abc", "sel 2 2, up", "1-1"},
        {kLine, "abc", "sel 1 1, down", "2-2"},
        {kLines, "aaaa\r\nbb\r\ncccc", "sel 12 12, up", "8-8"},
        {kLines, "aaaa\r\nbb\r\ncccc", "sel 3 3, down", "8-8"},
        {kLines, "a\r\nb", "sel 1 1, right", "3-3"},
        {kLines, "a\r\nb", "sel 3 3, left", "1-1"},
        {kLines, "a\r\nbbb", "sel 5 5, home", "3-3"},
        {kLines, "aaa\r\nbbb", "sel 1 1, end", "3-3"},
        {kLines, "a\r\nbbb", "sel 5 5, home control", "0-0"},
        {kLines, "a\r\nbbb", "end control", "6-6"},
        {kLines, "a\r\nbbb", "down shift", "0-3"},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(std::string(c.text) + ": " + c.acts);
        ParentWindow parent(kEditCodes);
        const HWND edit =
            parent.Make(TEXT("Edit"), Wide(c.text).c_str(), c.style, 1, 10, 10, 200, 80);
        SetFocus(edit);
        Perform(edit, c.acts, kEditActs);
        EXPECT_EQ(SelectionOf(edit), c.selection);
    }
}

TEST(EditFields, KnowTheirLines) {
    ParentWindow parent(kEditCodes);
    const HWND edit = parent.Make(TEXT("Edit"), TEXT("one\r\n\r\nthree"), kLines);
    const auto ask = [&](UINT message, int first = 0) {
        return SendMessageW(edit, message, static_cast<WPARAM>(static_cast<INT_PTR>(first)), 0);
    };
    EXPECT_EQ(ask(EM_GETLINECOUNT), 3);
    const struct {
        int line;
        LRESULT start;
        LPCWSTR text;
    } lines[] = {{0, 0, TEXT("one")}, {1, 5, TEXT("")}, {2, 7, TEXT("three")}};
    for (const auto& c : lines) {
        WCHAR buffer[16] = {};
        buffer[0] = 15;
        EXPECT_EQ(ask(EM_LINEINDEX, c.line), c.start);
        EXPECT_EQ(ask(EM_LINEFROMCHAR, static_cast<int>(c.start)), c.line);
        EXPECT_EQ(static_cast<size_t>(ask(EM_LINELENGTH, static_cast<int>(c.start))),
                  Text(c.text).size());
        EXPECT_EQ(static_cast<size_t>(SendMessageW(edit, EM_GETLINE, static_cast<WPARAM>(c.line),
                                                   reinterpret_cast<LPARAM>(buffer))),
                  Text(c.text).size());
        if (*c.text) {
            EXPECT_EQ(Text(buffer), c.text);
        }
    }
    EXPECT_EQ(ask(EM_LINEINDEX, 3), -1);
    EXPECT_EQ(ask(EM_LINEFROMCHAR, 99), 2);
    EXPECT_EQ(ask(EM_GETFIRSTVISIBLELINE), 0);
    EXPECT_TRUE(SendMessageW(edit, EM_LINESCROLL, 0, 1));
    EXPECT_EQ(ask(EM_GETFIRSTVISIBLELINE), 1);
    ask(EM_SCROLLCARET);
    EXPECT_EQ(ask(EM_GETFIRSTVISIBLELINE), 0);
    SendMessageW(edit, EM_SETSEL, 8, 10);
    EXPECT_EQ(ask(EM_LINEINDEX, -1), 7);
    EXPECT_EQ(ask(EM_LINEFROMCHAR, -1), 2);
    EXPECT_EQ(ask(EM_LINELENGTH, -1), 3); // what of the line is not selected
    // Without a horizontal scroll, lines end where the field does.
    const HWND wrapped =
        parent.Make(TEXT("Edit"), TEXT("some words that do not fit into a line"), ES_MULTILINE);
    EXPECT_GT(SendMessageW(wrapped, EM_GETLINECOUNT, 0, 0), 1);
    EXPECT_EQ(SendMessageW(wrapped, EM_LINEFROMCHAR, 37, 0),
              SendMessageW(wrapped, EM_GETLINECOUNT, 0, 0) - 1);
    const HWND single = parent.Make(TEXT("Edit"), TEXT("one"), kLine);
    EXPECT_EQ(SendMessageW(single, EM_GETLINECOUNT, 0, 0), 1);
    EXPECT_EQ(SendMessageW(single, EM_LINELENGTH, 0, 0), 3);
}

TEST(EditFields, KeepWhatProgramsSet) {
    ParentWindow parent(kEditCodes);
    const HWND edit = parent.Make(TEXT("Edit"), TEXT(""), kLine);
    const auto ask = [&](UINT message, WPARAM first = 0, LPARAM second = 0) {
        return SendMessageW(edit, message, first, second);
    };
    EXPECT_EQ(ask(EM_GETLIMITTEXT), 30000);
    ask(EM_SETLIMITTEXT, 5);
    EXPECT_EQ(ask(EM_GETLIMITTEXT), 5);
    ask(EM_SETLIMITTEXT, 0);
    EXPECT_EQ(ask(EM_GETLIMITTEXT), 0x7FFFFFFE);
    EXPECT_FALSE(ask(EM_GETMODIFY));
    ask(WM_CHAR, 'x');
    EXPECT_TRUE(ask(EM_GETMODIFY));
    EXPECT_TRUE(ask(EM_CANUNDO));
    ask(EM_EMPTYUNDOBUFFER);
    EXPECT_FALSE(ask(EM_CANUNDO));
    ask(EM_SETMODIFY, FALSE);
    EXPECT_FALSE(ask(EM_GETMODIFY));
    ask(EM_SETMARGINS, EC_LEFTMARGIN | EC_RIGHTMARGIN, MAKELONG(3, 4));
    EXPECT_EQ(ask(EM_GETMARGINS), MAKELONG(3, 4));
    EXPECT_EQ(ask(EM_GETPASSWORDCHAR), 0);
    EXPECT_TRUE(ask(EM_SETREADONLY, TRUE));
    EXPECT_TRUE(GetWindowLongPtrW(edit, GWL_STYLE) & ES_READONLY);
    const struct {
        DWORD style;
        LRESULT code;
    } codes[] = {{kLine, DLGC_HASSETSEL | DLGC_WANTCHARS | DLGC_WANTARROWS},
                 {kLine | ES_READONLY, DLGC_HASSETSEL | DLGC_WANTCHARS | DLGC_WANTARROWS},
                 {kLines, DLGC_HASSETSEL | DLGC_WANTCHARS | DLGC_WANTARROWS | DLGC_WANTALLKEYS}};
    for (const auto& c : codes)
        EXPECT_EQ(SendMessageW(parent.Make(TEXT("Edit"), TEXT(""), c.style), WM_GETDLGCODE, 0, 0),
                  c.code);
}

TEST(EditFields, HoldLongTexts) {
    ParentWindow parent(kEditCodes);
    Text text;
    for (int line = 0; line < 4000; ++line) text += TEXT("twenty characters..\r\n");
    for (DWORD style : {kLines, static_cast<DWORD>(ES_MULTILINE)}) {
        const HWND edit = parent.Make(TEXT("Edit"), TEXT(""), style, 1, 0, 0, 300, 100);
        SetWindowTextW(edit, text.c_str());
        EXPECT_EQ(TextOf(edit), text);
        EXPECT_EQ(SendMessageW(edit, EM_GETLINECOUNT, 0, 0), 4001);
        EXPECT_EQ(SendMessageW(edit, EM_LINEINDEX, 3999, 0), 3999 * 21);
    }
}

TEST(EditFields, MarkTextByMouse) {
    ParentWindow parent(kEditCodes);
    const HWND edit = parent.Make(TEXT("Edit"), TEXT("some words here"), kLine);
    const auto x_of = [&](int at) {
        return static_cast<int16_t>(
            LOWORD(SendMessageW(edit, EM_POSFROMCHAR, static_cast<WPARAM>(at), 0)));
    };
    const auto at = [&](int position) { return std::to_string(x_of(position)) + " 5"; };
    Perform(edit, "press " + at(7) + ", release " + at(7));
    EXPECT_EQ(SelectionOf(edit), "7-7");
    EXPECT_EQ(GetFocus(), edit);
    Perform(edit, "press " + at(2) + ", move " + at(9) + ", release " + at(9));
    EXPECT_EQ(SelectionOf(edit), "2-9");
    Perform(edit, "double " + at(7));
    EXPECT_EQ(SelectionOf(edit), "5-11");
    EXPECT_EQ(LOWORD(SendMessageW(edit, EM_CHARFROMPOS, 0, MAKELONG(x_of(4), 5))), 4);
}

} // namespace
