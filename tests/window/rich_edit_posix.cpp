// Protected text of rich edit controls, and edits that destroy them. (Wine does not ask before
// protected text changes.)
#include "recorder.h"

#include <richedit.h>

#include <gtest/gtest.h>

namespace {

constexpr COLORREF kRed = 0xE0;

class ProtectedText : public testing::Test {
protected:
    ProtectedText()
        : parent({}) {
        parent.handler = [this](UINT message, WPARAM, LPARAM second, LRESULT& answer) {
            if (message != WM_NOTIFY) return false;
            const auto* asked = reinterpret_cast<const ENPROTECTED*>(second);
            if (asked->nmhdr.code != EN_PROTECTED) return false;
            char line[40];
            snprintf(line, sizeof(line), "%x:%d-%d", asked->msg, asked->chrg.cpMin,
                     asked->chrg.cpMax);
            parent.Note(line);
            answer = veto;
            return true;
        };
        edit = CreateWindowExW(0, TEXT("RichEdit20W"), TEXT("hello world"),
                               WS_CHILD | WS_VISIBLE | ES_MULTILINE, 0, 0, 200, 100,
                               parent.Window(), nullptr, nullptr, nullptr);
        Select(0, 5);
        Format(SCF_SELECTION);
        SendMessageW(edit, EM_SETEVENTMASK, 0, ENM_CHANGE | ENM_UPDATE | ENM_PROTECTED);
        SendMessageW(edit, EM_SETMODIFY, FALSE, 0);
    }

    void Select(WPARAM from, LPARAM to) const { SendMessageW(edit, EM_SETSEL, from, to); }
    LRESULT Format(WPARAM range) const {
        CHARFORMAT2W format = {};
        format.cbSize = sizeof(format);
        format.dwMask = CFM_PROTECTED | CFM_COLOR;
        format.dwEffects = CFE_PROTECTED;
        format.crTextColor = kRed;
        return SendMessageW(edit, EM_SETCHARFORMAT, range, reinterpret_cast<LPARAM>(&format));
    }
    std::u16string Text() const {
        WCHAR text[50];
        return {text, static_cast<size_t>(GetWindowTextW(edit, text, 50))};
    }

    Recorder parent;
    HWND edit;
    LRESULT veto = 0;
};

TEST_F(ProtectedText, IsAskedForBeforeItChanges) {
    const struct {
        const char* name;
        WPARAM from;
        LPARAM to;
        UINT message;
        WPARAM parameter;
        const char* asked;
    } cases[] = {
        {"a character in it", 2, 2, WM_CHAR, 'x', "102:2-2"},
        {"at its start", 0, 0, WM_CHAR, 'x', "102:0-0"},
        {"at its end", 5, 5, WM_CHAR, 'x', "102:5-5"},
        {"after it", 6, 6, WM_CHAR, 'x', ""},
        {"over its end", 4, 8, WM_CHAR, 'x', "102:4-8"},
        {"backwards", 3, 3, WM_KEYDOWN, VK_BACK, "100:2-3"},
        {"forwards", 5, 5, WM_KEYDOWN, VK_DELETE, ""},
        {"moving", 3, 3, WM_KEYDOWN, VK_LEFT, ""},
        {"clearing", 1, 2, WM_CLEAR, 0, "303:1-2"},
    };
    for (const auto& one : cases) {
        for (const LRESULT answer : {1, 0}) {
            SetWindowTextW(edit, u"hello world");
            SendMessageW(edit, EM_SETEVENTMASK, 0, 0);
            Select(0, 5);
            Format(SCF_SELECTION);
            SendMessageW(edit, EM_SETEVENTMASK, 0, ENM_PROTECTED);
            Select(one.from, one.to);
            parent.Take();
            veto = answer;
            SendMessageW(edit, one.message, one.parameter, 1);
            EXPECT_EQ(parent.Take(), one.asked) << one.name;
            if (answer && *one.asked) {
                EXPECT_EQ(Text(), u"hello world") << one.name;
            }
        }
    }
    Select(0, 3);
    veto = 1;
    EXPECT_EQ(Format(SCF_SELECTION), 0);
    SendMessageW(edit, EM_REPLACESEL, TRUE, reinterpret_cast<LPARAM>(u"no"));
    EXPECT_EQ(parent.Take(), "444:0-3 c2:0-3");
    SetWindowTextW(edit, u"yes");
    EXPECT_EQ(Text(), u"yes");
    EXPECT_EQ(parent.Take(), "");
}

// A page colours its text whenever it changed.
TEST_F(ProtectedText, IsColouredInItsOwnNotification) {
    parent.handler = [this](UINT message, WPARAM first, LPARAM, LRESULT&) {
        if (message != WM_COMMAND) return false;
        parent.Note(HIWORD(first) == EN_CHANGE ? "change" : "update");
        if (HIWORD(first) != EN_CHANGE) return false;
        const LRESULT mask = SendMessageW(edit, EM_SETEVENTMASK, 0, 0);
        DWORD from = 0, to = 0;
        SendMessageW(edit, EM_GETSEL, reinterpret_cast<WPARAM>(&from),
                     reinterpret_cast<LPARAM>(&to));
        Select(0, -1);
        Format(SCF_SELECTION);
        Select(from, static_cast<LPARAM>(to));
        SendMessageW(edit, EM_SETEVENTMASK, 0, mask);
        return false;
    };
    Select(6, 11);
    for (const char letter : {'a', 'b', 'c'})
        SendMessageW(edit, WM_CHAR, static_cast<WPARAM>(letter), 1);
    EXPECT_EQ(Text(), u"hello abc");
    EXPECT_EQ(parent.Take(), "update change update change update change");
    parent.handler = nullptr;
}

TEST_F(ProtectedText, MayGoInItsOwnNotification) {
    for (const UINT message : {UINT(WM_CHAR), UINT(EM_REPLACESEL), UINT(WM_SETTEXT)}) {
        parent.handler = [this](UINT sent, WPARAM first, LPARAM, LRESULT&) {
            if (sent == WM_COMMAND && HIWORD(first) == EN_UPDATE) DestroyWindow(edit);
            return false;
        };
        SendMessageW(edit, message, message == WM_CHAR ? 'x' : 0,
                     message == WM_CHAR ? 1 : reinterpret_cast<LPARAM>(u"x"));
        EXPECT_FALSE(IsWindow(edit));
        edit = CreateWindowExW(0, TEXT("RichEdit20W"), TEXT("hello world"),
                               WS_CHILD | WS_VISIBLE | ES_MULTILINE, 0, 0, 200, 100,
                               parent.Window(), nullptr, nullptr, nullptr);
        SendMessageW(edit, EM_SETEVENTMASK, 0, ENM_UPDATE | ENM_CHANGE);
    }
    parent.handler = nullptr;
}

} // namespace
