// Windows, their messages and their relations.
#include "recorder.h"

#include <gtest/gtest.h>

#include <atomic>
#include <functional>
#include <future>
#include <thread>

namespace {

const Recorder::Wanted kLife = {{WM_NCCREATE, "nccreate"},  {WM_NCCALCSIZE, "nccalcsize"},
                                {WM_CREATE, "create"},      {WM_SIZE, "size"},
                                {WM_MOVE, "move"},          {WM_DESTROY, "destroy"},
                                {WM_NCDESTROY, "ncdestroy"}};

TEST(Windows, ThatDoNotExistAreRefused) {
    const auto made_up = reinterpret_cast<HWND>(static_cast<UINT_PTR>(0x7770));
    EXPECT_FALSE(IsWindow(nullptr));
    EXPECT_FALSE(IsWindow(made_up));
    SetLastError(0);
    EXPECT_EQ(SendMessageW(made_up, WM_NULL, 0, 0), 0);
    EXPECT_EQ(GetLastError(), static_cast<DWORD>(ERROR_INVALID_WINDOW_HANDLE));
    EXPECT_FALSE(CreateWindowExW(0, TEXT("no such class"), TEXT(""), 0, 0, 0, 1, 1, nullptr,
                                 nullptr, nullptr, nullptr));
    EXPECT_FALSE(CreateWindowExW(0, TEXT("Static"), TEXT(""), WS_CHILD, 0, 0, 1, 1, nullptr,
                                 nullptr, nullptr, nullptr));
    EXPECT_EQ(GetLastError(), static_cast<DWORD>(ERROR_TLW_WITH_WSCHILD));
}

TEST(Windows, AreToldOfTheirLifeInOrder) {
    Recorder parent({{WM_PARENTNOTIFY, "parentnotify"}});
    parent.Take();
    Recorder child(kLife, WS_CHILD, parent.Window());
    EXPECT_EQ(child.Take(), "nccreate nccalcsize create size move");
    EXPECT_EQ(parent.Take(), "parentnotify");
    DestroyWindow(child.Window());
    EXPECT_EQ(child.Take(), "destroy ncdestroy");
    EXPECT_EQ(parent.Take(), "parentnotify");
    EXPECT_FALSE(IsWindow(child.Window()));
}

TEST(Windows, TakeTheirChildrenWithThem) {
    Recorder parent(kLife);
    Recorder outer(kLife, WS_CHILD, parent.Window());
    Recorder inner(kLife, WS_CHILD, outer.Window());
    std::string order;
    const auto note = [&](const char* name) {
        return [&order, name](UINT message, WPARAM, LPARAM, LRESULT&) {
            if (message == WM_DESTROY) order += std::string(name) + "- ";
            if (message == WM_NCDESTROY) order += std::string(name) + "= ";
            return false;
        };
    };
    parent.handler = note("parent");
    outer.handler = note("outer");
    inner.handler = note("inner");
    DestroyWindow(parent.Window());
    EXPECT_EQ(order, "parent- outer- inner- inner= outer= parent= ");
}

TEST(Windows, KeepNumbersPropertiesAndTexts) {
    Recorder window({});
    const HWND handle = window.Window();
    EXPECT_EQ(SetWindowLongPtrW(handle, GWLP_ID, 0), 0);
    SetLastError(0);
    EXPECT_EQ(GetWindowLongPtrW(handle, 0), 0);
    EXPECT_EQ(GetLastError(), static_cast<DWORD>(ERROR_INVALID_INDEX));

    int here = 0;
    EXPECT_TRUE(SetPropW(handle, TEXT("Name"), &here));
    EXPECT_EQ(GetPropW(handle, TEXT("NAME")), &here);
    EXPECT_EQ(RemovePropW(handle, TEXT("name")), &here);
    EXPECT_EQ(GetPropW(handle, TEXT("Name")), nullptr);

    EXPECT_TRUE(SetWindowTextW(handle, TEXT("a longer text")));
    WCHAR buffer[8];
    EXPECT_EQ(GetWindowTextW(handle, buffer, 8), 7);
    EXPECT_EQ(std::basic_string<WCHAR>(buffer), TEXT("a longe"));
    EXPECT_EQ(GetWindowTextLengthW(handle), 13);
}

TEST(Windows, KnowParentsOwnersAndSiblings) {
    Recorder top({});
    Recorder first({}, WS_CHILD, top.Window());
    Recorder second({}, WS_CHILD, top.Window());
    Recorder popup({}, WS_POPUP, first.Window());
    EXPECT_EQ(GetParent(first.Window()), top.Window());
    EXPECT_EQ(GetParent(popup.Window()), top.Window()); // owned by what its owner is in
    EXPECT_EQ(GetWindow(popup.Window(), GW_OWNER), top.Window());
    EXPECT_EQ(GetWindow(top.Window(), GW_CHILD), first.Window());
    EXPECT_EQ(GetWindow(first.Window(), GW_HWNDNEXT), second.Window());
    EXPECT_EQ(GetWindow(second.Window(), GW_HWNDNEXT), nullptr);
    EXPECT_TRUE(IsChild(top.Window(), second.Window()));
    EXPECT_FALSE(IsChild(top.Window(), popup.Window()));
    EXPECT_EQ(GetAncestor(second.Window(), GA_ROOT), top.Window());
    SetWindowPos(second.Window(), HWND_TOP, 0, 0, 0, 0, SWP_NOMOVE | SWP_NOSIZE | SWP_NOACTIVATE);
    EXPECT_EQ(GetWindow(top.Window(), GW_CHILD), second.Window());
    SetWindowTextW(top.Window(), TEXT("only one of this name"));
    EXPECT_EQ(FindWindowW(TEXT("recorder"), TEXT("Only one of THIS name")), top.Window());
    EXPECT_EQ(FindWindowExW(top.Window(), second.Window(), TEXT("Recorder"), nullptr),
              first.Window());
    // Windows that are owned go with their owner.
    DestroyWindow(top.Window());
    EXPECT_FALSE(IsWindow(popup.Window()));
}

TEST(Windows, LieInTheirParents) {
    Recorder top({}, WS_POPUP);
    Recorder child({}, WS_CHILD | WS_BORDER, top.Window());
    SetWindowPos(top.Window(), nullptr, 100, 50, 400, 300, SWP_NOZORDER | SWP_NOACTIVATE);
    SetWindowPos(child.Window(), nullptr, 7, 9, 60, 40, SWP_NOZORDER | SWP_NOACTIVATE);
    RECT rect;
    GetWindowRect(child.Window(), &rect);
    EXPECT_EQ(rect.left, 107);
    EXPECT_EQ(rect.bottom, 99);
    GetClientRect(child.Window(), &rect);
    EXPECT_EQ(rect.right, 58);
    EXPECT_EQ(rect.bottom, 38);
    POINT point = {0, 0};
    MapWindowPoints(child.Window(), top.Window(), &point, 1);
    EXPECT_EQ(point.x, 8);
    EXPECT_EQ(point.y, 10);
}

TEST(Windows, ThatAreDisabledOrHiddenLoseTheFocus) {
    Recorder top({});
    Recorder child({{WM_SETFOCUS, "set"}, {WM_KILLFOCUS, "kill"}, {WM_ENABLE, "enable"}},
                   WS_CHILD | WS_VISIBLE, top.Window());
    ShowWindow(top.Window(), SW_SHOW);
    EXPECT_EQ(GetActiveWindow(), top.Window());
    SetFocus(child.Window());
    EXPECT_EQ(child.Take(), "set");
    EXPECT_FALSE(EnableWindow(child.Window(), FALSE));
    EXPECT_EQ(child.Take(), "kill enable");
    EXPECT_EQ(GetFocus(), nullptr);
    EXPECT_TRUE(EnableWindow(child.Window(), TRUE));
    child.Take();
    SetFocus(child.Window());
    EXPECT_EQ(child.Take(), "set");
    ShowWindow(child.Window(), SW_HIDE);
    EXPECT_EQ(child.Take(), "kill");
    EXPECT_EQ(GetFocus(), top.Window());
}

TEST(WindowMessages, AreDeliveredInTheirOrder) {
    Recorder window({{WM_APP, "app"}, {WM_APP + 1, "second"}, {WM_TIMER, "timer"}});
    PostMessageW(window.Window(), WM_APP, 0, 0);
    SendMessageW(window.Window(), WM_APP + 1, 0, 0);
    EXPECT_EQ(window.Take(), "second");
    PostMessageW(window.Window(), WM_APP + 1, 0, 0);
    MSG message;
    EXPECT_TRUE(PeekMessageW(&message, window.Window(), WM_APP + 1, WM_APP + 1, PM_NOREMOVE));
    DeliverMessages();
    EXPECT_EQ(window.Take(), "app second");
    PostQuitMessage(5);
    PostMessageW(window.Window(), WM_APP, 0, 0);
    EXPECT_TRUE(GetMessageW(&message, nullptr, 0, 0));
    EXPECT_EQ(message.message, static_cast<UINT>(WM_APP));
    EXPECT_FALSE(GetMessageW(&message, nullptr, 0, 0));
    EXPECT_EQ(message.wParam, 5u);
}

TEST(WindowMessages, OfOtherThreadsAreAnsweredByTheWindowsOwnThread) {
    Recorder window({});
    const DWORD own = GetCurrentThreadId();
    DWORD answered_by = 0;
    window.handler = [&](UINT message, WPARAM, LPARAM, LRESULT& answer) {
        if (message != WM_APP) return false;
        answered_by = GetCurrentThreadId();
        answer = 42;
        return true;
    };
    LRESULT answer = 0;
    std::thread other([&] {
        answer = SendMessageW(window.Window(), WM_APP, 0, 0);
        PostMessageW(window.Window(), WM_APP + 1, 0, 0);
    });
    MSG message;
    while (GetMessageW(&message, window.Window(), WM_APP + 1, WM_APP + 1) > 0 &&
           message.message != WM_APP + 1) {
    }
    other.join();
    EXPECT_EQ(answer, 42);
    EXPECT_EQ(answered_by, own);
}

std::string g_hooked;
HHOOK g_outer = nullptr;
HHOOK g_inner = nullptr;

LRESULT CALLBACK OuterHook(int code, WPARAM first, LPARAM second) {
    if (reinterpret_cast<const CWPSTRUCT*>(second)->message == WM_APP) g_hooked += "outer ";
    return CallNextHookEx(g_outer, code, first, second);
}

LRESULT CALLBACK InnerHook(int code, WPARAM first, LPARAM second) {
    if (reinterpret_cast<const CWPSTRUCT*>(second)->message == WM_APP) {
        g_hooked += "inner ";
        UnhookWindowsHookEx(g_inner);
    }
    return CallNextHookEx(g_inner, code, first, second);
}

TEST(WindowHooks, SeeWhatIsSentAndMayGoWhileTheyRun) {
    Recorder window({});
    g_outer = SetWindowsHookExW(WH_CALLWNDPROC, OuterHook, nullptr, GetCurrentThreadId());
    g_inner = SetWindowsHookExW(WH_CALLWNDPROC, InnerHook, nullptr, GetCurrentThreadId());
    ASSERT_TRUE(g_outer);
    ASSERT_TRUE(g_inner);
    g_hooked.clear();
    SendMessageW(window.Window(), WM_APP, 0, 0);
    EXPECT_EQ(g_hooked, "inner outer ");
    SendMessageW(window.Window(), WM_APP, 0, 0);
    EXPECT_EQ(g_hooked, "inner outer outer ");
    EXPECT_FALSE(UnhookWindowsHookEx(g_inner));
    EXPECT_TRUE(UnhookWindowsHookEx(g_outer));
}

TEST(WindowOfAnotherThread, IsChangedByThatThreadAndHasItsFocus) {
    static std::atomic<DWORD> told_in;
    std::promise<HWND> made;
    std::thread other([&] {
        WNDCLASSW window_class = {};
        window_class.lpszClassName = TEXT("other thread's");
        window_class.lpfnWndProc = [](HWND window, UINT message, WPARAM first, LPARAM second) {
            if (message == WM_WINDOWPOSCHANGED || message == WM_ENABLE)
                told_in = GetCurrentThreadId();
            if (message == WM_DESTROY) PostQuitMessage(0);
            return DefWindowProcW(window, message, first, second);
        };
        RegisterClassW(&window_class);
        made.set_value(CreateWindowExW(0, window_class.lpszClassName, TEXT(""), WS_POPUP, 0, 0, 50,
                                       50, nullptr, nullptr, nullptr, nullptr));
        MSG message;
        while (GetMessageW(&message, nullptr, 0, 0) > 0) DispatchMessageW(&message);
    });
    const HWND window = made.get_future().get();
    const DWORD thread = GetWindowThreadProcessId(window, nullptr);
    EXPECT_NE(thread, GetCurrentThreadId());
    const std::function<void()> changes[] = {
        [&] { SetWindowPos(window, nullptr, 7, 8, 0, 0, SWP_NOSIZE | SWP_NOZORDER); },
        [&] { ShowWindow(window, SW_SHOW); }, [&] { EnableWindow(window, FALSE); }};
    for (const auto& change : changes) {
        told_in = 0;
        change();
        EXPECT_EQ(told_in, thread);
    }
    RECT place = {};
    EXPECT_TRUE(GetWindowRect(window, &place) && place.left == 7 && place.top == 8);
    EXPECT_TRUE(IsWindowVisible(window) && !IsWindowEnabled(window));
    EXPECT_EQ(SetFocus(window), nullptr);
    EXPECT_NE(GetFocus(), window);
    EXPECT_NE(GetActiveWindow(), window);
    PostMessageW(window, WM_CLOSE, 0, 0);
    other.join();
}

} // namespace
