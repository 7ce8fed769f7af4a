#include "pages/column_widths.h"

#include <algorithm>
#include <cstring>

#include "core/obuffer.h"

namespace {

constexpr int32_t kWidestColumn = 32767; // no window is wider

} // namespace

void LoadColumnWidths(prtreg& registry, const OString& value, std::span<UColumnInfo> columns) {
    OBuffer<int32_t> widths(static_cast<uint32_t>(columns.size()));
    const uint32_t size = widths.GetSize() * uint32_t{sizeof(int32_t)};
    if (widths.GetSize() < columns.size() ||
        registry.GetBinary(value, widths.GetData(), size) != static_cast<int32_t>(size))
        return;
    const std::span<const int32_t> stored(widths.GetData(), columns.size());
    if (!std::ranges::all_of(stored,
                             [](int32_t width) { return width >= 0 && width <= kWidestColumn; }))
        return;
    for (size_t i = 0; i < columns.size(); ++i) columns[i].width = stored[i];
}

void SaveColumnWidths(prtreg& registry, const OString& value, UListView& list) {
    const OTypedArray<int>& widths = list.GetWidths();
    OBuffer<int32_t> before;
    const auto count = static_cast<uint32_t>(widths.GetSize());
    if (!before.Assign(widths.GetData(), count)) return;
    list.SaveWidths();
    if (static_cast<uint32_t>(widths.GetSize()) == count &&
        std::equal(before.GetData(), before.GetData() + count, widths.GetData()))
        return;
    registry.SetBinary(value, widths.GetData(),
                       static_cast<uint32_t>(widths.GetSize()) * uint32_t{sizeof(int32_t)});
}
