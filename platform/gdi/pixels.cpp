// Drawing pixels that were read elsewhere.
#include "gdi/dib.h"
#include "gdi/raster.h"

#include <algorithm>
#include <cstdint>
#include <cstdlib>
#include <utility>

namespace win32host {
namespace {

// The first source pixel and how many become pixel number `i` of `to` when `from` pixels are
// stretched to as many.
struct Range {
    int first;
    int count;
};
Range SourceOf(int i, int to, int from) {
    const auto first = static_cast<int>(int64_t{i} * from / to);
    const auto next = static_cast<int>((int64_t{i} + 1) * from / to);
    return {first, std::max(1, next - first)};
}

// Where an extent starts and ends. A negative one counts backwards, from its start with it.
std::pair<int, int> SpanOf(int start, int extent) {
    return extent < 0 ? std::pair(start + extent + 1, start + 1) : std::pair(start, start + extent);
}

// Pixels of a block, seen from the place that it is drawn to.
class Stretched {
public:
    Stretched(const PixelBlock& block, const Place& from, const Place& to, bool averages)
        : block_(block)
        , from_(from)
        , to_(to)
        , area_(AreaOf(from))
        , averages_(averages) {}

    COLORREF At(int column, int row) const {
        const Range x = Along(column, to_.width, from_.width);
        const Range y = Along(row, to_.height, from_.height);
        if (!averages_ || (x.count == 1 && y.count == 1))
            return block_.Get(area_.left + x.first, area_.top + y.first);
        return Average(x, y);
    }

private:
    // A place in the source's area, the other way round where one of both is mirrored.
    static Range Along(int i, int to, int from) {
        const int size = std::abs(from);
        Range range = SourceOf(i, std::abs(to), size);
        if ((to < 0) != (from < 0)) range.first = size - range.first - range.count;
        return range;
    }
    COLORREF Average(const Range& x, const Range& y) const {
        int64_t red = 0, green = 0, blue = 0, count = 0;
        for (int row = 0; row < y.count; ++row)
            for (int column = 0; column < x.count; ++column) {
                const COLORREF color =
                    block_.Get(area_.left + x.first + column, area_.top + y.first + row);
                if (color == CLR_INVALID) continue;
                red += GetRValue(color);
                green += GetGValue(color);
                blue += GetBValue(color);
                ++count;
            }
        if (!count) return CLR_INVALID;
        const int64_t half = count / 2;
        return RGB((red + half) / count, (green + half) / count, (blue + half) / count);
    }

    const PixelBlock& block_;
    const Place from_;
    const Place to_;
    const RECT area_;
    const bool averages_;
};

} // namespace

Place ToDevice(const DrawingContext& context, const Place& place) {
    constexpr int kFar = 1 << 28; // sums of such numbers still fit
    const POINT start = context.ToDevice(POINT{place.x, place.y});
    return {start.x, start.y, std::clamp(place.width, -kFar, kFar),
            std::clamp(place.height, -kFar, kFar)};
}

RECT AreaOf(const Place& place) {
    const auto [left, right] = SpanOf(place.x, place.width);
    const auto [top, bottom] = SpanOf(place.y, place.height);
    return {left, top, right, bottom};
}

void DrawPixels(DrawingContext& context, const Place& to, const PixelBlock& pixels,
                const Place& from, DWORD operation) {
    Pixels* const target = context.Target();
    if (!target || !to.width || !to.height || !from.width || !from.height) return;
    const BYTE table = TableOf(operation);
    const bool patterned = NeedsPattern(table);
    const BrushPaint brush(context, *context.state.brush.object);
    const Stretched source(pixels, from, to, context.state.stretch_mode == HALFTONE);
    const RECT place = AreaOf(to);
    const RECT clip = context.Clip();
    RECT area;
    IntersectRect(&area, &place, &clip);
    for (int y = area.top; y < area.bottom; ++y)
        for (int x = area.left; x < area.right; ++x) {
            const COLORREF color = source.At(x - place.left, y - place.top);
            const auto pattern = patterned ? brush.At(x, y) : COLORREF{0};
            if (color != CLR_INVALID && pattern)
                target->Set(x, y, Combined(table, *pattern, color, target->Get(x, y)));
        }
}

} // namespace win32host
