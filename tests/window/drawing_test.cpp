// Drawing on bitmaps: shapes, copies, conversions of DIBs, and what limits them.
#include <windows.h>

#include <gtest/gtest.h>

#include <cstring>
#include <string>
#include <vector>

namespace {

constexpr COLORREF kBlack = RGB(0, 0, 0);
constexpr COLORREF kWhite = RGB(255, 255, 255);

// A DIB of 32 bits in a context of its own, white at first.
class Board {
public:
    Board(int width, int height)
        : width_(width)
        , height_(height) {
        BITMAPINFO info = {};
        info.bmiHeader.biSize = sizeof info.bmiHeader;
        info.bmiHeader.biWidth = width;
        info.bmiHeader.biHeight = -height;
        info.bmiHeader.biPlanes = 1;
        info.bmiHeader.biBitCount = 32;
        bitmap = CreateDIBSection(nullptr, &info, DIB_RGB_COLORS, &bits_, nullptr, 0);
        before_ = SelectObject(dc, bitmap);
        PatBlt(dc, 0, 0, width, height, WHITENESS);
    }
    ~Board() {
        SelectObject(dc, before_);
        EXPECT_TRUE(DeleteDC(dc));
        EXPECT_TRUE(DeleteObject(bitmap));
    }
    Board(const Board&) = delete;
    Board& operator=(const Board&) = delete;

    // '.' for white, '#' for black, '+' for anything else; rows separated by '/'.
    std::string Shown() const {
        std::string shown;
        for (int y = 0; y < height_; ++y) {
            if (y) shown += '/';
            for (int x = 0; x < width_; ++x) {
                const COLORREF color = GetPixel(dc, x, y);
                shown += color == kWhite ? '.' : color == kBlack ? '#' : '+';
            }
        }
        return shown;
    }

    const HDC dc = CreateCompatibleDC(nullptr);
    HBITMAP bitmap;

private:
    const int width_, height_;
    void* bits_ = nullptr;
    HGDIOBJ before_;
};

// Selects an object for as long as it lives.
class With {
public:
    With(HDC dc, HGDIOBJ object)
        : dc_(dc)
        , object_(object)
        , before_(SelectObject(dc, object)) {}
    ~With() {
        SelectObject(dc_, before_);
        DeleteObject(object_);
    }
    With(const With&) = delete;
    With& operator=(const With&) = delete;

private:
    HDC dc_;
    HGDIOBJ object_, before_;
};

// A DIB of a depth with the colours black, red, green, blue, white and others black; its pixels are
// the values, from the lowest row.
struct Dib {
    Dib(int width, int height, WORD depth, std::vector<BYTE> pixels)
        : bits(std::move(pixels)) {
        bytes.resize(sizeof(BITMAPINFOHEADER) + 256 * sizeof(RGBQUAD));
        BITMAPINFOHEADER& header = Info()->bmiHeader;
        header.biSize = sizeof header;
        header.biWidth = width;
        header.biHeight = height;
        header.biPlanes = 1;
        header.biBitCount = depth;
        const RGBQUAD colors[] = {
            {0, 0, 0, 0}, {0, 0, 255, 0}, {0, 255, 0, 0}, {255, 0, 0, 0}, {255, 255, 255, 0}};
        std::memcpy(Info()->bmiColors, colors, sizeof colors);
    }
    BITMAPINFO* Info() { return reinterpret_cast<BITMAPINFO*>(bytes.data()); }

    std::vector<BYTE> bytes;
    std::vector<BYTE> bits;
};

} // namespace

TEST(Drawing, LinesAndShapesHaveTheirPixels) {
    const struct {
        const char* name;
        void (*draw)(HDC dc);
        const char* shown;
    } cases[] = {
        {"line",
         [](HDC dc) {
             MoveToEx(dc, 0, 0, nullptr);
             LineTo(dc, 9, 3);
             LineTo(dc, 2, 7);
         },
         "##........../..###......./.....###..../........##.."
         "/.......##.../.....##...../...##......./............"},
        {"rectangle", [](HDC dc) { Rectangle(dc, 1, 1, 9, 5); },
         "............/.########.../.#......#.../.#......#..."
         "/.########.../............/............/............"},
        {"circle", [](HDC dc) { Ellipse(dc, 0, 0, 8, 8); },
         "..####....../.#....#...../#......#..../#......#...."
         "/#......#..../#......#..../.#....#...../..####......"},
        {"ellipse", [](HDC dc) { Ellipse(dc, 0, 0, 12, 7); },
         "...######.../.##......##./#..........#/#..........#"
         "/#..........#/.##......##./...######.../............"},
        {"triangle",
         [](HDC dc) {
             const POINT corners[] = {{1, 0}, {10, 2}, {4, 7}};
             Polygon(dc, corners, 3);
         },
         ".###......../.#..####..../..#.....###./..#......#.."
         "/...#...##.../...#..#...../....##....../....#......."},
        {"wide line",
         [](HDC dc) {
             const With pen(dc, CreatePen(PS_SOLID, 3, kBlack));
             MoveToEx(dc, 2, 2, nullptr);
             LineTo(dc, 8, 2);
         },
         "............/..#######.../.#########../..#######..."
         "/............/............/............/............"},
        {"dots",
         [](HDC dc) {
             SetBkMode(dc, TRANSPARENT);
             const With pen(dc, CreatePen(PS_DOT, 1, kBlack));
             MoveToEx(dc, 0, 4, nullptr);
             LineTo(dc, 12, 4);
         },
         "............/............/............/............"
         "/###...###.../............/............/............"},
        {"hatch",
         [](HDC dc) {
             const With brush(dc, CreateHatchBrush(HS_BDIAGONAL, kBlack));
             const With pen(dc, GetStockObject(NULL_PEN));
             Rectangle(dc, 0, 0, 11, 7);
         },
         ".......#..../......#...../.....#....../....#......."
         "/...#......../..#........./............/............"},
        {"focus",
         [](HDC dc) {
             const RECT rect = {1, 1, 8, 6};
             DrawFocusRect(dc, &rect);
         },
         "............/.#.#.#.#..../............/.#.....#...."
         "/............/.#.#.#.#..../............/............"},
        {"frame",
         [](HDC dc) {
             const RECT rect = {1, 1, 8, 6};
             FrameRect(dc, &rect, static_cast<HBRUSH>(GetStockObject(BLACK_BRUSH)));
         },
         "............/.#######..../.#.....#..../.#.....#...."
         "/.#.....#..../.#######..../............/............"},
        {"exclusive or",
         [](HDC dc) {
             SetROP2(dc, R2_XORPEN);
             const With pen(dc, CreatePen(PS_SOLID, 1, kWhite));
             MoveToEx(dc, 0, 0, nullptr);
             LineTo(dc, 5, 0);
         },
         "#####......./............/............/............"
         "/............/............/............/............"},
        {"origin and clip",
         [](HDC dc) {
             SetViewportOrgEx(dc, 2, 1, nullptr);
             IntersectClipRect(dc, 0, 0, 4, 3);
             Rectangle(dc, -1, 1, 30, 30);
         },
         "............/............/..####....../............"
         "/............/............/............/............"},
    };
    for (const auto& c : cases) {
        const Board board(12, 8);
        const int saved = SaveDC(board.dc);
        c.draw(board.dc);
        EXPECT_TRUE(RestoreDC(board.dc, saved));
        EXPECT_EQ(board.Shown(), c.shown) << c.name;
    }
}

TEST(Drawing, RasterOperationsCombineSourcePatternAndTarget) {
    const COLORREF source = RGB(0x0F, 0xF0, 0x33), pattern = RGB(0x55, 0xAA, 0x0F),
                   target = RGB(0x3C, 0x66, 0xC3);
    const struct {
        DWORD operation;
        COLORREF result;
    } cases[] = {
        {SRCCOPY, source},
        {SRCPAINT, source | target},
        {SRCAND, source & target},
        {SRCINVERT, source ^ target},
        {SRCERASE, source & ~target},
        {NOTSRCCOPY, ~source & 0xFFFFFF},
        {NOTSRCERASE, ~(source | target) & 0xFFFFFF},
        {MERGECOPY, source & pattern},
        {MERGEPAINT, (~source | target) & 0xFFFFFF},
        {PATCOPY, pattern},
        {PATPAINT, (pattern | ~source | target) & 0xFFFFFF},
        {PATINVERT, pattern ^ target},
        {DSTINVERT, ~target & 0xFFFFFF},
        {BLACKNESS, kBlack},
        {WHITENESS, kWhite},
    };
    const Board from(1, 1), to(1, 1);
    const With brush(to.dc, CreateSolidBrush(pattern));
    SetPixel(from.dc, 0, 0, source);
    for (const auto& c : cases) {
        SetPixel(to.dc, 0, 0, target);
        EXPECT_TRUE(BitBlt(to.dc, 0, 0, 1, 1, from.dc, 0, 0, c.operation));
        EXPECT_EQ(GetPixel(to.dc, 0, 0), c.result) << std::hex << c.operation;
    }
}

TEST(Drawing, CopiesStretchMirrorAndChangeColors) {
    const Board from(3, 2), to(6, 4);
    SetPixel(from.dc, 0, 0, kBlack);
    SetPixel(from.dc, 1, 1, kBlack);
    SetStretchBltMode(to.dc, COLORONCOLOR);
    EXPECT_TRUE(StretchBlt(to.dc, 0, 0, 6, 4, from.dc, 0, 0, 3, 2, SRCCOPY));
    EXPECT_EQ(to.Shown(), "##..../##..../..##../..##..");
    EXPECT_TRUE(StretchBlt(to.dc, 5, 3, -6, -4, from.dc, 0, 0, 3, 2, SRCCOPY));
    EXPECT_EQ(to.Shown(), "..##../..##../....##/....##");
    EXPECT_TRUE(BitBlt(to.dc, 1, 0, 5, 4, to.dc, 0, 0, SRCCOPY)) << "onto itself";
    EXPECT_EQ(to.Shown(), "...##./...##./.....#/.....#");

    // In two colours: what was of the background's colour is set.
    const HDC mono = CreateCompatibleDC(nullptr);
    const With bitmap(mono, CreateBitmap(3, 2, 1, 1, nullptr));
    SetBkColor(from.dc, kBlack);
    EXPECT_TRUE(BitBlt(mono, 0, 0, 3, 2, from.dc, 0, 0, SRCCOPY));
    EXPECT_EQ(GetPixel(mono, 0, 0), kWhite);
    EXPECT_EQ(GetPixel(mono, 1, 0), kBlack);
    // And back: set ones get the background's colour, clear ones that of text.
    SetBkColor(to.dc, RGB(1, 2, 3));
    SetTextColor(to.dc, RGB(4, 5, 6));
    EXPECT_TRUE(BitBlt(to.dc, 0, 0, 3, 2, mono, 0, 0, SRCCOPY));
    EXPECT_EQ(GetPixel(to.dc, 0, 0), RGB(1, 2, 3));
    EXPECT_EQ(GetPixel(to.dc, 1, 0), RGB(4, 5, 6));
    DeleteDC(mono);
}

TEST(Drawing, DibsOfEveryDepthAreRead) {
    const struct {
        WORD depth;
        std::vector<BYTE> bits; // two rows, the lower one first: red green / blue white
    } cases[] = {
        {4, {0x12, 0, 0, 0, 0x34, 0, 0, 0}},
        {8, {1, 2, 0, 0, 3, 4, 0, 0}},
        {16, {0x00, 0x7C, 0xE0, 0x03, 0x1F, 0x00, 0xFF, 0x7F}},
        {24, {0, 0, 255, 0, 255, 0, 0, 0, 255, 0, 0, 255, 255, 255, 0, 0}},
        {32, {0, 0, 255, 0, 0, 255, 0, 0, 255, 0, 0, 0, 255, 255, 255, 0}},
    };
    const COLORREF expected[] = {RGB(0, 0, 255), kWhite, RGB(255, 0, 0), RGB(0, 255, 0)};
    for (const auto& c : cases) {
        SCOPED_TRACE(c.depth);
        Dib dib(2, 2, c.depth, c.bits);
        const Board board(2, 2);
        EXPECT_EQ(SetDIBitsToDevice(board.dc, 0, 0, 2, 2, 0, 0, 0, 2, dib.bits.data(), dib.Info(),
                                    DIB_RGB_COLORS),
                  2);
        for (int i = 0; i < 4; ++i) EXPECT_EQ(GetPixel(board.dc, i % 2, i / 2), expected[i]) << i;
        EXPECT_EQ(StretchDIBits(board.dc, 0, 0, 2, 2, 0, 0, 2, 1, dib.bits.data(), dib.Info(),
                                DIB_RGB_COLORS, SRCCOPY),
                  2);
        EXPECT_EQ(GetPixel(board.dc, 0, 0), expected[2]) << "rows count from the lowest";

        const HBITMAP bitmap = CreateDIBitmap(board.dc, &dib.Info()->bmiHeader, CBM_INIT,
                                              dib.bits.data(), dib.Info(), DIB_RGB_COLORS);
        std::vector<BYTE> read(c.bits.size());
        EXPECT_EQ(GetDIBits(board.dc, bitmap, 0, 2, read.data(), dib.Info(), DIB_RGB_COLORS), 2);
        if (c.depth > 8) {
            EXPECT_EQ(read, c.bits);
        }
        EXPECT_TRUE(DeleteObject(bitmap));
    }
}

TEST(Drawing, PalettesGiveDibsTheirColors) {
    struct {
        LOGPALETTE head;
        PALETTEENTRY more;
    } wanted = {{0x300, 2, {{10, 20, 30, 0}}}, {40, 50, 60, 0}};
    const HPALETTE palette = CreatePalette(&wanted.head);
    ASSERT_NE(palette, nullptr);
    WORD count = 0;
    EXPECT_EQ(GetObjectW(palette, sizeof count, &count), static_cast<int>(sizeof count));
    EXPECT_EQ(count, 2);
    PALETTEENTRY entries[3] = {};
    EXPECT_EQ(GetPaletteEntries(palette, 1, 1, entries), 1u);
    EXPECT_EQ(entries[0].peGreen, 50);
    EXPECT_EQ(GetNearestPaletteIndex(palette, RGB(39, 52, 61)), 1u);

    const Board board(2, 1);
    const HPALETTE before = SelectPalette(board.dc, palette, FALSE);
    EXPECT_EQ(before, GetStockObject(DEFAULT_PALETTE));
    RealizePalette(board.dc);
    Dib dib(2, 1, 8, {1, 0, 0, 0});
    const WORD indices[] = {0, 1};
    std::memcpy(dib.Info()->bmiColors, indices, sizeof indices);
    dib.Info()->bmiHeader.biClrUsed = 2;
    EXPECT_EQ(SetDIBitsToDevice(board.dc, 0, 0, 2, 1, 0, 0, 0, 1, dib.bits.data(), dib.Info(),
                                DIB_PAL_COLORS),
              1);
    EXPECT_EQ(GetPixel(board.dc, 0, 0), RGB(40, 50, 60));
    EXPECT_EQ(GetPixel(board.dc, 1, 0), RGB(10, 20, 30));
    EXPECT_EQ(SelectPalette(board.dc, before, FALSE), palette);
    EXPECT_TRUE(DeleteObject(palette));
}

TEST(Drawing, ObjectsTellWhatTheyAre) {
    LOGFONTW font = {};
    EXPECT_EQ(GetObjectW(GetStockObject(DEFAULT_GUI_FONT), sizeof font, &font),
              static_cast<int>(sizeof font));
    EXPECT_EQ(font.lfHeight, -11);
    const HBRUSH brush = CreateSolidBrush(RGB(1, 2, 3));
    LOGBRUSH described = {};
    EXPECT_EQ(GetObjectW(brush, sizeof described, &described), static_cast<int>(sizeof described));
    EXPECT_EQ(described.lbColor, RGB(1, 2, 3));
    EXPECT_EQ(GetObjectType(brush), static_cast<DWORD>(OBJ_BRUSH));
    EXPECT_TRUE(DeleteObject(brush));
    EXPECT_FALSE(DeleteObject(brush));

    const Board board(5, 3);
    DIBSECTION section = {};
    EXPECT_EQ(GetObjectW(board.bitmap, sizeof section, &section), static_cast<int>(sizeof section));
    EXPECT_EQ(section.dsBm.bmWidth, 5);
    EXPECT_EQ(section.dsBm.bmWidthBytes, 20);
    EXPECT_NE(section.dsBm.bmBits, nullptr);
    BITMAP plain = {};
    EXPECT_EQ(GetObjectW(board.bitmap, sizeof plain, &plain), static_cast<int>(sizeof plain));
    EXPECT_EQ(plain.bmBitsPixel, 32);
    const HDC other = CreateCompatibleDC(nullptr);
    EXPECT_EQ(SelectObject(other, board.bitmap), nullptr) << "it is selected elsewhere";
    EXPECT_TRUE(DeleteDC(other));
    // Stock objects stay.
    EXPECT_TRUE(DeleteObject(GetStockObject(WHITE_BRUSH)));
    EXPECT_EQ(GetObjectType(GetStockObject(WHITE_BRUSH)), static_cast<DWORD>(OBJ_BRUSH));
}

TEST(Drawing, TextLiesWhereItsAlignmentSays) {
    const Board board(60, 40);
    SetBkColor(board.dc, kBlack); // the cell shows where the text is
    SetTextColor(board.dc, kBlack);
    SIZE size = {};
    ASSERT_TRUE(GetTextExtentPoint32W(board.dc, TEXT("ab"), 2, &size));
    TEXTMETRICW metrics = {};
    GetTextMetricsW(board.dc, &metrics);
    const struct {
        UINT align;
        LONG left, top;
    } cases[] = {
        {TA_LEFT | TA_TOP, 30, 20},
        {TA_RIGHT | TA_BOTTOM, 30 - size.cx, 20 - size.cy},
        {TA_CENTER | TA_BASELINE, 30 - size.cx / 2, 20 - metrics.tmAscent},
    };
    for (const auto& c : cases) {
        PatBlt(board.dc, 0, 0, 60, 40, WHITENESS);
        SetTextAlign(board.dc, c.align);
        EXPECT_TRUE(TextOutW(board.dc, 30, 20, TEXT("ab"), 2));
        std::string expected;
        for (int y = 0; y < 40; ++y) {
            if (y) expected += '/';
            for (int x = 0; x < 60; ++x)
                expected += x >= c.left && x < c.left + size.cx && y >= c.top && y < c.top + size.cy
                                ? '#'
                                : '.';
        }
        EXPECT_EQ(board.Shown(), expected) << c.align;
    }
}
