#include "ruler.h"

#include <algorithm>
#include <stdexcept>

namespace {

constexpr int kDotsPerInch = 96;
constexpr int kPointsPerInch = 72;

} // namespace

Ruler::Ruler(const win32host::DialogTemplate& dialog)
    : dc_(CreateCompatibleDC(nullptr)) {
    LOGFONTW description = {};
    description.lfHeight = -MulDiv(dialog.points, kDotsPerInch, kPointsPerInch);
    description.lfWeight = dialog.weight;
    description.lfItalic = dialog.italic;
    description.lfCharSet = dialog.charset;
    dialog.face.copy(description.lfFaceName, std::size(description.lfFaceName) - 1);
    font_ = dialog.has_font ? CreateFontIndirectW(&description) : nullptr;
    TEXTMETRICW metrics = {};
    if (!font_ || !SelectObject(dc_, font_) || !GetTextMetricsW(dc_, &metrics)) {
        DeleteDC(dc_);
        throw std::runtime_error("the dialog has no font");
    }
    const int alphabet = Width(u"ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz");
    base_width_ = (alphabet / 26 + 1) / 2;
    line_height_ = metrics.tmHeight;
}

Ruler::~Ruler() {
    DeleteDC(dc_);
    DeleteObject(font_);
}

int Ruler::Width(const std::u16string& text) const {
    SIZE size = {};
    GetTextExtentPointW(dc_, text.data(), static_cast<int>(text.size()), &size);
    return size.cx;
}

int Ruler::Lines(const std::u16string& text, int width, bool& too_wide) const {
    int lines = 1;
    std::u16string line;
    for (size_t start = 0; start <= text.size();) {
        const size_t end = std::min(text.find_first_of(u" \n", start), text.size());
        const std::u16string word = text.substr(start, end - start);
        if (Width(word) > width) too_wide = true;
        if (!line.empty() && Width(line + word) > width) {
            ++lines;
            line.clear();
        }
        line += word + u' ';
        if (end < text.size() && text[end] == u'\n') {
            ++lines;
            line.clear();
        }
        start = end + 1;
    }
    return lines;
}

RECT Ruler::Pixels(int x, int y, int width, int height) const {
    return {MulDiv(x, base_width_, 4), MulDiv(y, line_height_, 8),
            MulDiv(x + width, base_width_, 4), MulDiv(y + height, line_height_, 8)};
}
