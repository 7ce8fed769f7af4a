#include "window/window.h"

#include <win32host/user.h>

namespace win32host {

void WhenIdle(std::function<bool()> act) {
    ThisQueue()->user =
        act ? std::make_shared<const std::function<bool()>>(std::move(act)) : nullptr;
}

bool HasUser() {
    return ThisQueue()->user != nullptr;
}

WindowCounts CountWindows() {
    WindowCounts counts = {0, CountTimers(), CountHooks()};
    std::vector<HWND> windows = ChildrenOf(nullptr);
    while (!windows.empty()) {
        const HWND window = windows.back();
        windows.pop_back();
        ++counts.windows;
        for (HWND child : ChildrenOf(window)) windows.push_back(child);
    }
    return counts;
}

} // namespace win32host
