// Sizes of texts in a control's font, in pixels.
#pragma once

#include <windows.h>

#include <string>
#include <string_view>

namespace win32host {

// Has a device context of the window for as long as it lives. A null font is the system's.
class TextMeasure {
public:
    TextMeasure(HWND window, HFONT font);
    ~TextMeasure();
    TextMeasure(const TextMeasure&) = delete;
    TextMeasure& operator=(const TextMeasure&) = delete;

    int Width(std::u16string_view text) const;
    int LineHeight() const;
    int AverageWidth() const;
    // A size of 96 dots per inch.
    int Scaled(int size) const;
    HDC Context() const { return dc_; }

private:
    HWND window_;
    HDC dc_;
    HGDIOBJ before_ = nullptr;
};

// The text without the marks of its access key: "&Fit && go" is shown as "Fit & go".
std::u16string WithoutAccessKey(std::u16string_view text);

} // namespace win32host
