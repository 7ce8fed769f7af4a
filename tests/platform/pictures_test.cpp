// Pictures of windows.
#include <windows.h>

#include <win32host/fault_control.h>
#include <win32host/picture.h>

#include <gtest/gtest.h>

#include <string>

namespace {

constexpr COLORREF kRed = RGB(255, 0, 0);
constexpr COLORREF kGreen = RGB(0, 255, 0);

// Fills its client area and more with the colour in its user data.
LRESULT CALLBACK Painted(HWND window, UINT message, WPARAM first, LPARAM second) {
    if (message != WM_PAINT) return DefWindowProcW(window, message, first, second);
    PAINTSTRUCT paint;
    const HDC dc = BeginPaint(window, &paint);
    const HBRUSH brush =
        CreateSolidBrush(static_cast<COLORREF>(GetWindowLongPtrW(window, GWLP_USERDATA)));
    const RECT all = {-50, -50, 500, 500};
    FillRect(dc, &all, brush);
    DeleteObject(brush);
    EndPaint(window, &paint);
    return 0;
}

HWND Make(const WCHAR* of_class, DWORD style, int x, int y, int width, int height, HWND parent,
          COLORREF color) {
    const HWND window = CreateWindowExW(0, of_class, TEXT(""), style, x, y, width, height, parent,
                                        nullptr, nullptr, nullptr);
    EXPECT_NE(window, nullptr);
    SetWindowLongPtrW(window, GWLP_USERDATA, static_cast<LONG_PTR>(color));
    return window;
}

COLORREF At(const win32host::Picture& picture, int x, int y) {
    const size_t at = static_cast<size_t>(y * picture.width + x) * 3;
    return RGB(picture.rgb[at], picture.rgb[at + 1], picture.rgb[at + 2]);
}

class Pictures : public ::testing::Test {
protected:
    void SetUp() override {
        WNDCLASSW painted = {};
        painted.lpfnWndProc = Painted;
        painted.hbrBackground = reinterpret_cast<HBRUSH>(COLOR_WINDOW + 1);
        painted.lpszClassName = TEXT("painted");
        ASSERT_NE(RegisterClassW(&painted), 0);
    }
    void TearDown() override {
        win32host::SetScreenDpi(96);
        EXPECT_TRUE(UnregisterClassW(TEXT("painted"), nullptr));
    }
};

} // namespace

TEST_F(Pictures, ShowVisibleWindowsInTheirPlacesAndNoFurther) {
    constexpr DWORD kChild = WS_CHILD | WS_VISIBLE;
    const HWND top = Make(TEXT("painted"), WS_POPUP, 300, 200, 60, 40, nullptr, kRed);
    const HWND inner = Make(TEXT("painted"), kChild, 10, 10, 20, 20, top, kGreen);
    Make(TEXT("painted"), kChild, 15, 5, 20, 10, inner, RGB(0, 0, 255));
    Make(TEXT("painted"), WS_CHILD, 0, 0, 60, 40, top, RGB(1, 1, 1)); // hidden
    const win32host::Picture picture = win32host::PictureOf(top);
    ASSERT_EQ(picture.width, 60);
    ASSERT_EQ(picture.height, 40);
    const struct {
        int x, y;
        COLORREF color;
    } cases[] = {
        {0, 0, kRed},     {9, 9, kRed},   {10, 10, kGreen},         {29, 14, kGreen},
        {29, 29, kGreen}, {30, 29, kRed}, {25, 15, RGB(0, 0, 255)}, {29, 24, RGB(0, 0, 255)},
        {30, 20, kRed},   {59, 39, kRed},
    };
    for (const auto& c : cases) EXPECT_EQ(At(picture, c.x, c.y), c.color) << c.x << ' ' << c.y;
    DestroyWindow(top);
    EXPECT_EQ(win32host::PictureOf(top).width, 0);
}

TEST_F(Pictures, HaveGroupBoxesBelowTheControlsInThem) {
    const HWND top = Make(TEXT("painted"), WS_POPUP, 0, 0, 60, 40, nullptr, kRed);
    Make(TEXT("painted"), WS_CHILD | WS_VISIBLE, 0, 10, 60, 40, top, kGreen);
    // It was made last, but the windows that were made first lie on top.
    const HWND box =
        Make(TEXT("Button"), WS_CHILD | WS_VISIBLE | BS_GROUPBOX, 0, 0, 60, 40, top, 0);
    SetWindowPos(box, HWND_TOP, 0, 0, 0, 0, SWP_NOMOVE | SWP_NOSIZE);
    const win32host::Picture picture = win32host::PictureOf(top);
    for (int x = 0; x < 60; ++x) EXPECT_EQ(At(picture, x, 39), kGreen) << "covers the frame";
    DestroyWindow(top);
}

TEST_F(Pictures, HaveFramesAtTheResolutionOfTheScreen) {
    for (const int dpi : {96, 192}) {
        win32host::SetScreenDpi(dpi);
        RECT rect = {0, 0, 200, 100};
        const DWORD style = WS_POPUP | WS_CAPTION | WS_SYSMENU;
        AdjustWindowRectEx(&rect, style, FALSE, 0);
        const HWND top = Make(TEXT("painted"), style, 0, 0, rect.right - rect.left,
                              rect.bottom - rect.top, nullptr, kRed);
        const win32host::Picture picture = win32host::PictureOf(top);
        ASSERT_EQ(picture.height, rect.bottom - rect.top);
        EXPECT_EQ(-rect.top * 96 / dpi, 29) << "border and caption";
        EXPECT_NE(At(picture, -rect.left, -rect.top - 1), kRed);
        EXPECT_EQ(At(picture, -rect.left, -rect.top), kRed);
        EXPECT_EQ(At(picture, -rect.left + 199, -rect.top + 99), kRed);
        EXPECT_NE(At(picture, -rect.left + 200, -rect.top + 99), kRed);
        // The cross of the close box is dark on the light bar.
        bool has_cross = false;
        for (int x = picture.width - 40 * dpi / 96; x < picture.width - 5 * dpi / 96; ++x)
            has_cross |= GetGValue(At(picture, x, 16 * dpi / 96)) < 128;
        EXPECT_TRUE(has_cross);
        DestroyWindow(top);
    }
}

TEST_F(Pictures, LeaveNothingOpen) {
    const HWND top = Make(TEXT("painted"), WS_POPUP | WS_CAPTION, 0, 0, 300, 200, nullptr, kRed);
    int x = 0;
    for (const WCHAR* control : {TEXT("Button"), TEXT("Edit"), TEXT("Static"), TEXT("ComboBox"),
                                 TEXT("ListBox"), TEXT("ScrollBar")})
        Make(control, WS_CHILD | WS_VISIBLE, x += 20, 0, 20, 20, top, 0);
    EXPECT_GT(win32host::PictureOf(top).width, 0);
    const size_t before = win32host::OpenHandles();
    for (int i = 0; i < 20; ++i) EXPECT_GT(win32host::PictureOf(top).width, 0);
    EXPECT_EQ(win32host::OpenHandles(), before);
    DestroyWindow(top);
}
