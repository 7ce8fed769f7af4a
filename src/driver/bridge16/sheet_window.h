// A property sheet as other windows see it.
#pragma once

#include <windows.h>

// The marks that the two sheets of the bridge carry. They are properties of the windows, so that
// the 16-bit driver sees them too; it knows their names.
inline constexpr const WCHAR* kSibling = TEXT("X16:Sibling"); // the other sheet
inline constexpr const WCHAR* kInitialized = TEXT("X16:Initialized");
inline constexpr const WCHAR* kApplying = TEXT("X16:Applying");
inline constexpr const WCHAR* kDestroying = TEXT("X16:Destroying");

// Refers to the window and does not own it. The sheet may belong to another thread or program.
// Without a window, or after it was destroyed, questions answer null, 0 or false, and nothing is
// done.
class SheetWindow {
public:
    SheetWindow() = default;
    explicit SheetWindow(HWND window)
        : window_(window) {}

    HWND Get() const { return window_; }
    bool Exists() const { return window_ && IsWindow(window_); }

    // The tab control. Null for a window that is no sheet.
    HWND Tabs() const;
    int TabCount() const;
    // From 0; -1 for none.
    int CurrentTab() const;
    void Select(int tab) const;
    // The window of the page that is shown.
    HWND CurrentPage() const;

    // Moves the sheet to the place of another on the screen and leaves its size, its place among
    // the windows and whether it is shown.
    void MoveTo(const SheetWindow& other) const;
    // Shows the sheet, or hides it.
    void Show(bool show) const;
    void Enable(bool enable) const;

    // A mark's value, or null; to set it, and to remove it.
    HANDLE GetMark(const WCHAR* mark) const;
    bool IsMarked(const WCHAR* mark) const { return GetMark(mark) != nullptr; }
    void SetMark(const WCHAR* mark, HANDLE value = reinterpret_cast<HANDLE>(INT_PTR{1})) const;
    void RemoveMark(const WCHAR* mark) const;

private:
    LRESULT Send(UINT message, WPARAM first = 0, LPARAM second = 0) const;

    HWND window_ = nullptr;
};

// Keeps a sheet from being drawn, for as long as an object lives. One that is not shown is left
// alone, as it would appear.
class WithoutRedrawing {
public:
    explicit WithoutRedrawing(const SheetWindow& sheet);
    ~WithoutRedrawing();
    WithoutRedrawing(const WithoutRedrawing&) = delete;
    WithoutRedrawing& operator=(const WithoutRedrawing&) = delete;

private:
    HWND window_;
};
