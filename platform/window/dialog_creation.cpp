// How dialogs are made from templates.
#include "host/guarded.h"
#include "modules/module.h"
#include "window/dialog.h"
#include "window/frame.h"

#include <algorithm>
#include <cstring>
#include <map>
#include <mutex>
#include <tuple>

namespace win32host {
namespace {

// A template that is not part of a loaded file is the caller's, and its end is not known.
constexpr size_t kLargestDialogTemplate = 0x40000;

// For the average width of a character.
constexpr char16_t kAlphabet[] = u"ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz";
constexpr int kLetters = 52;

HFONT MakeFont(const DialogTemplate& from) {
    LOGFONTW font = {};
    const HDC screen = GetDC(nullptr);
    font.lfHeight = -(from.points * GetDeviceCaps(screen, LOGPIXELSY) + 36) / 72;
    ReleaseDC(nullptr, screen);
    font.lfWeight = from.extended && from.weight ? from.weight : FW_NORMAL;
    font.lfItalic = from.italic;
    font.lfCharSet = DEFAULT_CHARSET;
    const size_t count = std::min<size_t>(from.face.size(), LF_FACESIZE - 1);
    std::copy_n(from.face.begin(), count, font.lfFaceName);
    return CreateFontIndirectW(&font);
}

int ToPixels(int units, int base, int parts) {
    return MulDiv(units, base, parts);
}

// The name of a class or title as CreateWindowExW takes it.
class NameArgument {
public:
    explicit NameArgument(const TemplateName& name, bool is_class) {
        if (name.number == 0) {
            text_ = name.text;
        } else if (is_class) {
            text_ = StandardClass(name.number);
            if (text_.empty()) number_ = MAKEINTRESOURCEW(name.number);
        } else {
            text_ = {u'\xFFFF', static_cast<char16_t>(name.number)};
        }
    }

    LPCWSTR Get() const { return number_ ? number_ : text_.c_str(); }

private:
    std::u16string text_;
    LPCWSTR number_ = nullptr;
};

bool MakeControls(HWND dialog, const DialogTemplate& from, const DialogState& state,
                  HINSTANCE module) {
    for (const DialogItem& item : from.items) {
        const NameArgument window_class(item.window_class, true);
        const NameArgument title(item.title, false);
        const HWND control = CreateWindowExW(
            item.extended_style | WS_EX_NOPARENTNOTIFY, window_class.Get(), title.Get(),
            (item.style | WS_CHILD) & ~static_cast<DWORD>(WS_POPUP),
            ToPixels(item.x, state.base_x, 4), ToPixels(item.y, state.base_y, 8),
            ToPixels(item.width, state.base_x, 4), ToPixels(item.height, state.base_y, 8), dialog,
            reinterpret_cast<HMENU>(static_cast<LONG_PTR>(static_cast<int32_t>(
                from.extended ? item.id : static_cast<uint32_t>(static_cast<int16_t>(item.id))))),
            module, item.data.empty() ? nullptr : const_cast<uint8_t*>(item.data.data()));
        if (!control) {
            if (from.style & DS_NOFAILCREATE) continue;
            return false;
        }
        if (state.font)
            SendMessageW(control, WM_SETFONT, reinterpret_cast<WPARAM>(state.font), FALSE);
        if (SendMessageW(control, WM_GETDLGCODE, 0, 0) & DLGC_DEFPUSHBUTTON)
            StateOf(dialog)->default_id = item.id;
    }
    return true;
}

RECT PlaceOfDialog(const DialogTemplate& from, const DialogState& state, HWND owner, DWORD style,
                   DWORD extended_style) {
    RECT rect = {0, 0, ToPixels(from.width, state.base_x, 4),
                 ToPixels(from.height, state.base_y, 8)};
    AdjustWindowRectEx(&rect, style, FALSE, extended_style);
    const int width = rect.right - rect.left;
    const int height = rect.bottom - rect.top;
    POINT place = {ToPixels(from.x, state.base_x, 4), ToPixels(from.y, state.base_y, 8)};
    if (!(style & WS_CHILD)) {
        if (from.style & DS_CENTER) {
            const HDC screen = GetDC(nullptr);
            place = {(GetDeviceCaps(screen, HORZRES) - width) / 2,
                     (GetDeviceCaps(screen, VERTRES) - height) / 2};
            ReleaseDC(nullptr, screen);
        } else if (owner && !(from.style & DS_ABSALIGN)) {
            ClientToScreen(owner, &place);
        }
    }
    return {place.x, place.y, place.x + width, place.y + height};
}

// Lets the procedure prepare the dialog, and gives the focus to the first control if it wants that.
void Initialise(HWND dialog, LPARAM parameter) {
    const auto state = StateOf(dialog);
    const HWND first = FirstTabItem(dialog);
    const LRESULT sets_focus =
        SendMessageW(dialog, WM_INITDIALOG, reinterpret_cast<WPARAM>(first), parameter);
    const auto window = FindWindowObject(dialog);
    if (!window || !sets_focus || state->ended || window->style & DS_CONTROL) return;
    const HWND control = first && IsWindow(first) ? FirstTabItem(dialog) : nullptr;
    if (control)
        FocusInDialog(dialog, control);
    else if (!window->IsChildWindow())
        SetFocus(dialog);
}

} // namespace

DialogState::~DialogState() {
    if (font) DeleteObject(font);
}

std::optional<DialogTemplate> TemplateAt(const void* address) {
    if (!address) return std::nullopt;
    auto bytes = ResourceBytesFrom(address);
    if (bytes.empty()) bytes = {static_cast<const uint8_t*>(address), kLargestDialogTemplate};
    return ReadDialogTemplate(bytes);
}

std::optional<DialogTemplate> TemplateNamed(HINSTANCE module, LPCWSTR name) {
    const HRSRC found = FindResourceW(module, name, RT_DIALOG);
    const HGLOBAL loaded = found ? LoadResource(module, found) : nullptr;
    const void* bytes = loaded ? LockResource(loaded) : nullptr;
    if (!bytes) return std::nullopt;
    return ReadDialogTemplate({static_cast<const uint8_t*>(bytes), SizeofResource(module, found)});
}

std::shared_ptr<DialogState> StateOf(HWND dialog) {
    const auto window = FindWindowObject(dialog);
    if (!window) return nullptr;
    if (!window->dialog) {
        auto state = std::make_shared<DialogState>();
        const SIZE base = BaseUnitsOf(nullptr);
        state->base_x = base.cx;
        state->base_y = base.cy;
        window->dialog = std::move(state);
    }
    return window->dialog;
}

SIZE BaseUnitsOf(HFONT font) {
    const HDC screen = GetDC(nullptr);
    const HGDIOBJ before = font ? SelectObject(screen, font) : nullptr;
    TEXTMETRICW metrics = {};
    GetTextMetricsW(screen, &metrics);
    SIZE extent = {};
    GetTextExtentPointW(screen, kAlphabet, kLetters, &extent);
    if (font) SelectObject(screen, before);
    ReleaseDC(nullptr, screen);
    return {(extent.cx / (kLetters / 2) + 1) / 2, metrics.tmHeight};
}

SIZE BaseUnitsOf(const DialogTemplate& from) {
    if (!from.has_font) return BaseUnitsOf(nullptr);
    // Opening a font takes longer than making a dialog, and dialogs have few different ones.
    using Font = std::tuple<std::u16string, int, int, bool, int>;
    static std::mutex* lock = new std::mutex;
    static auto* known = new std::map<Font, SIZE>;
    const HDC screen = GetDC(nullptr);
    const Font wanted = {from.face, from.points, from.weight, from.italic,
                         GetDeviceCaps(screen, LOGPIXELSY)};
    ReleaseDC(nullptr, screen);
    std::lock_guard guard(*lock);
    if (const auto found = known->find(wanted); found != known->end()) return found->second;
    const HFONT font = MakeFont(from);
    const SIZE units = BaseUnitsOf(font);
    if (font) DeleteObject(font);
    known->emplace(wanted, units);
    return units;
}

HWND MakeDialog(HINSTANCE module, const DialogTemplate& from, HWND owner, DLGPROC procedure,
                LPARAM parameter, bool modal) {
    auto state = std::make_shared<DialogState>();
    state->modal = modal;
    if (from.has_font) state->font = MakeFont(from);
    const SIZE base = BaseUnitsOf(from);
    state->base_x = base.cx;
    state->base_y = base.cy;

    DWORD style = from.style & ~static_cast<DWORD>(WS_VISIBLE);
    DWORD extended_style = from.extended_style;
    if (!(style & WS_CHILD) || from.style & DS_CONTROL) extended_style |= WS_EX_CONTROLPARENT;
    if (from.style & DS_MODALFRAME) extended_style |= WS_EX_DLGMODALFRAME;
    if (from.style & DS_CONTEXTHELP) extended_style |= WS_EX_CONTEXTHELP;
    if (from.style & DS_CONTROL) style &= ~static_cast<DWORD>(WS_CAPTION | WS_SYSMENU);
    const RECT place = PlaceOfDialog(from, *state, owner, style, extended_style);
    const NameArgument named(from.window_class, true);
    const bool own_class = from.window_class.number != 0 || !from.window_class.text.empty();
    const HWND dialog =
        CreateWindowExW(extended_style, own_class ? named.Get() : WC_DIALOG, from.title.c_str(),
                        style, place.left, place.top, place.right - place.left,
                        place.bottom - place.top, owner, nullptr, module, nullptr);
    if (!dialog) return nullptr;
    FindWindowObject(dialog)->dialog = state;
    SetWindowLongPtrW(dialog, static_cast<int>(DWLP_DLGPROC),
                      reinterpret_cast<LONG_PTR>(procedure));
    if (state->font) SendMessageW(dialog, WM_SETFONT, reinterpret_cast<WPARAM>(state->font), FALSE);
    if (!MakeControls(dialog, from, *state, module)) {
        DestroyWindow(dialog);
        return nullptr;
    }
    if (procedure) Initialise(dialog, parameter);
    if (!IsWindow(dialog)) return nullptr;
    if (from.style & WS_VISIBLE && !state->ended) {
        ShowWindow(dialog, SW_SHOWNORMAL);
        if (IsWindow(dialog)) UpdateWindow(dialog);
    }
    return IsWindow(dialog) ? dialog : nullptr;
}

INT_PTR RunModal(HWND dialog, HWND owner) {
    const auto state = StateOf(dialog);
    const bool tells_idle = owner && !(GetWindowLongPtrW(dialog, GWL_STYLE) & DS_NOIDLEMSG);
    MSG message;
    while (!state->ended && IsWindow(dialog)) {
        if (!PeekMessageW(&message, nullptr, 0, 0, PM_NOREMOVE)) {
            // A dialog that was made invisible shows when there is nothing else to do.
            if (!IsWindowVisible(dialog)) ShowWindow(dialog, SW_SHOWNORMAL);
            if (tells_idle && IsWindow(owner))
                SendMessageW(owner, WM_ENTERIDLE, MSGF_DIALOGBOX, reinterpret_cast<LPARAM>(dialog));
            if (state->ended || !IsWindow(dialog)) break;
        }
        if (GetMessageW(&message, nullptr, 0, 0) <= 0) {
            // The program ends: the loop that the dialog interrupted must see it, too.
            PostQuitMessage(static_cast<int>(message.wParam));
            break;
        }
        if (!IsDialogMessageW(dialog, &message)) {
            TranslateMessage(&message);
            DispatchMessageW(&message);
        }
    }
    const INT_PTR result = state->result;
    if (IsWindow(dialog)) DestroyWindow(dialog);
    return result;
}

INT_PTR ShowModal(HINSTANCE module, const DialogTemplate& from, HWND owner, DLGPROC procedure,
                  LPARAM parameter) {
    const HWND root = owner ? GetAncestor(owner, GA_ROOT) : nullptr;
    const HWND focus = GetFocus();
    const bool enabled = root && IsWindowEnabled(root);
    if (enabled) EnableWindow(root, FALSE);
    const HWND dialog = MakeDialog(module, from, root, procedure, parameter, true);
    INT_PTR result = -1;
    if (dialog) {
        result = RunModal(dialog, root);
    } else if (enabled && IsWindow(root)) {
        EnableWindow(root, TRUE);
        if (focus && IsWindow(focus)) SetFocus(focus);
    }
    return result;
}

} // namespace win32host

using namespace win32host;

namespace {

HWND Modeless(HINSTANCE module, const std::optional<DialogTemplate>& from, HWND owner,
              DLGPROC procedure, LPARAM parameter) {
    return from ? MakeDialog(module, *from, owner, procedure, parameter, false) : nullptr;
}

INT_PTR Modal(HINSTANCE module, const std::optional<DialogTemplate>& from, HWND owner,
              DLGPROC procedure, LPARAM parameter) {
    if (owner && !IsWindow(owner)) return 0;
    return from ? ShowModal(module, *from, owner, procedure, parameter) : -1;
}

} // namespace

extern "C" {

HWND WINAPI CreateDialogParamW(HINSTANCE module, LPCWSTR name, HWND parent, DLGPROC procedure,
                               LPARAM parameter) {
    return Guarded(HWND(nullptr), [&] {
        return Modeless(module, TemplateNamed(module, name), parent, procedure, parameter);
    });
}

HWND WINAPI CreateDialogIndirectParamW(HINSTANCE module, LPCDLGTEMPLATEW dialog_template,
                                       HWND parent, DLGPROC procedure, LPARAM parameter) {
    return Guarded(HWND(nullptr), [&] {
        return Modeless(module, TemplateAt(dialog_template), parent, procedure, parameter);
    });
}

INT_PTR WINAPI DialogBoxParamW(HINSTANCE module, LPCWSTR name, HWND parent, DLGPROC procedure,
                               LPARAM parameter) {
    return Guarded(INT_PTR(-1), [&] {
        return Modal(module, TemplateNamed(module, name), parent, procedure, parameter);
    });
}

INT_PTR WINAPI DialogBoxIndirectParamW(HINSTANCE module, LPCDLGTEMPLATEW dialog_template,
                                       HWND parent, DLGPROC procedure, LPARAM parameter) {
    return Guarded(INT_PTR(-1), [&] {
        return Modal(module, TemplateAt(dialog_template), parent, procedure, parameter);
    });
}

BOOL WINAPI EndDialog(HWND dialog, INT_PTR result) {
    const auto window = WindowOf(dialog);
    if (!window) return FALSE;
    const auto state = StateOf(dialog);
    if (state->ended) return TRUE;
    state->ended = true;
    state->result = result;
    const HWND owner = window->owner;
    if (state->modal && owner && IsWindow(owner)) EnableWindow(owner, TRUE);
    SetWindowPos(dialog, nullptr, 0, 0, 0, 0,
                 SWP_NOSIZE | SWP_NOMOVE | SWP_NOZORDER | SWP_NOACTIVATE | SWP_HIDEWINDOW);
    // The loop that runs the dialog looks at it again.
    PostMessageW(dialog, WM_NULL, 0, 0);
    return TRUE;
}

BOOL WINAPI MapDialogRect(HWND dialog, LPRECT rect) {
    const auto state = StateOf(dialog);
    if (!state) return Fail(ERROR_INVALID_WINDOW_HANDLE);
    if (!rect) return Fail(ERROR_INVALID_PARAMETER);
    rect->left = MulDiv(rect->left, state->base_x, 4);
    rect->right = MulDiv(rect->right, state->base_x, 4);
    rect->top = MulDiv(rect->top, state->base_y, 8);
    rect->bottom = MulDiv(rect->bottom, state->base_y, 8);
    return TRUE;
}

LONG WINAPI GetDialogBaseUnits() {
    const SIZE base = BaseUnitsOf(nullptr);
    return MAKELONG(base.cx, base.cy);
}

} // extern "C"
