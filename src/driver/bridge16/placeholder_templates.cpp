#include "driver/bridge16/placeholder_templates.h"

#include <algorithm>
#include <iterator>

const DLGTEMPLATE* PlaceholderTemplates::Add(const OString& title) {
    constexpr DWORD kStyle = WS_CHILD | WS_CAPTION;
    // Style, extended style, number of controls, place and size, menu, window class.
    constexpr WORD kHead[] = {LOWORD(kStyle), HIWORD(kStyle), 0, 0, 0, 0, 0, 1, 1, 0, 0};
    if (used_ + std::size(kHead) + 1 > kUnits) return nullptr;
    WORD* const made = block_ + used_;
    WORD* end = std::copy(std::begin(kHead), std::end(kHead), made);
    const WCHAR* const text = title.wstring();
    const auto room = static_cast<size_t>(std::end(block_) - end) - 1;
    const size_t length = std::min<size_t>(static_cast<size_t>(title.wlen()), room);
    end = std::transform(text, text + length, end, [](WCHAR c) { return static_cast<WORD>(c); });
    *end++ = 0;
    // The next one starts at a multiple of four bytes.
    used_ = (static_cast<size_t>(end - block_) + 1) & ~size_t{1};
    return reinterpret_cast<const DLGTEMPLATE*>(made);
}
