// Message boxes as windows.
#include "recorder.h"
#include "user_steps.h"

#include <gtest/gtest.h>

namespace {

constexpr int kBoxText = 0xFFFF;

// "title|text|buttons|focus", the button that Enter presses in brackets.
std::string DescribeBox(HWND box) {
    std::string all = NarrowText(box) + "|" + NarrowText(GetDlgItem(box, kBoxText)) + "|";
    for (HWND child = GetWindow(box, GW_CHILD); child; child = GetWindow(child, GW_HWNDNEXT)) {
        WCHAR name[20] = {};
        GetClassNameW(child, name, 20);
        if (lstrcmpiW(name, TEXT("Button")) != 0) continue;
        const int id = GetDlgCtrlID(child);
        const std::string text = std::to_string(id) + NarrowText(child);
        const bool is_default =
            (GetWindowLongPtrW(child, GWL_STYLE) & BS_TYPEMASK) == BS_DEFPUSHBUTTON;
        all += is_default ? "[" + text + "]" : " " + text + " ";
    }
    return all + "|" + std::to_string(GetDlgCtrlID(GetFocus()));
}

TEST(MessageBoxes, HaveTheirTypesButtons) {
    Recorder owner({});
    const struct {
        UINT type;
        const char* buttons;
        int press;
    } cases[] = {
        {MB_OK, "[1OK]|1", IDOK},
        {MB_OKCANCEL, "[1OK] 2Cancel |1", IDCANCEL},
        {MB_ABORTRETRYIGNORE, "[3&Abort] 4&Retry  5&Ignore |3", IDIGNORE},
        {MB_YESNOCANCEL | MB_DEFBUTTON2, " 6&Yes [7&No] 2Cancel |7", IDNO},
        {MB_YESNO | MB_ICONQUESTION, "[6&Yes] 7&No |6", IDYES},
        {MB_RETRYCANCEL | MB_ICONERROR, "[4&Retry] 2Cancel |4", IDRETRY},
    };
    for (const auto& one : cases) {
        std::string shown;
        UserSteps user(
            {[&](HWND box) {
                 shown = DescribeBox(box);
                 EXPECT_EQ(GetWindow(box, GW_OWNER), owner.Window());
                 EXPECT_FALSE(IsWindowEnabled(owner.Window()));
             },
             [&](HWND box) { PostMessageW(box, WM_COMMAND, static_cast<WPARAM>(one.press), 0); }});
        EXPECT_EQ(MessageBoxW(owner.Window(), TEXT("a text"), TEXT("A title"), one.type),
                  one.press);
        EXPECT_EQ(shown, std::string("A title|a text|") + one.buttons);
        EXPECT_TRUE(IsWindowEnabled(owner.Window()));
    }
}

TEST(MessageBoxes, ListenToTheKeyboard) {
    const auto key = [](WPARAM pressed) {
        return [pressed](HWND) { PostMessageW(GetFocus(), WM_KEYDOWN, pressed, 1); };
    };
    const auto letter = [](WPARAM typed) {
        return [typed](HWND) { PostMessageW(GetFocus(), WM_CHAR, typed, 1); };
    };
    const struct {
        UINT type;
        UserSteps::Step step;
        int answer;
    } cases[] = {
        {MB_YESNO | MB_DEFBUTTON2, key(VK_RETURN), IDNO},
        {MB_YESNOCANCEL, key(VK_ESCAPE), IDCANCEL},
        {MB_YESNO, letter('n'), IDNO},
        {MB_ABORTRETRYIGNORE, letter('i'), IDIGNORE},
        {MB_OKCANCEL, [](HWND box) { PostMessageW(box, WM_CLOSE, 0, 0); }, IDCANCEL},
    };
    for (const auto& one : cases) {
        UserSteps user({one.step});
        EXPECT_EQ(MessageBoxW(nullptr, TEXT("a text"), nullptr, one.type), one.answer);
    }
}

} // namespace
