// What happens when a window goes while the system waits in a loop of its own. (Wine ends the
// program then.)
#include <windows.h>

#include <win32host/user.h>

#include <gtest/gtest.h>

namespace {

TEST(OpenMenus, GoWithTheirOwner) {
    const HWND owner = CreateWindowExW(0, WC_DIALOG, nullptr, WS_POPUP | WS_VISIBLE, 0, 0, 400, 400,
                                       nullptr, nullptr, nullptr, nullptr);
    const HMENU menu = CreatePopupMenu();
    AppendMenuW(menu, MF_STRING, 1, TEXT("One"));
    win32host::WhenIdle([owner] { return DestroyWindow(owner) != FALSE; });
    EXPECT_EQ(TrackPopupMenu(menu, TPM_RETURNCMD, 1, 1, 0, owner, nullptr), 0);
    win32host::WhenIdle(nullptr);
    EXPECT_FALSE(EndMenu());
    EXPECT_TRUE(DestroyMenu(menu));
    EXPECT_EQ(win32host::CountWindows().windows, 0u);
}

} // namespace
