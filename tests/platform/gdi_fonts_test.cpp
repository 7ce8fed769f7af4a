// Fonts and bitmaps of device contexts without a printer.
#include <windows.h>

#include <gtest/gtest.h>

#include <cstdlib>
#include <cstring>
#include <string>
#include <vector>

namespace {

LOGFONTW Described(const char16_t* face, LONG height) {
    LOGFONTW description = {};
    description.lfHeight = height;
    description.lfCharSet = DEFAULT_CHARSET;
    for (int i = 0; face[i]; ++i) description.lfFaceName[i] = face[i];
    return description;
}

// A memory context with a font and a bitmap in two colours.
class Canvas {
public:
    Canvas(const LOGFONTW& font, int width, int height)
        : font_(CreateFontIndirectW(&font))
        , bitmap_(CreateBitmap(width, height, 1, 1, nullptr))
        , width_(width)
        , height_(height) {
        SelectObject(dc, font_);
        SelectObject(dc, bitmap_);
    }
    ~Canvas() {
        DeleteDC(dc);
        EXPECT_TRUE(DeleteObject(bitmap_));
        EXPECT_TRUE(DeleteObject(font_));
    }
    // The pixels in rows with line ends, '#' for black.
    std::string Picture() const {
        const int stride = (width_ + 15) / 16 * 2;
        std::vector<BYTE> bits(static_cast<size_t>(stride * height_));
        EXPECT_EQ(GetBitmapBits(bitmap_, static_cast<LONG>(bits.size()), bits.data()),
                  static_cast<LONG>(bits.size()));
        std::string picture;
        for (int y = 0; y < height_; ++y, picture += '\n')
            for (int x = 0; x < width_; ++x)
                picture +=
                    bits[static_cast<size_t>(y * stride + x / 8)] & (0x80 >> x % 8) ? '.' : '#';
        return picture;
    }

    const HDC dc = CreateCompatibleDC(nullptr);

private:
    const HFONT font_;
    const HBITMAP bitmap_;
    const int width_, height_;
};

constexpr DWORD kHead = 0x64616568; // "head"

} // namespace

TEST(GdiFonts, GiveOutTheirFileWholeAndInPieces) {
    const Canvas canvas(Described(u"DejaVu Sans", -12), 1, 1);
    const DWORD size = GetFontData(canvas.dc, 0, 0, nullptr, 0);
    ASSERT_NE(size, DWORD{GDI_ERROR});
    ASSERT_GT(size, 10000u);
    std::vector<BYTE> whole(size);
    EXPECT_EQ(GetFontData(canvas.dc, 0, 0, whole.data(), size), size);
    EXPECT_EQ(std::memcmp(whole.data(), "\0\1\0\0", 4), 0);

    std::vector<BYTE> joined;
    BYTE piece[10000];
    for (DWORD at = 0; at < size;) {
        const DWORD count = GetFontData(canvas.dc, 0, at, piece, sizeof piece);
        ASSERT_LE(count, sizeof piece);
        joined.insert(joined.end(), piece, piece + count);
        at += count;
    }
    EXPECT_EQ(joined, whole);

    EXPECT_EQ(GetFontData(canvas.dc, kHead, 12, piece, 4), 4u);
    EXPECT_EQ(std::memcmp(piece, "\x5F\x0F\x3C\xF5", 4), 0) << "the magic number of the table";
    EXPECT_EQ(GetFontData(canvas.dc, kHead, 50, piece, 100), 4u) << "no further than the table";
    EXPECT_EQ(GetFontData(canvas.dc, 0, size, piece, 1), DWORD{GDI_ERROR});
    EXPECT_EQ(GetFontData(canvas.dc, 0x5A5A5A5A, 0, nullptr, 0), DWORD{GDI_ERROR});
    EXPECT_EQ(GetFontData(nullptr, 0, 0, nullptr, 0), DWORD{GDI_ERROR});
}

TEST(GdiFonts, TellWhichFamilyIsShown) {
    WCHAR name[LF_FACESIZE] = {};
    const Canvas canvas(Described(u"dejavu sans Mono", -12), 1, 1);
    EXPECT_EQ(GetTextFaceW(canvas.dc, 0, nullptr), 17);
    EXPECT_EQ(GetTextFaceW(canvas.dc, LF_FACESIZE, name), 17);
    EXPECT_EQ(std::u16string(name), u"dejavu sans Mono");
    const Canvas other(Described(u"No Such Family", -12), 1, 1);
    EXPECT_GT(GetTextFaceW(other.dc, LF_FACESIZE, name), 1);
    EXPECT_NE(std::u16string(name), u"No Such Family");
}

TEST(GdiFonts, MeasureByTheHeightThatIsAskedFor) {
    for (const LONG height : {-100, -1, 100}) {
        const Canvas canvas(Described(u"DejaVu Sans Mono", height), 1, 1);
        TEXTMETRICW metrics = {};
        ASSERT_TRUE(GetTextMetricsW(canvas.dc, &metrics)) << height;
        EXPECT_EQ(metrics.tmHeight, metrics.tmAscent + metrics.tmDescent);
        // A height above zero is that of a line, one below zero that of the characters.
        const LONG em = metrics.tmHeight - metrics.tmInternalLeading;
        EXPECT_LE(std::abs(height > 0 ? metrics.tmHeight - height : em + height), height > 0);
        EXPECT_FALSE(metrics.tmPitchAndFamily & TMPF_FIXED_PITCH) << "every character is as wide";
        SIZE one = {}, three = {};
        EXPECT_TRUE(GetTextExtentPointA(canvas.dc, "i", 1, &one));
        EXPECT_TRUE(GetTextExtentPointW(canvas.dc, u"WWW", 3, &three));
        EXPECT_EQ(three.cx, 3 * one.cx);
        EXPECT_EQ(three.cy, metrics.tmHeight);
    }
}

TEST(GdiFonts, DrawBlackTextOnAWhiteCellAndNothingOutsideOfTheBitmap) {
    const Canvas canvas(Described(u"DejaVu Sans", 20), 60, 30);
    const std::string black = canvas.Picture();
    EXPECT_EQ(black.find('.'), std::string::npos);
    SIZE cell = {};
    ASSERT_TRUE(GetTextExtentPointA(canvas.dc, "l", 1, &cell));
    EXPECT_TRUE(TextOutA(canvas.dc, 0, 0, "l", 1));
    std::string expected = black;
    for (int y = 0; y < cell.cy; ++y)
        for (int x = 0; x < cell.cx; ++x) expected[static_cast<size_t>(y * 61 + x)] = '.';
    const std::string drawn = canvas.Picture();
    int ink = 0;
    for (size_t i = 0; i < drawn.size(); ++i)
        if (drawn[i] != expected[i]) {
            EXPECT_EQ(drawn[i], '#');
            ++ink;
        }
    EXPECT_GT(ink, 10);
    for (const int place : {-2000000000, -7, 25, 2000000000})
        EXPECT_TRUE(TextOutA(canvas.dc, place, place, "W", 1));
}

TEST(GdiFonts, ReadEightBitTextByTheCharacterSetOfTheFont) {
    LOGFONTW description = Described(u"DejaVu Sans", -20);
    const struct {
        BYTE charset;
        char byte;
        char16_t unit;
    } cases[] = {
        {ANSI_CHARSET, '\xC4', u'\u00C4'},
        {RUSSIAN_CHARSET, '\xC4', u'\u0414'},
        {GREEK_CHARSET, '\xC4', u'\u0394'},
        {SYMBOL_CHARSET, 'A', u'\uF041'},
    };
    for (const auto& c : cases) {
        description.lfCharSet = c.charset;
        const Canvas eight(description, 30, 30), wide(description, 30, 30);
        EXPECT_TRUE(TextOutA(eight.dc, 0, 0, &c.byte, 1));
        EXPECT_TRUE(TextOutW(wide.dc, 0, 0, &c.unit, 1));
        EXPECT_EQ(eight.Picture(), wide.Picture()) << int{c.charset};
    }
}
