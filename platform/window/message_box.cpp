// Message boxes: windows while there is a user, else noted and answered at once.
#include "host/guarded.h"
#include "host/text.h"
#include "locale/facts.h"
#include "locale/system_texts.h"
#include "window/look.h"
#include "window/system_dialogs.h"

#include <win32host/user.h>

#include <algorithm>
#include <iterator>
#include <mutex>
#include <optional>
#include <utility>

namespace win32host {
namespace {

std::mutex g_answers_lock;
std::optional<int> g_answer;
std::vector<ShownMessageBox> g_shown;

int CarefulAnswer(UINT type) {
    switch (type & MB_TYPEMASK) {
    case MB_OK:
        return IDOK;
    case MB_YESNO:
        return IDNO;
    case MB_ABORTRETRYIGNORE:
        return IDABORT;
    default:
        return IDCANCEL;
    }
}

// ---- The window ---------------------------------------------------------------------------------

// Measures at 96 dpi.
constexpr int kBoxMargin = 12;
constexpr int kIconSide = 32;
constexpr int kButtonWidth = 75; // at least
constexpr int kButtonHeight = 23;
constexpr int kButtonGap = 8;
constexpr int kButtonPadding = 20; // of a button's width, beyond its text
constexpr int kTextWidth = 400;    // at most, where words can be broken
constexpr int kCaptionExtra = 48;  // beside a title, for the close box

constexpr int kIconId = 1088;
constexpr int kBoxTextId = 0xFFFF;

struct BoxButton {
    int id;
    const char16_t* text;
};

constexpr BoxButton kOk = {IDOK, u"OK"}, kCancel = {IDCANCEL, u"Cancel"}, kYes = {IDYES, u"&Yes"},
                    kNo = {IDNO, u"&No"}, kAbort = {IDABORT, u"&Abort"},
                    kRetry = {IDRETRY, u"&Retry"}, kIgnore = {IDIGNORE, u"&Ignore"};

std::vector<BoxButton> ButtonsOf(UINT type) {
    switch (type & MB_TYPEMASK) {
    case MB_OKCANCEL:
        return {kOk, kCancel};
    case MB_ABORTRETRYIGNORE:
        return {kAbort, kRetry, kIgnore};
    case MB_YESNOCANCEL:
        return {kYes, kNo, kCancel};
    case MB_YESNO:
        return {kYes, kNo};
    case MB_RETRYCANCEL:
        return {kRetry, kCancel};
    default:
        return {kOk};
    }
}

LPCWSTR IconOf(UINT type) {
    switch (type & MB_ICONMASK) {
    case MB_ICONHAND:
        return IDI_HAND;
    case MB_ICONQUESTION:
        return IDI_QUESTION;
    case MB_ICONEXCLAMATION:
        return IDI_EXCLAMATION;
    case MB_ICONASTERISK:
        return IDI_ASTERISK;
    default:
        return nullptr;
    }
}

struct Box {
    const std::u16string& text;
    const std::u16string& caption;
    UINT type;
    std::vector<BoxButton> buttons;
    size_t default_button;

    bool Has(int id) const {
        return std::any_of(buttons.begin(), buttons.end(),
                           [id](const BoxButton& button) { return button.id == id; });
    }
    // Esc and the close box work where there is something that they can mean.
    bool CanBeLeft() const { return Has(IDCANCEL) || buttons.size() == 1; }
};

// The controls get their places when the sizes of their texts are known.
DialogTemplate TemplateOf(const Box& box) {
    const auto system_menu = static_cast<DWORD>(box.CanBeLeft() ? WS_SYSMENU : 0);
    DialogTemplate made = SystemDialog(box.caption, 0, 0, system_menu);
    if (IconOf(box.type)) AddControl(made, kStaticClass, kIconId, u"", SS_ICON, {});
    for (size_t i = 0; i < box.buttons.size(); ++i)
        AddSystemControl(
            made, kButtonClass, box.buttons[i].id, box.buttons[i].text,
            WS_TABSTOP | static_cast<DWORD>(i == 0 ? WS_GROUP : 0) |
                static_cast<DWORD>(i == box.default_button ? BS_DEFPUSHBUTTON : BS_PUSHBUTTON),
            {});
    AddControl(made, kStaticClass, kBoxTextId, box.text, WS_GROUP | SS_LEFT | SS_NOPREFIX, {});
    return made;
}

// Places the controls around the text and the box in the middle of the screen.
void Arrange(HWND dialog, const Box& box) {
    const HDC dc = GetDC(dialog);
    const HGDIOBJ before =
        SelectObject(dc, reinterpret_cast<HGDIOBJ>(SendMessageW(dialog, WM_GETFONT, 0, 0)));
    const auto scaled = [dc](int size) { return look::Scaled(dc, size); };
    const int margin = scaled(kBoxMargin);
    const int gap = scaled(kButtonGap);
    const int button_height = scaled(kButtonHeight);
    const int icon = IconOf(box.type) ? scaled(kIconSide) : 0;

    RECT text = {0, 0, scaled(kTextWidth), 0};
    if (!box.text.empty())
        DrawTextW(dc, box.text.c_str(), -1, &text,
                  DT_CALCRECT | DT_WORDBREAK | DT_NOPREFIX | DT_EXPANDTABS);
    else
        text.right = 0;
    int button_width = scaled(kButtonWidth);
    for (const BoxButton& button : box.buttons) {
        RECT label = {};
        DrawTextW(dc, button.text, -1, &label, DT_CALCRECT | DT_SINGLELINE);
        button_width = std::max(button_width, label.right + scaled(kButtonPadding));
    }
    const auto count = static_cast<int>(box.buttons.size());
    const int buttons_width = count * button_width + (count - 1) * gap;
    const int text_left = margin + (icon ? icon + margin : 0);
    RECT caption = {};
    DrawTextW(dc, box.caption.c_str(), -1, &caption, DT_CALCRECT | DT_SINGLELINE | DT_NOPREFIX);
    const int width =
        std::max({text_left + text.right, margin + buttons_width,
                  std::min<int>(caption.right, scaled(kTextWidth)) + scaled(kCaptionExtra)}) +
        margin;
    const int content = std::max(icon, static_cast<int>(text.bottom));
    const int buttons_top = margin + content + margin;

    if (icon)
        MoveWindow(GetDlgItem(dialog, kIconId), margin, margin + (content - icon) / 2, icon, icon,
                   FALSE);
    MoveWindow(GetDlgItem(dialog, kBoxTextId), text_left, margin + (content - text.bottom) / 2,
               text.right, text.bottom, FALSE);
    int left = (width - buttons_width) / 2;
    for (const BoxButton& button : box.buttons) {
        MoveWindow(GetDlgItem(dialog, button.id), left, buttons_top, button_width, button_height,
                   FALSE);
        left += button_width + gap;
    }

    RECT outer = {0, 0, width, buttons_top + button_height + margin};
    AdjustWindowRectEx(&outer, static_cast<DWORD>(GetWindowLongPtrW(dialog, GWL_STYLE)), FALSE,
                       static_cast<DWORD>(GetWindowLongPtrW(dialog, GWL_EXSTYLE)));
    const SIZE size = {outer.right - outer.left, outer.bottom - outer.top};
    MoveWindow(dialog, (GetDeviceCaps(dc, HORZRES) - size.cx) / 2,
               (GetDeviceCaps(dc, VERTRES) - size.cy) / 2, size.cx, size.cy, FALSE);
    SelectObject(dc, before);
    ReleaseDC(dialog, dc);
}

INT_PTR CALLBACK BoxProcedure(HWND dialog, UINT message, WPARAM first, LPARAM second) {
    if (message == WM_INITDIALOG) {
        const auto* box = reinterpret_cast<const Box*>(second);
        SetWindowLongPtrW(dialog, static_cast<int>(DWLP_USER), second);
        if (const LPCWSTR icon = IconOf(box->type))
            SendDlgItemMessageW(dialog, kIconId, STM_SETICON,
                                reinterpret_cast<WPARAM>(LoadIconW(nullptr, icon)), 0);
        Arrange(dialog, *box);
        SetFocus(GetDlgItem(dialog, box->buttons[box->default_button].id));
        return FALSE;
    }
    if (message != WM_COMMAND) return FALSE;
    const auto* box =
        reinterpret_cast<const Box*>(GetWindowLongPtrW(dialog, static_cast<int>(DWLP_USER)));
    int id = LOWORD(first);
    if (!box) return FALSE;
    if (id == IDCANCEL && box->buttons.size() == 1) id = IDOK;
    if (box->Has(id)) EndDialog(dialog, id);
    return TRUE;
}

int ShowBox(HWND owner, const std::u16string& text, const std::u16string& caption, UINT type) {
    Box box = {text, caption, type, ButtonsOf(type), (type & MB_DEFMASK) / MB_DEFBUTTON2};
    if (box.default_button >= box.buttons.size()) box.default_button = 0;
    const INT_PTR answer =
        ShowModal(nullptr, TemplateOf(box), owner, BoxProcedure, reinterpret_cast<LPARAM>(&box));
    return answer > 0 ? static_cast<int>(answer) : 0;
}

} // namespace

void AnswerMessageBoxes(int answer) {
    std::lock_guard guard(g_answers_lock);
    g_answer = answer;
}

std::vector<ShownMessageBox> TakeMessageBoxes() {
    std::lock_guard guard(g_answers_lock);
    return std::exchange(g_shown, {});
}

void ResetMessageBoxes() {
    std::lock_guard guard(g_answers_lock);
    g_answer.reset();
    g_shown.clear();
}

} // namespace win32host

extern "C" int WINAPI MessageBoxW(HWND owner, LPCWSTR text, LPCWSTR caption, UINT type) {
    using namespace win32host;
    return Guarded(0, [&] {
        // Windows gives a box without a caption its own title.
        const std::u16string title = caption ? caption : SystemText(u"Error");
        const std::u16string body = CopyOf(text);
        {
            std::lock_guard guard(g_answers_lock);
            g_shown.push_back({owner, body, title, type});
            if (!HasUser()) return g_answer.value_or(CarefulAnswer(type));
        }
        return ShowBox(owner, body, title, type);
    });
}
