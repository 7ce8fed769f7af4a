// Message boxes of a host without a screen.
#include "locale/facts.h"

#include <windows.h>

#include "host/guarded.h"

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
    return win32host::Guarded(0, [&] {
        std::lock_guard guard(win32host::g_answers_lock);
        // Windows gives a box without a caption its own title.
        win32host::g_shown.push_back(
            {owner, text ? text : u"", caption ? caption : u"Error", type});
        return win32host::g_answer.value_or(win32host::CarefulAnswer(type));
    });
}
