// Rich edit controls.
#include "recorder.h"

#include <richedit.h>

#include <gtest/gtest.h>

namespace {

using WideText = std::basic_string<WCHAR>;

// Line breaks as "/" and returns without one as "\".
std::string Plain(const WideText& text) {
    std::string plain;
    for (size_t i = 0; i < text.size(); ++i) {
        if (text[i] != '\r') {
            plain += static_cast<char>(text[i]);
        } else if (i + 1 < text.size() && text[i + 1] == '\n') {
            plain += '/';
            ++i;
        } else {
            plain += '\\';
        }
    }
    return plain;
}

class RichEditTest : public testing::Test {
protected:
    RichEditTest()
        : parent({}) {
        LoadLibraryW(TEXT("riched20.dll"));
        LOGFONTW description = {};
        description.lfHeight = -11;
        description.lfWeight = FW_NORMAL;
        description.lfCharSet = DEFAULT_CHARSET;
        WideText(TEXT("Tahoma")).copy(description.lfFaceName, LF_FACESIZE - 1);
        font = CreateFontIndirectW(&description);
        parent.handler = [this](UINT message, WPARAM first, LPARAM second, LRESULT& answer) {
            return Hear(message, first, second, answer);
        };
        Make(ES_MULTILINE | ES_WANTRETURN | ES_AUTOVSCROLL | WS_VSCROLL);
    }
    ~RichEditTest() override {
        // The parent's procedure ends with this object.
        DestroyWindow(edit);
        parent.handler = nullptr;
        DeleteObject(font);
    }

    void Make(DWORD style) {
        if (edit) DestroyWindow(edit);
        edit = CreateWindowExW(0, TEXT("RichEdit20W"), TEXT(""), WS_CHILD | WS_VISIBLE | style, 0,
                               0, 200, 100, parent.Window(), reinterpret_cast<HMENU>(7), nullptr,
                               nullptr);
        ASSERT_NE(edit, nullptr);
        Send(WM_SETFONT, reinterpret_cast<WPARAM>(font));
        parent.Take();
    }

    bool Hear(UINT message, WPARAM first, LPARAM second, LRESULT&) {
        if (message == WM_COMMAND && HIWORD(first) == EN_CHANGE) parent.Note("change");
        if (message != WM_NOTIFY) return false;
        const auto* header = reinterpret_cast<const NMHDR*>(second);
        if (header->code == EN_SELCHANGE) {
            const auto* change = reinterpret_cast<const SELCHANGE*>(second);
            parent.Note("select:" + std::to_string(change->chrg.cpMin) + "-" +
                        std::to_string(change->chrg.cpMax));
        }
        return false;
    }

    LRESULT Send(UINT message, WPARAM first = 0, LPARAM second = 0) const {
        return SendMessageW(edit, message, first, second);
    }
    void Select(LONG from, LONG to) const {
        CHARRANGE range = {from, to};
        Send(EM_EXSETSEL, 0, reinterpret_cast<LPARAM>(&range));
    }
    std::string Selection() const {
        CHARRANGE range = {};
        Send(EM_EXGETSEL, 0, reinterpret_cast<LPARAM>(&range));
        return std::to_string(range.cpMin) + "-" + std::to_string(range.cpMax);
    }
    std::string Text() const {
        WCHAR text[200];
        const int length = GetWindowTextW(edit, text, 200);
        EXPECT_EQ(GetWindowTextLengthW(edit), length);
        return Plain(WideText(text, static_cast<size_t>(length)));
    }
    // The text with the selection: "a[b]c".
    std::string Shown() const {
        CHARRANGE range = {};
        Send(EM_EXGETSEL, 0, reinterpret_cast<LPARAM>(&range));
        WCHAR text[200] = {};
        TEXTRANGEW all = {{0, -1}, text};
        Send(EM_GETTEXTRANGE, 0, reinterpret_cast<LPARAM>(&all));
        std::string shown = Plain(text);
        const auto length = static_cast<LONG>(shown.size());
        shown.insert(static_cast<size_t>(std::min(range.cpMax, length)), "]");
        shown.insert(static_cast<size_t>(std::min(range.cpMin, length)), "[");
        return shown;
    }
    void SetText(const WCHAR* text) const { SetWindowTextW(edit, text); }
    void Type(const char* text) const {
        for (; *text; ++text) Send(WM_CHAR, static_cast<WPARAM>(*text), 1);
    }
    void Press(WPARAM key) const { Send(WM_KEYDOWN, key, 1); }
    void Format(DWORD mask, DWORD effects, COLORREF color = 0, WPARAM range = SCF_SELECTION) const {
        CHARFORMAT2W format = {};
        format.cbSize = sizeof(format);
        format.dwMask = mask;
        format.dwEffects = effects;
        format.crTextColor = color;
        EXPECT_NE(Send(EM_SETCHARFORMAT, range, reinterpret_cast<LPARAM>(&format)), 0);
    }
    CHARFORMAT2W FormatOf(LONG from, LONG to) const {
        if (from >= 0) Select(from, to);
        CHARFORMAT2W format = {};
        format.cbSize = sizeof(format);
        EXPECT_EQ(static_cast<DWORD>(
                      Send(EM_GETCHARFORMAT, SCF_SELECTION, reinterpret_cast<LPARAM>(&format))),
                  format.dwMask);
        return format;
    }
    bool IsBold(LONG from, LONG to) const { return FormatOf(from, to).dwEffects & CFE_BOLD; }

    Recorder parent;
    HWND edit = nullptr;
    HFONT font = nullptr;
};

TEST_F(RichEditTest, CountsALineBreakAsOneCharacter) {
    SetText(TEXT("ab\r\ncd\nef\rgh\r\n"));
    EXPECT_EQ(Text(), "ab/cd/ef/gh/");
    GETTEXTLENGTHEX length = {GTL_DEFAULT, 1200};
    EXPECT_EQ(Send(EM_GETTEXTLENGTHEX, reinterpret_cast<WPARAM>(&length)), 12);
    length.flags = GTL_USECRLF;
    EXPECT_EQ(Send(EM_GETTEXTLENGTHEX, reinterpret_cast<WPARAM>(&length)), 16);
    length.flags = GTL_NUMBYTES;
    EXPECT_EQ(Send(EM_GETTEXTLENGTHEX, reinterpret_cast<WPARAM>(&length)), 24);
    WCHAR buffer[40] = {};
    GETTEXTEX request = {sizeof(buffer), GT_DEFAULT, 1200, nullptr, nullptr};
    EXPECT_EQ(
        Send(EM_GETTEXTEX, reinterpret_cast<WPARAM>(&request), reinterpret_cast<LPARAM>(buffer)),
        12);
    EXPECT_EQ(Plain(buffer), "ab\\cd\\ef\\gh\\");
    TEXTRANGEW range = {{3, 99}, buffer};
    EXPECT_EQ(Send(EM_GETTEXTRANGE, 0, reinterpret_cast<LPARAM>(&range)), 9);
    EXPECT_EQ(Plain(buffer), "cd\\ef\\gh\\");

    EXPECT_EQ(Send(EM_GETLINECOUNT), 5);
    const LRESULT starts[] = {0, 3, 6, 9, 12, -1};
    for (size_t i = 0; i < 6; ++i) EXPECT_EQ(Send(EM_LINEINDEX, i), starts[i]);
    EXPECT_EQ(Send(EM_LINELENGTH, 4), 2);
    EXPECT_EQ(Send(EM_LINELENGTH, 12), 0);
    EXPECT_EQ(Send(EM_LINEFROMCHAR, 8), 2);
    EXPECT_EQ(Send(EM_EXLINEFROMCHAR, 0, 10), 3);
    Make(0);
    SetText(TEXT("one\r\ntwo"));
    EXPECT_EQ(Text(), "one") << "a single line";
}

TEST_F(RichEditTest, SelectsRanges) {
    const struct {
        LONG from, to;
        const char* selected;
    } cases[] = {{0, -1, "0-6"}, {-1, 0, "2-2"},  {3, 1, "1-3"},   {2, 2, "2-2"},
                 {4, 99, "4-6"}, {99, 99, "5-5"}, {-1, -1, "5-5"}, {0, 5, "0-5"}};
    SetText(TEXT("ab\r\ncd"));
    for (const auto& one : cases) {
        Select(1, 2);
        Send(EM_SETSEL, static_cast<WPARAM>(one.from), one.to);
        EXPECT_EQ(Selection(), one.selected) << one.from << " " << one.to;
        Select(1, 2);
        Select(one.from, one.to);
        EXPECT_EQ(Selection(), one.selected) << one.from << " " << one.to;
    }
    Select(0, 1);
    EXPECT_EQ(Send(EM_SELECTIONTYPE) & SEL_TEXT, SEL_TEXT);
    Select(0, 0);
    EXPECT_EQ(Send(EM_SELECTIONTYPE), SEL_EMPTY);
}

TEST_F(RichEditTest, TellsOfChangesByItsEventMask) {
    EXPECT_EQ(Send(EM_GETEVENTMASK), 0);
    SetText(TEXT("quiet"));
    Type("x");
    EXPECT_EQ(parent.Take(), "");
    EXPECT_EQ(Send(EM_SETEVENTMASK, 0, ENM_CHANGE | ENM_SELCHANGE), 0);
    SetText(TEXT("hello world"));
    EXPECT_EQ(parent.Take(), "select:0-0 change");
    Select(0, 5);
    EXPECT_EQ(parent.Take(), "select:0-5");
    Type("X");
    EXPECT_EQ(parent.Take(), "select:1-1 change");
    Send(EM_REPLACESEL, TRUE, reinterpret_cast<LPARAM>(TEXT("YY\r\nZ")));
    EXPECT_EQ(parent.Take(), "select:5-5 change");
    EXPECT_EQ(Shown(), "XYY\\Z[] world");
    Press(VK_BACK);
    EXPECT_EQ(parent.Take(), "select:4-4 change");
    Press(VK_DELETE);
    EXPECT_EQ(parent.Take(), "change");
    Press(VK_RIGHT);
    EXPECT_EQ(parent.Take(), "select:5-5");
    EXPECT_EQ(Send(EM_SETEVENTMASK, 0, 0), ENM_CHANGE | ENM_SELCHANGE);
    Format(CFM_BOLD, CFE_BOLD);
    EXPECT_EQ(parent.Take(), "");
}

TEST_F(RichEditTest, TakesKeys) {
    SetText(TEXT("ab\r\ncd"));
    Send(EM_SETMODIFY, FALSE);
    const struct {
        WPARAM key;
        const char* shown;
    } cases[] = {{VK_END, "ab[]\\cd"}, {VK_RIGHT, "ab\\[]cd"}, {VK_DOWN, "ab\\[]cd"},
                 {VK_END, "ab\\cd[]"}, {VK_UP, "ab[]\\cd"},    {VK_BACK, "a[]\\cd"},
                 {VK_DELETE, "a[]cd"}, {VK_RETURN, "a\\[]cd"}, {VK_LEFT, "a[]\\cd"},
                 {VK_HOME, "[]a\\cd"}, {VK_BACK, "[]a\\cd"}};
    for (const auto& one : cases) {
        Press(one.key);
        EXPECT_EQ(Shown(), one.shown) << one.key;
    }
    EXPECT_TRUE(Send(EM_GETMODIFY));
    Type("x\ry\b");
    EXPECT_EQ(Shown(), "xy[]a\\cd") << "only their keys start lines and delete";
    Select(0, 3);
    Send(WM_CUT);
    EXPECT_EQ(Shown(), "[]\\cd");
    Press(VK_END);
    Send(WM_PASTE);
    EXPECT_EQ(Shown(), "xya[]\\cd");
    Select(2, 2);
    Send(EM_SETREADONLY, TRUE);
    Type("z");
    Press(VK_DELETE);
    EXPECT_EQ(Shown(), "xy[]a\\cd");
    EXPECT_TRUE(GetWindowLongPtrW(edit, GWL_STYLE) & ES_READONLY);
    Send(EM_REPLACESEL, FALSE, reinterpret_cast<LPARAM>(TEXT("!")));
    EXPECT_EQ(Shown(), "xy![]a\\cd") << "a program may";
}

TEST_F(RichEditTest, LimitsWhatIsTyped) {
    EXPECT_EQ(Send(EM_GETLIMITTEXT), 32767);
    Send(EM_LIMITTEXT, 5);
    EXPECT_EQ(Send(EM_GETLIMITTEXT), 5);
    Send(EM_EXLIMITTEXT, 0, 7);
    SetText(TEXT("abc"));
    Type("dddddddd");
    EXPECT_EQ(Text(), "ddddabc");
    Select(0, 2);
    Type("xyz");
    EXPECT_EQ(Text(), "xyddabc") << "what is selected makes room";
    SetText(TEXT("longer than that"));
    EXPECT_EQ(Text(), "longer than that");
    Send(EM_EXLIMITTEXT, 0, 0);
    EXPECT_EQ(Send(EM_GETLIMITTEXT), 0x10000);
}

TEST_F(RichEditTest, HasFormatsOverRanges) {
    SetText(TEXT("hello world"));
    Format(CFM_BOLD, CFE_BOLD, 0, SCF_ALL);
    Send(WM_SETFONT, reinterpret_cast<WPARAM>(font)); // takes everything
    Select(0, 5);
    Format(CFM_COLOR | CFM_PROTECTED, CFE_PROTECTED, 0xE0);
    CHARFORMAT2W format = FormatOf(0, 5);
    EXPECT_EQ(format.dwMask, 0xFEFFFFFFu);
    EXPECT_EQ(format.crTextColor, 0xE0u);
    EXPECT_EQ(lstrcmpiW(format.szFaceName, TEXT("Tahoma")), 0);
    EXPECT_EQ(format.yHeight, 165);
    EXPECT_EQ(format.dwEffects & (CFE_PROTECTED | CFE_AUTOCOLOR), DWORD{CFE_PROTECTED});
    format = FormatOf(0, 11);
    EXPECT_EQ(format.dwMask, 0xFEFFFFFF & ~(CFM_COLOR | CFM_PROTECTED)) << "what is the same";
    EXPECT_EQ(FormatOf(5, 5).crTextColor, 0xE0u) << "as before the caret";
    EXPECT_TRUE(FormatOf(6, 6).dwEffects & CFE_AUTOCOLOR);
    EXPECT_EQ(FormatOf(0, 0).crTextColor, 0xE0u);

    // The format of what is typed next, until the caret moves.
    Select(8, 8);
    Format(CFM_BOLD, CFE_BOLD);
    EXPECT_TRUE(IsBold(-1, -1));
    Type("B");
    EXPECT_TRUE(IsBold(8, 9));
    EXPECT_FALSE(IsBold(8, 8));
    EXPECT_TRUE(IsBold(9, 9));
    Select(9, 9);
    Format(CFM_BOLD, 0);
    Select(1, 1);
    EXPECT_TRUE(IsBold(9, 9));

    Format(CFM_ITALIC, CFE_ITALIC, 0, SCF_ALL);
    EXPECT_EQ(FormatOf(0, 12).dwMask, 0xFEFFFFFF & ~(CFM_COLOR | CFM_PROTECTED | CFM_BOLD));
    SetText(TEXT("plain"));
    EXPECT_FALSE(FormatOf(0, 5).dwEffects & CFE_ITALIC);
    Format(CFM_BOLD, CFE_BOLD, 0, SCF_DEFAULT);
    SetText(TEXT("plain"));
    EXPECT_TRUE(IsBold(0, 5));

    CHARFORMATW old = {};
    old.cbSize = sizeof(old);
    Send(EM_GETCHARFORMAT, SCF_SELECTION, reinterpret_cast<LPARAM>(&old));
    EXPECT_EQ(old.dwMask, 0xF800003Fu);
    old.cbSize = 5;
    EXPECT_EQ(Send(EM_GETCHARFORMAT, SCF_SELECTION, reinterpret_cast<LPARAM>(&old)), 0);
    EXPECT_EQ(Send(EM_SETCHARFORMAT, SCF_SELECTION, reinterpret_cast<LPARAM>(&old)), 0);
}

TEST_F(RichEditTest, HasTabStopsForEachParagraph) {
    SetText(TEXT("a\tb\nc\td"));
    PARAFORMAT2 format = {};
    format.cbSize = sizeof(format);
    format.dwMask = PFM_TABSTOPS;
    format.cTabCount = 2;
    format.rgxTabs[0] = 1000;
    format.rgxTabs[1] = 2000;
    Select(0, 1);
    EXPECT_EQ(Send(EM_SETPARAFORMAT, 0, reinterpret_cast<LPARAM>(&format)), 1);
    const auto asked = [&](LONG from, LONG to) {
        Select(from, to);
        PARAFORMAT2 answer = {};
        answer.cbSize = sizeof(answer);
        Send(EM_GETPARAFORMAT, 0, reinterpret_cast<LPARAM>(&answer));
        return answer;
    };
    EXPECT_EQ(asked(0, 0).cTabCount, 2);
    EXPECT_EQ(asked(0, 0).rgxTabs[1], 2000);
    EXPECT_EQ(asked(5, 5).cTabCount, 0);
    EXPECT_FALSE(asked(0, 6).dwMask & PFM_TABSTOPS);
    SetText(TEXT("x"));
    EXPECT_EQ(asked(0, 0).cTabCount, 0);
}

TEST_F(RichEditTest, UndoesAndRedoes) {
    SetText(TEXT("word"));
    EXPECT_FALSE(Send(EM_CANUNDO));
    Type("ab");
    EXPECT_TRUE(Send(EM_CANUNDO));
    Select(0, 4);
    Send(EM_REPLACESEL, TRUE, reinterpret_cast<LPARAM>(TEXT("-")));
    EXPECT_EQ(Text(), "-rd");
    Send(EM_UNDO);
    EXPECT_EQ(Text(), "abword");
    Send(EM_UNDO);
    EXPECT_EQ(Text(), "word");
    Send(EM_REDO);
    EXPECT_EQ(Text(), "abword");
    Send(EM_REPLACESEL, FALSE, reinterpret_cast<LPARAM>(TEXT("!")));
    EXPECT_FALSE(Send(EM_CANUNDO)) << "what cannot be undone ends it";
    Type("c");
    Send(EM_EMPTYUNDOBUFFER);
    EXPECT_FALSE(Send(EM_CANUNDO));
    EXPECT_EQ(Send(EM_SETUNDOLIMIT, 0), 0);
    Type("d");
    EXPECT_FALSE(Send(EM_CANUNDO));
}

TEST_F(RichEditTest, ScrollsByPixels) {
    WideText lines;
    for (int i = 0; i < 50; ++i) lines += TEXT("line\n");
    SetText(lines.c_str());
    const auto position = [&] {
        POINT point = {-1, -1};
        Send(EM_GETSCROLLPOS, 0, reinterpret_cast<LPARAM>(&point));
        return point.y;
    };
    const auto scroll = [&](LONG y) {
        POINT point = {0, y};
        Send(EM_SETSCROLLPOS, 0, reinterpret_cast<LPARAM>(&point));
    };
    EXPECT_EQ(position(), 0);
    scroll(40);
    EXPECT_EQ(position(), 40);
    Send(WM_VSCROLL, MAKEWPARAM(SB_THUMBPOSITION, 100));
    EXPECT_EQ(position(), 100);
    EXPECT_GT(Send(EM_GETFIRSTVISIBLELINE), 0);
    scroll(99999);
    const LONG most = position();
    EXPECT_GT(most, 300);
    Send(EM_LINESCROLL, 0, -3);
    EXPECT_LT(position(), most);
    Select(0, 0);
    EXPECT_EQ(position(), 0) << "to the caret";
    EXPECT_EQ(Send(EM_SETBKGNDCOLOR, 0, 0x123456), static_cast<LRESULT>(GetSysColor(COLOR_WINDOW)));
    EXPECT_EQ(Send(EM_SETBKGNDCOLOR, TRUE), 0x123456);
}

} // namespace
