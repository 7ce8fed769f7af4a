#include "window/text_measure.h"

namespace win32host {

TextMeasure::TextMeasure(HWND window, HFONT font)
    : window_(window)
    , dc_(GetDC(window)) {
    if (font) before_ = SelectObject(dc_, font);
}

TextMeasure::~TextMeasure() {
    if (before_) SelectObject(dc_, before_);
    ReleaseDC(window_, dc_);
}

int TextMeasure::Width(std::u16string_view text) const {
    SIZE size = {};
    GetTextExtentPointW(dc_, text.data(), static_cast<int>(text.size()), &size);
    return size.cx;
}

int TextMeasure::LineHeight() const {
    TEXTMETRICW metrics = {};
    GetTextMetricsW(dc_, &metrics);
    return metrics.tmHeight;
}

int TextMeasure::AverageWidth() const {
    TEXTMETRICW metrics = {};
    GetTextMetricsW(dc_, &metrics);
    return metrics.tmAveCharWidth;
}

int TextMeasure::Scaled(int size) const {
    return (size * GetDeviceCaps(dc_, LOGPIXELSY) + 48) / 96;
}

std::u16string WithoutAccessKey(std::u16string_view text) {
    std::u16string shown;
    for (size_t i = 0; i < text.size(); ++i) {
        if (text[i] == u'&' && ++i == text.size()) break;
        shown += text[i];
    }
    return shown;
}

} // namespace win32host
