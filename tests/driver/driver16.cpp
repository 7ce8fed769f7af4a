#include "driver/driver16.h"

#include <gtest/gtest.h>

#include <chrono>
#include <future>

#include "core/obuffer.h"
#include "registry/oregistry.h"

namespace {

constexpr const WCHAR* kInitialized = TEXT("X16:Initialized");
constexpr const WCHAR* kApplying = TEXT("X16:Applying");
constexpr const WCHAR* kDestroying = TEXT("X16:Destroying");
constexpr const WCHAR* kSibling = TEXT("X16:Sibling");
const HANDLE kSet = reinterpret_cast<HANDLE>(INT_PTR{1});

constexpr int kCountMissing = 999;
int TemplateCount() {
    return static_cast<int>(ORegistry().GetDWORD("LOCAL:X16/Launch/Template Count", kCountMissing));
}

HWND NewWindow(const WCHAR* name, const WCHAR* title, WNDPROC procedure) {
    WNDCLASSW window_class = {};
    window_class.lpfnWndProc = procedure;
    window_class.lpszClassName = name;
    window_class.hInstance = GetModuleHandleW(nullptr);
    RegisterClassW(&window_class);
    return CreateWindowExW(0, name, title, WS_POPUP, 0, 0, 0, 0, nullptr, nullptr,
                           window_class.hInstance, nullptr);
}

} // namespace

Driver16::Driver16(const WCHAR* channel, const WCHAR* printer, bool has_sheet,
                   std::function<void(Driver16&)> user, bool leaves)
    : channel_name_(channel)
    , printer_(printer)
    , has_sheet_(has_sheet)
    , leaves_(leaves)
    , user_(std::move(user)) {
    current = this;
    ORegistry().Delete("LOCAL:X16/Launch", true);
    probe_ = NewWindow(TEXT("X16_Probe"), TEXT("probe"), ProbeProcedure);
    std::promise<void> ready;
    thread_ = std::thread([&] {
        channel_ = NewWindow(TEXT("X16_Channel"), channel_name_, ChannelProcedure);
        ready.set_value();
        Run();
    });
    ready.get_future().wait();
}

void Driver16::Join() {
    if (thread_.joinable()) thread_.join();
}

Driver16::~Driver16() {
    Join();
    DestroyWindow(probe_);
    current = nullptr;
}

void Driver16::Run() {
    Wait([&] { return started != 0; });
    if (has_sheet_) {
        Wait([&] { return TemplateCount() != kCountMissing; });
        MakeSheet();
        // The module gives the sheet the focus at the end of its preparations.
        Wait([&] { return focused_ != 0; });
        Pair();
        LetItWork();
    }
    if (user_) user_(*this);
    if (!leaves_) Wait([&] { return ended != 0; });
    if (sheet_) DestroyWindow(sheet_);
    DestroyWindow(channel_);
}

void Driver16::Wait(const std::function<bool()>& until) {
    constexpr int kLongest = 60; // seconds; reached only by a failure
    const auto end = std::chrono::steady_clock::now() + std::chrono::seconds(kLongest);
    const UINT_PTR timer = SetTimer(nullptr, 0, 10, nullptr);
    MSG message;
    while (!until()) {
        if (std::chrono::steady_clock::now() > end) {
            ADD_FAILURE() << "the module does not go on";
            std::abort();
        }
        if (GetMessageW(&message, nullptr, 0, 0) <= 0) break;
        if (!sheet_ ||
            !SendMessageW(sheet_, PSM_ISDIALOGMESSAGE, 0, reinterpret_cast<LPARAM>(&message)))
            DispatchMessageW(&message);
        if (sheet_ && !Page(sheet_)) { // closed by its user
            DestroyWindow(sheet_);
            sheet_ = nullptr;
        }
    }
    KillTimer(nullptr, timer);
}

void Driver16::LetItWork() {
    const int before = probed_;
    PostMessageW(probe_, WM_APP, 0, 0);
    Wait([&] { return probed_ != before; });
}

HWND Driver16::Await() {
    HWND found = nullptr;
    const auto look = [](HWND window, LPARAM parameter) -> BOOL {
        if (!Tabs(window) || !IsWindowVisible(window)) return TRUE;
        *reinterpret_cast<HWND*>(parameter) = window;
        return FALSE;
    };
    Wait([&] {
        EnumWindows(look, reinterpret_cast<LPARAM>(&found));
        return found != nullptr;
    });
    LetItWork();
    return found;
}

// ---- The sheet ----------------------------------------------------------------------------------

void Driver16::MakeSheet() {
    constexpr DWORD kStyle = WS_CHILD | WS_CAPTION;
    pages_.emplace_back(false, kStyle, 0, 0, 220, 120, TEXT("Allgemein"));
    pages_.back().Add(TEXT("Static"), printer_, 1001, 0, 5, 5, 80, 10);
    pages_.back().Add(TEXT("Edit"), TEXT(""), 1017, WS_TABSTOP, 5, 20, 80, 12);
    for (const WCHAR* title : {TEXT(""), TEXT("Freigabe")}) {
        pages_.emplace_back(false, kStyle, 0, 0, 220, 120, title);
        pages_.back().Add(TEXT("Edit"), TEXT(""), 100, WS_TABSTOP, 5, 20, 80, 12);
    }
    ORegistry registry;
    for (int i = 0; i < TemplateCount(); ++i) {
        const OString name = OString("LOCAL:X16/Launch/Template") << i;
        OBuffer<char> bytes(static_cast<uint32_t>(registry.GetSize(name)));
        registry.GetBinary(name, bytes.GetData(), bytes.GetSize());
        // Style, number of controls, place and size, no menu, no class, title.
        constexpr uint32_t kTitle = 4 + 1 + 8 + 1 + 1;
        ASSERT_GT(bytes.GetSize(), kTitle);
        EXPECT_EQ(bytes[4], 0) << "no controls";
        titles.push_back(bytes.GetData() + kTitle);
        pages_.emplace_back(false, kStyle, 0, 0, 220, 120,
                            OString(titles.back().c_str()).wstring());
    }
    std::vector<HPROPSHEETPAGE> handles;
    for (const DialogBuilder& page : pages_) {
        PROPSHEETPAGEW record = {};
        record.dwSize = sizeof record;
        record.dwFlags = PSP_DLGINDIRECT;
        record.pResource = page.Get();
        record.pfnDlgProc = PageProcedure;
        record.lParam = static_cast<LPARAM>(handles.size());
        handles.push_back(CreatePropertySheetPageW(&record));
    }
    PROPSHEETHEADERW header = {};
    header.dwSize = sizeof header;
    header.dwFlags = PSH_MODELESS | PSH_PROPTITLE;
    header.pszCaption = printer_;
    header.nPages = static_cast<UINT>(handles.size());
    header.phpage = handles.data();
    const auto sheet = reinterpret_cast<HWND>(PropertySheetW(&header));
    sheet_procedure_ = reinterpret_cast<WNDPROC>(
        SetWindowLongPtrW(sheet, GWLP_WNDPROC, reinterpret_cast<LONG_PTR>(SheetProcedure)));
    SetWindowPos(sheet, nullptr, 40, 30, 0, 0, SWP_NOSIZE | SWP_NOZORDER | SWP_NOACTIVATE);
    sheet_ = sheet;
}

// Finds the module's sheet, whose title is the same.
void Driver16::Pair() {
    WCHAR title[200] = {};
    GetWindowTextW(sheet_, title, 200);
    SetWindowTextW(sheet_, TEXT("aside"));
    SetPropW(sheet_, kSibling, FindWindowW(nullptr, title));
    SetWindowTextW(sheet_, title);
}

void Driver16::ShowOthers(int tab) {
    const HWND theirs = others();
    RECT place;
    SendMessageW(theirs, PSM_SETCURSEL, static_cast<WPARAM>(tab), 0);
    GetWindowRect(sheet_, &place);
    SetWindowPos(theirs, nullptr, place.left, place.top, 0, 0, SWP_NOSIZE | SWP_NOZORDER);
    ShowWindow(theirs, SW_SHOW);
    ShowWindow(sheet_, SW_HIDE);
    EnableWindow(theirs, TRUE);
    EnableWindow(sheet_, FALSE);
}

// A page is told something; the first one speaks for the sheet.
LRESULT Driver16::Told(WPARAM page, UINT code) {
    if (!sheet_) return 0; // while it is being made
    const HWND theirs = others();
    if (code == PSN_SETACTIVE && page >= OWN_TABS && theirs) ShowOthers(static_cast<int>(page));
    if (page != GENERAL) return 0;
    if (code == PSN_APPLY) {
        ++applied;
        if (theirs && !GetPropW(theirs, kApplying)) {
            SetPropW(sheet_, kApplying, kSet);
            SendMessageW(theirs, PSM_APPLY, 0, 0);
            RemovePropW(sheet_, kApplying);
        }
    }
    if (code == PSN_RESET) closed_by_others_ = theirs && GetPropW(theirs, kDestroying);
    return 0;
}

INT_PTR CALLBACK Driver16::PageProcedure(HWND page, UINT message, WPARAM, LPARAM second) {
    const auto number = static_cast<WPARAM>(GetWindowLongPtrW(page, GWLP_USERDATA));
    Driver16& self = *current;
    if (message == WM_INITDIALOG)
        SetWindowLongPtrW(page, GWLP_USERDATA,
                          reinterpret_cast<const PROPSHEETPAGEW*>(second)->lParam);
    if (message == WM_NOTIFY)
        SetWindowLongPtrW(page, DWLP_MSGRESULT,
                          self.Told(number, reinterpret_cast<const NMHDR*>(second)->code));
    if (message == WM_DESTROY && number == GENERAL && self.sheet_ && !self.closed_by_others_) {
        const HWND theirs = self.others();
        if (theirs && IsWindow(theirs) && !GetPropW(theirs, kDestroying)) {
            SetPropW(self.sheet_, kDestroying, kSet);
            SendMessageW(theirs, WM_CLOSE, 0, 0);
            RemovePropW(self.sheet_, kDestroying);
        }
    }
    return message == WM_NOTIFY;
}

LRESULT CALLBACK Driver16::SheetProcedure(HWND window, UINT message, WPARAM first, LPARAM second) {
    Driver16& self = *current;
    self.asked_to_apply += message == PSM_APPLY;
    self.asked_to_close += message == WM_CLOSE;
    const LRESULT answer = CallWindowProcW(self.sheet_procedure_, window, message, first, second);
    self.focused_ += message == WM_NEXTDLGCTL;
    return answer;
}

LRESULT CALLBACK Driver16::ChannelProcedure(HWND window, UINT message, WPARAM first,
                                            LPARAM second) {
    Driver16& self = *current;
    switch (message) {
    case WM_USER + 1:
        ++self.started;
        break;
    case WM_USER + 2:
        self.changed_defaults = first;
        ++self.changed;
        break;
    case WM_USER + 3:
        self.ended_with = first;
        ++self.ended;
        break;
    case WM_APP:
        ++self.probed_;
        break;
    default:
        break;
    }
    return DefWindowProcW(window, message, first, second);
}

LRESULT CALLBACK Driver16::ProbeProcedure(HWND window, UINT message, WPARAM first, LPARAM second) {
    if (message == WM_APP) PostMessageW(current->channel_, WM_APP, 0, 0);
    return DefWindowProcW(window, message, first, second);
}

// ---- For the user -------------------------------------------------------------------------------

HWND Driver16::Tabs(HWND sheet) {
    return reinterpret_cast<HWND>(SendMessageW(sheet, PSM_GETTABCONTROL, 0, 0));
}

HWND Driver16::Page(HWND sheet) {
    return reinterpret_cast<HWND>(SendMessageW(sheet, PSM_GETCURRENTPAGEHWND, 0, 0));
}

int Driver16::Tab(HWND sheet) {
    return static_cast<int>(SendMessageW(Tabs(sheet), TCM_GETCURSEL, 0, 0));
}

int Driver16::TabCount(HWND sheet) {
    return static_cast<int>(SendMessageW(Tabs(sheet), TCM_GETITEMCOUNT, 0, 0));
}

void Driver16::Click(HWND sheet, int tab) {
    RECT place = {};
    const HWND tabs = Tabs(sheet);
    SendMessageW(tabs, TCM_GETITEMRECT, static_cast<WPARAM>(tab), reinterpret_cast<LPARAM>(&place));
    const LPARAM middle =
        MAKELPARAM((place.left + place.right) / 2, (place.top + place.bottom) / 2);
    SendMessageW(tabs, WM_LBUTTONDOWN, MK_LBUTTON, middle);
    SendMessageW(tabs, WM_LBUTTONUP, 0, middle);
}

std::string Driver16::TextOf(HWND window) {
    WCHAR text[200] = {};
    GetWindowTextW(window, text, 200);
    return OString(text).nstring();
}
