#include <windows.h>

#include <gtest/gtest.h>

TEST(WindowHandles, ThatNameNoWindowAreRefused) {
    EXPECT_FALSE(IsWindow(nullptr));
    EXPECT_FALSE(IsWindow(reinterpret_cast<HWND>(static_cast<UINT_PTR>(0x7770))));
    SetLastError(0);
    EXPECT_EQ(SendMessageW(reinterpret_cast<HWND>(static_cast<UINT_PTR>(0x7770)), WM_NULL, 0, 0), 0);
    EXPECT_EQ(GetLastError(), static_cast<DWORD>(ERROR_INVALID_WINDOW_HANDLE));
}
