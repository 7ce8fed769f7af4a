// Message boxes where Wine differs from Windows, and those that nobody sees.
#include "user_steps.h"

#include <win32host/control.h>
#include <win32host/user.h>

#include <gtest/gtest.h>

namespace {

TEST(MessageBoxes, AreLeftByEscOnlyWhereThatMeansSomething) {
    const auto escape = [](HWND box) { PostMessageW(box, WM_COMMAND, IDCANCEL, 0); };
    {
        UserSteps user({escape});
        EXPECT_EQ(MessageBoxW(nullptr, u"a", u"b", MB_OK), IDOK);
    }
    for (const UINT type : {MB_YESNO, MB_ABORTRETRYIGNORE}) {
        UserSteps user({escape, [](HWND box) { PostMessageW(box, WM_CLOSE, 0, 0); },
                        [type](HWND box) {
                            EXPECT_TRUE(box) << "still open";
                            PostMessageW(box, WM_COMMAND, type == MB_YESNO ? IDNO : IDRETRY, 0);
                        }});
        EXPECT_EQ(MessageBoxW(nullptr, u"a", u"b", type), type == MB_YESNO ? IDNO : IDRETRY);
    }
    EXPECT_EQ(win32host::CountWindows().windows, 0u);
}

TEST(MessageBoxes, AreNotedAndAnsweredWithoutAUser) {
    win32host::ResetControl();
    EXPECT_EQ(MessageBoxW(nullptr, u"text", nullptr, MB_YESNOCANCEL), IDCANCEL);
    EXPECT_EQ(MessageBoxW(nullptr, nullptr, u"title", MB_YESNO | MB_ICONWARNING), IDNO);
    win32host::AnswerMessageBoxes(IDYES);
    EXPECT_EQ(MessageBoxW(nullptr, u"a", u"b", MB_YESNO), IDYES);
    const auto shown = win32host::TakeMessageBoxes();
    ASSERT_EQ(shown.size(), 3u);
    EXPECT_EQ(shown[0].caption, u"Error");
    EXPECT_EQ(shown[1].type, UINT(MB_YESNO | MB_ICONWARNING));
    win32host::ResetControl();
}

} // namespace
