#include "window/clipboard.h"

#include <mutex>
#include <utility>

namespace win32host {
namespace {

std::mutex& ClipboardLock() {
    static std::mutex lock;
    return lock;
}

std::u16string& Clipboard() {
    static std::u16string text;
    return text;
}

} // namespace

void SetClipboardText(std::u16string text) {
    std::lock_guard guard(ClipboardLock());
    Clipboard() = std::move(text);
}

std::u16string ClipboardText() {
    std::lock_guard guard(ClipboardLock());
    return Clipboard();
}

} // namespace win32host
