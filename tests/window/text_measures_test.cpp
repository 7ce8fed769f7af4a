// The font of dialogs is as wide and as high as on Windows, to a pixel.
#include <windows.h>

#include <gtest/gtest.h>

#include <string>

namespace {

using Text = std::basic_string<WCHAR>;

class Measured {
public:
    Measured(const WCHAR* face, int height, int weight)
        : dc_(CreateCompatibleDC(nullptr))
        , font_(CreateFontW(height, 0, 0, 0, weight, 0, 0, 0, DEFAULT_CHARSET, 0, 0, 0, 0, face))
        , before_(SelectObject(dc_, font_)) {}
    ~Measured() {
        SelectObject(dc_, before_);
        DeleteObject(font_);
        DeleteDC(dc_);
    }
    Measured(const Measured&) = delete;
    Measured& operator=(const Measured&) = delete;

    Text Face() const {
        WCHAR name[LF_FACESIZE] = {};
        GetTextFaceW(dc_, LF_FACESIZE, name);
        return name;
    }
    TEXTMETRICW Metrics() const {
        TEXTMETRICW metrics = {};
        EXPECT_TRUE(GetTextMetricsW(dc_, &metrics));
        return metrics;
    }
    LONG Width(const Text& text) const {
        SIZE size = {};
        EXPECT_TRUE(GetTextExtentPoint32W(dc_, text.c_str(), static_cast<int>(text.size()), &size));
        EXPECT_EQ(size.cy, Metrics().tmHeight);
        return size.cx;
    }
    // The rectangle that DrawTextW asks for, as "width x height", with what it answers.
    std::string Asked(const Text& text, int width, UINT format) const {
        RECT rect = {10, 20, 10 + width, 60};
        const int answer = DrawTextW(dc_, text.c_str(), -1, &rect, format | DT_CALCRECT);
        return std::to_string(rect.left) + "," + std::to_string(rect.top) + " " +
               std::to_string(rect.right - rect.left) + "x" +
               std::to_string(rect.bottom - rect.top) + " " + std::to_string(answer);
    }

private:
    HDC dc_;
    HFONT font_;
    HGDIOBJ before_;
};

const Text kLetters = TEXT("ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz");
const Text kSentence = TEXT("The quick brown fox jumps over 0123456789.");
const Text kSigns = TEXT("\u00c4\u00d6\u00dc\u00e4\u00f6\u00fc\u00df()/&%,;-");

bool HasDialogFont() {
    return Measured(TEXT("Tahoma"), -11, FW_NORMAL).Face() == TEXT("Tahoma");
}

} // namespace

TEST(TextMeasures, OfTheDialogFontAreRightToAPixel) {
    if (!HasDialogFont()) GTEST_SKIP() << "the font of dialogs is not installed";
    const struct {
        int height, weight;
        LONG line, ascent, average, widest, letters, sentence, signs;
    } cases[] = {
        // 8, 9, 10, 12, 14, 16 and 20 points at 96 dots per inch, then two line heights.
        {-11, 400, 13, 11, 7, 16, 330, 229, 91},   {-12, 400, 14, 12, 7, 17, 353, 255, 96},
        {-13, 400, 16, 13, 8, 19, 385, 271, 107},  {-16, 400, 19, 16, 10, 23, 475, 339, 130},
        {-19, 400, 23, 19, 11, 27, 543, 386, 152}, {-21, 400, 25, 21, 13, 30, 613, 428, 168},
        {-27, 400, 33, 27, 16, 39, 780, 557, 215}, {16, 400, 16, 13, 8, 19, 385, 271, 107},
        {13, 400, 13, 11, 7, 16, 330, 229, 91},    {-11, 700, 13, 11, 8, 17, 376, 260, 105},
        {-12, 700, 14, 12, 8, 18, 400, 290, 113},  {-13, 700, 16, 13, 9, 20, 432, 303, 122},
        {-16, 700, 19, 16, 11, 24, 537, 377, 152}, {-19, 700, 23, 19, 13, 29, 625, 444, 176},
        {-21, 700, 25, 21, 14, 32, 699, 482, 196}, {-27, 700, 33, 27, 19, 41, 896, 630, 251},
    };
    for (const auto& c : cases)
        for (const WCHAR* face : {TEXT("Tahoma"), TEXT("MS Shell Dlg"), TEXT("MS Shell Dlg 2")}) {
            SCOPED_TRACE(std::to_string(c.height) + " " + std::to_string(c.weight));
            const Measured font(face, c.height, c.weight);
            EXPECT_EQ(font.Face(), face);
            const TEXTMETRICW metrics = font.Metrics();
            EXPECT_EQ(metrics.tmHeight, c.line);
            EXPECT_EQ(metrics.tmAscent, c.ascent);
            EXPECT_EQ(metrics.tmAveCharWidth, c.average);
            EXPECT_EQ(metrics.tmMaxCharWidth, c.widest);
            EXPECT_EQ(metrics.tmExternalLeading, 0);
            EXPECT_EQ(metrics.tmWeight, c.weight);
            EXPECT_EQ(font.Width(kLetters), c.letters);
            EXPECT_EQ(font.Width(kSentence), c.sentence);
            EXPECT_EQ(font.Width(kSigns), c.signs);
        }
}

TEST(TextMeasures, AreWhatDrawTextBreaksLinesBy) {
    if (!HasDialogFont()) GTEST_SKIP() << "the font of dialogs is not installed";
    const Measured font(TEXT("MS Shell Dlg"), -11, FW_NORMAL);
    const struct {
        const WCHAR* text;
        int width;
        UINT format;
        const char* asked;
    } cases[] = {
        {TEXT("One line"), 100, DT_LEFT, "10,20 45x13 13"},
        {TEXT("One line"), 100, DT_SINGLELINE | DT_VCENTER, "10,20 45x27 27"},
        {TEXT("One line"), 100, DT_SINGLELINE | DT_BOTTOM, "10,20 45x40 40"},
        {TEXT("One line"), 100, DT_RIGHT, "10,20 45x13 13"},
        {TEXT("One line"), 100, DT_CENTER, "10,20 45x13 13"},
        {TEXT("&Two\nlines"), 100, DT_LEFT, "10,20 25x26 26"},
        {TEXT("&Two\r\nlines\r\n"), 100, DT_NOPREFIX, "10,20 29x26 26"},
        {TEXT("Two\n\nlines"), 100, DT_LEFT, "10,20 25x39 39"},
        {TEXT("&Two\nlines"), 100, DT_SINGLELINE, "10,20 57x13 13"},
        {TEXT("Fish && chips &"), 100, DT_LEFT, "10,20 73x13 13"},
        {TEXT("Fish && chips &"), 100, DT_HIDEPREFIX, "10,20 73x13 13"},
        {TEXT("The quick brown fox jumps over the lazy dog"), 100, DT_WORDBREAK, "10,20 97x39 39"},
        {TEXT("The quick brown fox jumps over the lazy dog"), 60, DT_WORDBREAK, "10,20 58x65 65"},
        {TEXT("The quick  brown   fox "), 45, DT_WORDBREAK, "10,20 40x52 52"},
        {TEXT("Extraordinarily long"), 30, DT_WORDBREAK, "10,20 75x26 26"},
        {TEXT("Extraordinarily long"), 30, DT_WORDBREAK | DT_EDITCONTROL, "10,20 27x52 52"},
        {TEXT("a\tb\tc"), 200, DT_EXPANDTABS, "10,20 118x13 13"},
        {TEXT("trailing blanks   "), 200, DT_LEFT, "10,20 84x13 13"},
        {TEXT("line one\nline two"), 200, DT_EXTERNALLEADING, "10,20 43x26 26"},
    };
    for (const auto& c : cases) EXPECT_EQ(font.Asked(c.text, c.width, c.format), c.asked);
}
