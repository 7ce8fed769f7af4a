#include "gdi/printed_text.h"

#include "gdi/device_context.h"

#include <algorithm>
#include <numeric>
#include <vector>

namespace win32host {
namespace {

// Ink from left to right, in one row or the same in several.
struct Strip {
    int left;
    int right; // the pixel after the last
    int top;
};

std::vector<Strip> StripsOf(const GlyphImage& image, int row) {
    std::vector<Strip> strips;
    const BYTE* const ink = image.coverage.data() + static_cast<size_t>(row) * image.width;
    for (int x = 0; x < image.width; ++x) {
        if (!ink[x]) continue;
        if (strips.empty() || strips.back().right != x) strips.push_back({x, x, row});
        ++strips.back().right;
    }
    return strips;
}

// Rows that are alike become one rectangle.
bool PrintGlyph(DeviceContext& printer, const GlyphImage& image, POINT pen) {
    const int left = pen.x + image.left;
    const int top = pen.y - image.top;
    std::vector<Strip> open;
    for (int row = 0; row <= image.height; ++row) {
        std::vector<Strip> strips;
        if (row < image.height) strips = StripsOf(image, row);
        for (const Strip& before : open) {
            const auto same = std::find_if(strips.begin(), strips.end(), [&](const Strip& strip) {
                return strip.left == before.left && strip.right == before.right;
            });
            if (same != strips.end())
                same->top = before.top;
            else if (!printer.PatBlt(left + before.left, top + before.top,
                                     before.right - before.left, row - before.top, BLACKNESS))
                return false;
        }
        open = std::move(strips);
    }
    return true;
}

} // namespace

bool PrintText(DeviceContext& printer, Font& font, POINT at, const std::u16string& text) {
    TEXTMETRICW metrics;
    std::vector<int> widths;
    if (!font.GetTextMetrics(metrics) || !font.Widths(text, false, widths)) return false;
    const int width = std::accumulate(widths.begin(), widths.end(), 0);
    if (!printer.PatBlt(at.x, at.y, width, metrics.tmHeight, WHITENESS)) return false;
    POINT pen = {at.x, at.y + metrics.tmAscent};
    for (size_t i = 0; i < text.size(); ++i) {
        const auto image = font.Image(text[i], false);
        if (image && !PrintGlyph(printer, *image, pen)) return false;
        pen.x += widths[i];
    }
    return true;
}

} // namespace win32host
