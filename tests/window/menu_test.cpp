// Menus: what is in them, and what happens while one is open.
#include "recorder.h"

#include <gtest/gtest.h>

#include <functional>
#include <string>
#include <vector>

namespace {

// "1:Text TYPE STATE {sub-menu} | ...", for every item.
std::string Describe(HMENU menu) {
    std::string all;
    for (int i = 0; i < GetMenuItemCount(menu); ++i) {
        WCHAR text[40] = {};
        MENUITEMINFOW info = {};
        info.cbSize = sizeof(info);
        info.fMask = MIIM_FTYPE | MIIM_STATE | MIIM_ID | MIIM_SUBMENU | MIIM_STRING | MIIM_DATA;
        info.dwTypeData = text;
        info.cch = 40;
        if (!GetMenuItemInfoW(menu, static_cast<UINT>(i), TRUE, &info)) return all + "failed";
        char line[100];
        snprintf(line, sizeof(line), "%s%u:%s %x %x", i ? " | " : "", info.hSubMenu ? 0 : info.wID,
                 std::string(text, text + info.cch).c_str(), info.fType, info.fState);
        all += line;
        if (info.hSubMenu) all += " {" + Describe(info.hSubMenu) + "}";
    }
    return all;
}

TEST(Menu, TemplatesOfBothFormsHaveTypesAndStates) {
    const WORD standard_bytes[] = {
        0,  0,   MF_POPUP, '&',    'F',       0,   MF_CHECKED, 11, 'O',
        0,  0,   0,        0,      MF_GRAYED, 13,  'X',        0,  MF_END | MF_MENUBREAK,
        12, 'C', 0,        MF_END, 14,        'L', 0};
    const HMENU standard = LoadMenuIndirectW(standard_bytes);
    EXPECT_EQ(Describe(standard),
              "0:&F 0 0 {11:O 0 8 | 0: 800 3 | 13:X 0 1 | 12:C 40 0} | 14:L 0 0");
    // Type, state and identifier of two words each, flags, text; at multiples of two words.
    const WORD extended_bytes[] = {1,           4,           0,
                                   0,           0,           0,
                                   MFS_DEFAULT, 0,           21,
                                   1,           0,           'A',
                                   0,           0,           MFT_RADIOCHECK,
                                   0,           MFS_CHECKED, 0,
                                   22,          0,           1,
                                   'S',         0,           0,
                                   0,           0,           MFT_SEPARATOR,
                                   0,           0,           0,
                                   23,          0,           0,
                                   0,           0,           0,
                                   MFS_GRAYED,  0,           24,
                                   0,           MF_END,      'C',
                                   0,           0,           0,
                                   0,           0,           0,
                                   25,          0,           MF_END,
                                   'D',         0,           0};
    const HMENU extended = LoadMenuIndirectW(extended_bytes);
    EXPECT_EQ(Describe(extended), "65557:A 0 1000 | 0:S 200 8 {23: 800 0 | 24:C 0 3} | 25:D 0 0");
    const HMENU below = GetSubMenu(extended, 1);
    EXPECT_TRUE(DestroyMenu(extended));
    EXPECT_FALSE(IsMenu(below)) << "what is below goes with it";
    EXPECT_TRUE(DestroyMenu(standard));
    EXPECT_FALSE(DestroyMenu(standard));
}

TEST(Menu, ItemsAreAddedChangedAndTakenAway) {
    const HMENU menu = CreatePopupMenu(), below = CreatePopupMenu();
    const auto below_id = reinterpret_cast<UINT_PTR>(below);
    const UINT none = 0xFFFFFFFF;
    EXPECT_TRUE(AppendMenuW(menu, MF_STRING, 1, TEXT("One")));
    EXPECT_TRUE(AppendMenuW(menu, MF_CHECKED | MF_GRAYED, 2, TEXT("Two")));
    EXPECT_TRUE(AppendMenuW(menu, MF_STRING, 3, nullptr)) << "a separator";
    EXPECT_TRUE(AppendMenuW(menu, MF_STRING, 4, TEXT("")));
    EXPECT_TRUE(AppendMenuW(below, MF_STRING, 5, TEXT("Five")));
    EXPECT_TRUE(AppendMenuW(below, MF_STRING, 6, TEXT("Six")));
    EXPECT_TRUE(AppendMenuW(menu, MF_POPUP, below_id, TEXT("Sub")));
    EXPECT_FALSE(AppendMenuW(nullptr, MF_STRING, 1, TEXT("One")));
    EXPECT_TRUE(InsertMenuW(menu, 6, MF_BYCOMMAND, 7, TEXT("Seven"))) << "below";
    EXPECT_TRUE(InsertMenuW(menu, 0, MF_BYPOSITION, 8, TEXT("Eight")));
    EXPECT_TRUE(InsertMenuW(menu, 99, MF_BYPOSITION, 9, TEXT("Nine"))) << "at the end";
    EXPECT_TRUE(InsertMenuW(menu, 99, MF_BYCOMMAND, 10, TEXT("Ten")));
    EXPECT_EQ(Describe(menu), "8:Eight 0 0 | 1:One 0 0 | 2:Two 0 9 | 3: 800 3 | 4: 0 0"
                              " | 0:Sub 0 0 {5:Five 0 0 | 7:Seven 0 0 | 6:Six 0 0}"
                              " | 9:Nine 0 0 | 10:Ten 0 0");

    EXPECT_EQ(CheckMenuItem(menu, 1, MF_CHECKED), DWORD{MF_UNCHECKED});
    EXPECT_EQ(CheckMenuItem(menu, 1, MF_CHECKED), DWORD{MF_CHECKED});
    EXPECT_EQ(CheckMenuItem(menu, 77, MF_CHECKED), none);
    EXPECT_EQ(EnableMenuItem(menu, 2, MF_ENABLED), MF_GRAYED);
    EXPECT_EQ(EnableMenuItem(menu, 0, MF_BYPOSITION | MF_DISABLED), MF_ENABLED);
    EXPECT_EQ(GetMenuState(menu, 2, MF_BYCOMMAND), UINT{MF_CHECKED});
    EXPECT_EQ(GetMenuState(menu, 3, MF_BYPOSITION), 0x803u) << "a separator";
    EXPECT_EQ(GetMenuState(menu, 5, MF_BYPOSITION), 0x310u) << "a sub-menu of three";
    EXPECT_EQ(GetMenuState(menu, 77, MF_BYCOMMAND), none);
    EXPECT_TRUE(CheckMenuRadioItem(menu, 1, 8, 8, MF_BYCOMMAND));
    EXPECT_TRUE(CheckMenuRadioItem(below, 0, 2, 1, MF_BYPOSITION));
    EXPECT_TRUE(SetMenuDefaultItem(menu, 2, FALSE));
    EXPECT_TRUE(SetMenuDefaultItem(menu, 1, TRUE));
    EXPECT_EQ(Describe(menu), "8:Eight 200 a | 1:One 0 1000 | 2:Two 0 0 | 3: 800 3 | 4: 0 0"
                              " | 0:Sub 0 0 {5:Five 0 0 | 7:Seven 200 8 | 6:Six 0 0}"
                              " | 9:Nine 0 0 | 10:Ten 0 0");

    EXPECT_TRUE(ModifyMenuW(menu, 2, MF_BYCOMMAND, 22, TEXT("Zwei")));
    EXPECT_FALSE(ModifyMenuW(menu, 2, MF_BYCOMMAND, 22, TEXT("Zwei")));
    EXPECT_EQ(GetMenuItemID(menu, 2), 22u);
    EXPECT_EQ(GetMenuItemID(menu, 5), none) << "a sub-menu";
    EXPECT_EQ(GetMenuStringW(menu, 22, nullptr, 0, MF_BYCOMMAND), 4);
    EXPECT_TRUE(RemoveMenu(menu, 5, MF_BYPOSITION));
    EXPECT_TRUE(IsMenu(below));
    EXPECT_TRUE(InsertMenuW(menu, 1, MF_BYPOSITION | MF_POPUP, below_id, TEXT("S")));
    EXPECT_TRUE(DeleteMenu(menu, 5, MF_BYCOMMAND));
    EXPECT_FALSE(DeleteMenu(menu, 5, MF_BYCOMMAND));
    EXPECT_EQ(Describe(menu), "8:Eight 200 a | 0:S 0 0 {7:Seven 200 8 | 6:Six 0 0} | 1:One 0 1000"
                              " | 22:Zwei 0 0 | 3: 800 3 | 4: 0 0 | 9:Nine 0 0 | 10:Ten 0 0");
    EXPECT_TRUE(DeleteMenu(menu, 1, MF_BYPOSITION));
    EXPECT_FALSE(IsMenu(below));
    EXPECT_TRUE(DestroyMenu(menu));
}

TEST(Menu, RecordsOfItemsCarryWhatTheirMaskSays) {
    const HMENU menu = CreatePopupMenu();
    WCHAR text[] = TEXT("Hello");
    MENUITEMINFOW info = {};
    info.cbSize = sizeof(info);
    info.fMask = MIIM_STRING | MIIM_ID | MIIM_STATE;
    info.wID = 7;
    info.fState = MFS_CHECKED;
    info.dwTypeData = text;
    EXPECT_TRUE(InsertMenuItemW(menu, 0, TRUE, &info));
    info.fMask = MIIM_ID;
    EXPECT_TRUE(InsertMenuItemW(menu, 99, FALSE, &info));
    EXPECT_EQ(Describe(menu), "7:Hello 0 8 | 7: 800 0");
    const struct {
        UINT mask, size, room;
        const char* answer;
    } questions[] = {{MIIM_STRING, sizeof(info), 3, "2:He"},
                     {MIIM_STRING, sizeof(info), 0, "5:-"},
                     {MIIM_TYPE, sizeof(info), 9, "5:Hello"},
                     {MIIM_TYPE | MIIM_FTYPE, sizeof(info), 9, "failed"},
                     {MIIM_STRING, offsetof(MENUITEMINFOW, hbmpItem), 9, "5:Hello"},
                     {MIIM_STRING, 60, 9, "failed"}};
    for (const auto& question : questions) {
        WCHAR buffer[10] = TEXT("-");
        MENUITEMINFOW asked = {};
        asked.cbSize = question.size;
        asked.fMask = question.mask;
        asked.dwTypeData = buffer;
        asked.cch = question.room;
        std::string answer = "failed";
        if (GetMenuItemInfoW(menu, 7, FALSE, &asked)) {
            answer = std::to_string(asked.cch) + ":";
            for (const WCHAR* unit = buffer; *unit; ++unit) answer += static_cast<char>(*unit);
        }
        EXPECT_EQ(answer, question.answer) << question.mask << " " << question.size;
    }
    info.fMask = MIIM_STATE | MIIM_FTYPE;
    info.fState = MFS_DISABLED;
    info.fType = MFT_RADIOCHECK;
    EXPECT_TRUE(SetMenuItemInfoW(menu, 0, TRUE, &info));
    EXPECT_FALSE(SetMenuItemInfoW(menu, 2, TRUE, &info));
    EXPECT_EQ(Describe(menu), "7:Hello 200 3 | 7: 800 0");
    DestroyMenu(menu);
}

// ---- An open menu -------------------------------------------------------------------------------

// The owner of a menu, which notes what it hears, and a user who acts whenever the menu waits.
class OpenMenu : public testing::Test {
protected:
    using Act = std::function<void()>;

    OpenMenu()
        : recorder({}, WS_POPUP | WS_VISIBLE)
        , owner(recorder.Window()) {
        // Its client area starts where the screen does.
        MoveWindow(owner, 0, 0, 400, 400, FALSE);
        SetFocus(owner);
        recorder.handler = [this](UINT message, WPARAM first, LPARAM second, LRESULT& answer) {
            return top && Hear(message, first, second, answer);
        };
    }

    void Note(const char* format, unsigned a, unsigned b, LPARAM menu) {
        char line[60];
        snprintf(line, sizeof(line), format, a, b);
        heard += line;
        if (menu) heard += reinterpret_cast<HMENU>(menu) == top ? " top" : " sub";
        heard += "; ";
    }
    bool Hear(UINT message, WPARAM first, LPARAM second, LRESULT& answer) {
        const auto low = LOWORD(first), high = HIWORD(first);
        const auto menu = static_cast<LPARAM>(first);
        if (message == WM_ENTERIDLE && first == MSGF_MENU) {
            if (next < acts.size())
                acts[next++]();
            else
                EndMenu();
            PostMessageW(owner, WM_NULL, 0, 0);
        }
        if (message == WM_ENTERMENULOOP) Note("enter %u", low, 0, 0);
        if (message == WM_EXITMENULOOP) Note("exit %u", low, 0, 0);
        if (message == WM_INITMENU) Note("init", 0, 0, menu);
        if (message == WM_INITMENUPOPUP) Note("popup %u", LOWORD(second), 0, menu);
        if (message == WM_UNINITMENUPOPUP) Note("unpopup", 0, 0, menu);
        if (message == WM_MENUSELECT) Note("select %u %x", low, high, second);
        if (message == WM_COMMAND) Note("command %u %u", low, high, second);
        if (message == WM_KEYDOWN || message == WM_CHAR || message == WM_LBUTTONDOWN)
            Note("input %x", message, 0, 0);
        if (message == WM_MENUCHAR) Note("char %u %x", low, high, second);
        answer = MAKELONG(1, MNC_EXECUTE);
        return message == WM_MENUCHAR && low == 'x';
    }

    Act Key(WPARAM key) const {
        return [this, key] {
            PostMessageW(owner, WM_KEYDOWN, key, 1);
            PostMessageW(owner, WM_KEYUP, key, 1);
        };
    }
    Act Letter(WPARAM letter) const {
        return [this, letter] { PostMessageW(owner, WM_CHAR, letter, 1); };
    }
    void Mouse(UINT message, POINT at) const {
        PostMessageW(owner, message, 0, MAKELPARAM(at.x, at.y));
    }
    Act Click(bool is_sub, UINT item) const {
        return [this, is_sub, item] {
            RECT rect = {};
            EXPECT_TRUE(GetMenuItemRect(nullptr, is_sub ? sub : top, item, &rect));
            Mouse(WM_LBUTTONDOWN, {rect.left + 4, rect.top + 4});
            Mouse(WM_LBUTTONUP, {rect.left + 4, rect.top + 4});
        };
    }
    // Opens the menu, lets the user act and answers what the owner heard.
    std::string Run(UINT flags, std::vector<Act> user) {
        top = CreatePopupMenu();
        sub = CreatePopupMenu();
        AppendMenuW(sub, MF_STRING, 11, TEXT("&First"));
        AppendMenuW(sub, MF_STRING, 12, TEXT("&Second"));
        AppendMenuW(top, MF_STRING, 1, TEXT("&One"));
        AppendMenuW(top, MF_STRING, 2, TEXT("&Two\tCtrl+T"));
        AppendMenuW(top, MF_SEPARATOR, 0, nullptr);
        AppendMenuW(top, MF_GRAYED, 3, TEXT("&Dead"));
        AppendMenuW(top, MF_POPUP, reinterpret_cast<UINT_PTR>(sub), TEXT("&Sub"));
        acts = std::move(user);
        next = 0;
        heard.clear();
        const BOOL answer = TrackPopupMenu(top, flags, 100, 120, 0, owner, nullptr);
        Note("answer %d", static_cast<unsigned>(answer), 0, 0);
        DeliverMessages();
        EXPECT_TRUE(DestroyMenu(top));
        EXPECT_FALSE(IsMenu(sub));
        EXPECT_EQ(FindWindowW(TEXT("#32768"), nullptr), nullptr);
        top = nullptr;
        return heard;
    }

    Recorder recorder;
    HWND owner;
    HMENU top = nullptr, sub = nullptr;
    std::string heard;
    std::vector<Act> acts;
    size_t next = 0;
};

TEST_F(OpenMenu, TellsItsOwnerWhatHappensInOrder) {
    const std::string opened = "enter 1; init top; popup 0 top; ";
    const std::string closed = "unpopup top; select 0 ffff; exit 1; answer 1; ";
    const std::string chosen = "unpopup top; select 0 ffff; exit 1; answer ";
    const std::string into_sub = "select 4 90 top; popup 4 sub; select 11 80 sub; ";
    const Act escape = Key(VK_ESCAPE), down = Key(VK_DOWN), up = Key(VK_UP), right = Key(VK_RIGHT),
              enter = Key(VK_RETURN);
    struct Case {
        const char* name;
        UINT flags;
        std::vector<Act> acts;
        std::string heard;
    };
    const Case cases[] = {
        {"an item", 0, {down, enter}, opened + "select 1 80 top; " + closed + "command 1 0; "},
        {"answered", TPM_RETURNCMD, {down, enter}, opened + "select 1 80 top; " + chosen + "1; "},
        {"quietly",
         TPM_NONOTIFY,
         {down, enter},
         "select 1 80 top; select 0 ffff; exit 1; answer 1; command 1 0; "},
        {"escape", 0, {escape}, opened + closed},
        {"escape, answered",
         TPM_RETURNCMD,
         {down, escape},
         opened + "select 1 80 top; " + chosen + "0; "},
        {"nothing selected", 0, {enter}, opened + closed},
        {"space",
         0,
         {down, Key(VK_SPACE)},
         opened + "select 1 80 top; " + closed + "command 1 0; "},
        {"round",
         0,
         {up, up, up, up, up},
         opened +
             "select 4 90 top; select 3 81 top; select 2 80 top; select 1 80 top; "
             "select 4 90 top; " +
             closed},
        {"ends",
         0,
         {Key(VK_END), Key(VK_HOME)},
         opened + "select 4 90 top; select 1 80 top; " + closed},
        {"disabled",
         0,
         {up, up, enter, [] { FAIL() << "still open"; }},
         opened + "select 4 90 top; select 3 81 top; " + closed},
        {"sub-menu",
         0,
         {up, right, down, down, enter},
         opened + into_sub + "select 12 80 sub; select 11 80 sub; unpopup sub; " + closed +
             "command 11 0; "},
        {"left and on",
         0,
         {up, enter, Key(VK_LEFT), down},
         opened + into_sub + "unpopup sub; select 1 80 top; " + closed},
        {"out of it",
         0,
         {up, right, escape, down},
         opened + into_sub + "unpopup sub; select 1 80 top; " + closed},
        {"letter", 0, {Letter('t')}, opened + "select 2 80 top; " + closed + "command 2 0; "},
        {"letters",
         0,
         {Letter('S'), Letter('f')},
         opened + into_sub + "unpopup sub; " + closed + "command 11 0; "},
        {"unknown letter", 0, {Letter('q')}, opened + "char 113 10 top; " + closed},
        {"letter of the owner",
         0,
         {Letter('x')},
         opened + "char 120 10 top; select 2 80 top; " + closed + "command 2 0; "},
        {"click", 0, {Click(false, 0)}, opened + "select 1 80 top; " + closed + "command 1 0; "},
        {"on nothing",
         0,
         {Click(false, 2), Click(false, 3), down},
         opened + "select 0 803 top; select 3 81 top; select 4 90 top; " + closed},
        {"below",
         0,
         {Click(false, 4), Click(true, 1)},
         opened + "select 4 90 top; popup 4 sub; select 12 80 sub; unpopup sub; " + closed +
             "command 12 0; "},
        {"outside",
         0,
         {[&] {
             Mouse(WM_LBUTTONDOWN, {5, 5});
         }},
         opened + closed + "input 201; "},
        {"other messages",
         0,
         {[&] { PostMessageW(owner, WM_COMMAND, 9, 0); }, escape},
         opened + "command 9 0; " + closed},
        {"an item more",
         0,
         {[this] { AppendMenuW(top, 0, 9, TEXT("&Nine")); }, Letter('n')},
         opened + "select 9 80 top; " + closed + "command 9 0; "},
    };
    for (const Case& one : cases) EXPECT_EQ(Run(one.flags, one.acts), one.heard) << one.name;
}

TEST_F(OpenMenu, IsAWindowThatTellsItsMenu) {
    const auto where = [this](UINT flags) {
        RECT rect = {};
        Run(flags, {[&] {
                const HWND window = FindWindowW(TEXT("#32768"), nullptr);
                EXPECT_EQ(reinterpret_cast<HMENU>(SendMessageW(window, MN_GETHMENU, 0, 0)), top);
                EXPECT_TRUE(IsWindowVisible(window));
                EXPECT_EQ(GetWindow(window, GW_OWNER), owner);
                EXPECT_EQ(GetFocus(), owner);
                GetWindowRect(window, &rect);
            }});
        return rect;
    };
    RECT rect = where(0);
    EXPECT_EQ(rect.left, 100);
    EXPECT_EQ(rect.top, 120);
    rect = where(TPM_RIGHTALIGN | TPM_BOTTOMALIGN);
    EXPECT_EQ(rect.bottom, 120);
    EXPECT_TRUE(rect.right == 100 || rect.left == 0);
}

} // namespace
