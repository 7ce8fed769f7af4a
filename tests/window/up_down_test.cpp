// Up-down controls: their range, their buddy, and what they tell.
#include "parent_window.h"

#include <commctrl.h>
#include <gtest/gtest.h>

namespace {

// A field with an up-down control at its right, as dialogs have them.
class FieldWithArrows {
public:
    explicit FieldWithArrows(DWORD style)
        : parent({{EN_UPDATE, "update"}, {EN_CHANGE, "change"}, {EN_SETFOCUS, "focused"}}) {
        INITCOMMONCONTROLSEX needed = {sizeof(needed), ICC_UPDOWN_CLASS};
        InitCommonControlsEx(&needed);
        parent.handler = [this](UINT message, WPARAM first, LPARAM second, LRESULT& answer) {
            if (message == WM_VSCROLL || message == WM_HSCROLL)
                parent.Note((message == WM_VSCROLL ? "v" : "h") + std::to_string(LOWORD(first)) +
                            ":" + std::to_string(static_cast<int16_t>(HIWORD(first))));
            const auto* told = reinterpret_cast<const NMUPDOWN*>(second);
            if (message != WM_NOTIFY || told->hdr.code != static_cast<UINT>(UDN_DELTAPOS))
                return false;
            parent.Note("delta" + std::to_string(told->iPos) + ":" + std::to_string(told->iDelta));
            answer = veto;
            return true;
        };
        field = parent.Make(TEXT("Edit"), TEXT("5"), ES_AUTOHSCROLL, 1, 10, 10, 80, 22);
        control = parent.Make(UPDOWN_CLASS, TEXT(""), style, 2);
        SendMessageW(control, UDM_SETRANGE32, 1, 10);
        parent.Take();
    }
    LRESULT Ask(UINT message, WPARAM first = 0, LPARAM second = 0) const {
        return SendMessageW(control, message, first, second);
    }
    // Clicks the upper or the lower arrow.
    void Press(bool up) const {
        RECT client;
        GetClientRect(control, &client);
        const std::string y = std::to_string(up ? client.bottom / 4 : client.bottom * 3 / 4);
        Perform(control, "press 5 " + y + ", release 5 " + y);
    }

    ParentWindow parent;
    HWND field;
    HWND control;
    LRESULT veto = 0;
};

constexpr DWORD kBuddy = UDS_AUTOBUDDY | UDS_SETBUDDYINT | UDS_ALIGNRIGHT | UDS_ARROWKEYS;

TEST(UpDowns, StandAtTheirBuddy) {
    FieldWithArrows it(kBuddy);
    EXPECT_EQ(reinterpret_cast<HWND>(it.Ask(UDM_GETBUDDY)), it.field);
    RECT field, control;
    GetWindowRect(it.field, &field);
    GetWindowRect(it.control, &control);
    EXPECT_EQ(control.top, field.top);
    EXPECT_EQ(control.bottom, field.bottom);
    EXPECT_LE(control.left, field.right);
    POINT right = {control.right, 0};
    ScreenToClient(it.parent.Window(), &right);
    EXPECT_NEAR(right.x, 90, 2); // the field has become narrower
    EXPECT_LT(field.right - field.left, 80);
}

TEST(UpDowns, MoveTheirBuddysNumber) {
    const std::string changed = "update change";
    const struct {
        DWORD style;
        const char* start;
        const char* key;
        std::string told;
        const char* text;
    } cases[] = {
        {kBuddy, "5", "up", "delta5:1 " + changed + " v4:6", "6"},
        {kBuddy, "5", "down", "delta5:-1 " + changed + " v4:4", "4"},
        {kBuddy, "10", "up", "delta10:1 v4:10", "10"},
        {kBuddy | UDS_WRAP, "10", "up", "delta10:1 " + changed + " v4:1", "1"},
        // What is no number of the range does not count.
        {kBuddy, "99", "down", "delta5:-1 " + changed + " v4:4", "4"},
        {kBuddy, "abc", "up", "delta5:1 " + changed + " v4:6", "6"},
        {kBuddy, "", "up", "delta5:1 " + changed + " v4:6", "6"},
    };
    for (const auto& c : cases) {
        FieldWithArrows it(c.style);
        SCOPED_TRACE(c.start + c.told);
        it.Ask(UDM_SETPOS32, 0, 5);
        SetWindowTextW(it.field, Wide(c.start).c_str());
        it.parent.Take();
        Perform(it.field, c.key);
        EXPECT_EQ(it.parent.Take(), c.told);
        EXPECT_EQ(TextOf(it.field), Wide(c.text));
    }
}

TEST(UpDowns, AreClicked) {
    FieldWithArrows it(kBuddy);
    it.Press(true);
    EXPECT_EQ(it.parent.Take(), "focused delta5:1 update change v4:6 v8:6");
    it.Press(false);
    EXPECT_EQ(it.parent.Take(), "delta6:-1 update change v4:5 v8:5");
    it.veto = 1;
    it.Press(true);
    EXPECT_EQ(it.parent.Take(), "delta5:1 v4:5 v8:5");
    EXPECT_EQ(TextOf(it.field), TEXT("5"));
    it.veto = 0;
    EnableWindow(it.control, FALSE);
    it.Press(true);
    EXPECT_EQ(TextOf(it.field), TEXT("5"));
}

TEST(UpDowns, AnswerForTheirNumbers) {
    FieldWithArrows it(kBuddy);
    it.Ask(UDM_SETRANGE, 0, MAKELONG(2000, -2000));
    it.Ask(UDM_SETPOS32, 0, 1500);
    EXPECT_EQ(TextOf(it.field).size(), 5u); // with a separator of thousands
    BOOL failed = TRUE;
    EXPECT_EQ(it.Ask(UDM_GETPOS32, 0, reinterpret_cast<LPARAM>(&failed)), 1500);
    EXPECT_FALSE(failed);
    EXPECT_EQ(it.Ask(UDM_SETPOS32, 0, 99999), 1500);
    EXPECT_EQ(it.Ask(UDM_GETPOS32), 2000);
    SetWindowTextW(it.field, TEXT("abc"));
    it.Ask(UDM_GETPOS32, 0, reinterpret_cast<LPARAM>(&failed));
    EXPECT_TRUE(failed);
    EXPECT_EQ(HIWORD(it.Ask(UDM_GETPOS)), 1);
    UDACCEL faster = {0, 5};
    EXPECT_TRUE(it.Ask(UDM_SETACCEL, 1, reinterpret_cast<LPARAM>(&faster)));
    it.Ask(UDM_SETPOS32, 0, 250);
    it.Press(true);
    EXPECT_EQ(TextOf(it.field), TEXT("255"));
    it.Ask(UDM_SETBASE, 16);
    EXPECT_EQ(TextOf(it.field), TEXT("0x00FF"));
    EXPECT_EQ(reinterpret_cast<HWND>(it.Ask(UDM_SETBUDDY, 0, 0)), it.field);
    it.Ask(UDM_SETPOS32, 0, 7);
    EXPECT_EQ(TextOf(it.field), TEXT("0x00FF"));

    FieldWithArrows plain(kBuddy | UDS_NOTHOUSANDS);
    plain.Ask(UDM_SETRANGE32, 0, 5000);
    plain.Ask(UDM_SETPOS32, 0, 1500);
    EXPECT_EQ(TextOf(plain.field), TEXT("1500"));
    // A new range leaves the field as it is.
    plain.Ask(UDM_SETRANGE32, 0, 1200);
    EXPECT_EQ(plain.Ask(UDM_GETPOS32), 1200);
    EXPECT_EQ(TextOf(plain.field), TEXT("1500"));
}

} // namespace
