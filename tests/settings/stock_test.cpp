// One stock: its record, and the position of a page on it.
#include "settings/stock.h"

#include <cstring>
#include <string>

#include "support/dev_mode_test.h"

namespace {

class StockOfModel : public DevModeTest {
protected:
    void SetUp() override { Install({}); }

    // A printer of 203 x 406 dpi whose head reaches 104 mm, with labels up to 990 mm.
    void Use(const std::string& tracking, int unprintable, int natural_degrees = 0,
             int printable = 104) {
        Replace({.model = "Resolution=203x406\nStock.Printable.X=" + std::to_string(printable) +
                          " mm\nStock.Maximum.Y=990 mm\nStock.UnprintableWidth=" +
                          std::to_string(unprintable) + " mm\nStock.Tracking=" + tracking + "\n",
                 .drawing = "Transform.Orientation=" + std::to_string(natural_degrees) + "\n"});
    }
};

// 100 x 150 mm with 2 and 3 mm of liner, 1 and 0.5 mm of gap.
Stock Label() {
    const StockRecord record = {100000, 150000, 2000, 3000, 1000, 500, StockRecord::GLOBAL};
    Stock stock;
    stock.SetRecord(&record, sizeof record);
    return stock;
}

} // namespace

TEST_F(StockOfModel, LosesToTheModelWhatTheHeadDoesNotReach) {
    const struct {
        const char* tracking;
        int unprintable, printable_max;
        int32_t printable, left, right;
    } cases[] = {{"Left", 1, 104, 100000, 2000, 3000}, {"Left", 5, 104, 97000, 5000, 3000},
                 {"Left", 1, 90, 90000, 2000, 13000},  {"Right", 1, 104, 100000, 2000, 3000},
                 {"Right", 5, 104, 98000, 2000, 5000}, {"Center", 1, 104, 100000, 3500, 1500},
                 {"Center", 1, 90, 90000, 8500, 6500}, {"Center", 0, 104, 100000, 2500, 2500}};
    for (const auto& c : cases) {
        Use(c.tracking, c.unprintable, 0, c.printable_max);
        Stock stock = Label();
        stock.CalculatePrintableArea(Model().get());
        const std::string what = std::string(c.tracking) + " " + std::to_string(c.unprintable) +
                                 " of " + std::to_string(c.printable_max);
        EXPECT_EQ(NumberList({stock.paper_width, stock.paper_length, stock.printable_width,
                              stock.offset_left, stock.offset_right, stock.printable_length,
                              stock.offset_bottom}),
                  NumberList({105000, 151500, c.printable, c.left, c.right, 150000, 1500}))
            << what;
    }
}

TEST_F(StockOfModel, IsNoLongerThanTheModelPrintsAndNoWiderThanItsLiner) {
    Use("Center", 0);
    Stock stock = Label();
    stock.length = 1000000;
    stock.liner_left = 9000;
    stock.CalculatePrintableArea(Model().get());
    EXPECT_EQ(stock.printable_length, 990000);
    EXPECT_EQ(stock.offset_bottom, 11500);
    EXPECT_EQ(stock.offset_left, 9000) << "not half of liners that differ";
    EXPECT_EQ(stock.offset_right, 3000);
}

TEST_F(StockOfModel, PlacesThePageByTrackingAndTurn) {
    // A label of 100 mm on a liner that extends by 2 and 3 mm, at 203 dots per inch across and 406
    // along. The head does not reach 1 mm.
    const struct {
        const char* tracking;
        int natural;
        int turn;
        int32_t origin_x, origin_y, shift_x, shift_y, device_x, device_y;
    } cases[] = {{"Left", 0, 0, -6, 0, -6, 0, 0, 0},    {"Left", 0, 1, -14, 0, 0, -6, 0, 0},
                 {"Left", 0, 2, 32, 0, 8, 0, 0, 0},     {"Left", 0, 3, 64, 0, 0, 8, 0, 0},
                 {"Left", 90, 0, -6, 0, -6, 0, 0, 0},   {"Left", 90, 1, -14, 0, 0, -6, 0, 0},
                 {"Left", 90, 2, 32, 0, 8, 0, 0, 0},    {"Left", 90, 3, 64, 0, 0, 8, 0, 0},
                 {"Left", 180, 0, 40, 0, 0, 0, -7, 0},  {"Left", 180, 1, 80, 0, 0, 0, 0, -7},
                 {"Left", 180, 2, 0, 0, 0, 0, 7, 0},    {"Left", 180, 3, 0, 0, 0, 0, 0, 7},
                 {"Right", 0, 0, 16, 0, 0, 0, 16, 0},   {"Right", 0, 1, 0, 0, 0, 0, 0, 16},
                 {"Right", 0, 2, 40, 0, 0, 0, -14, 0},  {"Right", 0, 3, 80, 0, 0, 0, 0, -14},
                 {"Right", 90, 0, 16, 0, 0, 0, 0, 0},   {"Right", 90, 1, 0, 0, 0, 0, 0, 0},
                 {"Right", 90, 2, 40, 0, 0, 0, 0, 0},   {"Right", 90, 3, 80, 0, 0, 0, 0, 0},
                 {"Right", 180, 0, 24, 0, 16, 0, 0, 0}, {"Right", 180, 1, 48, 0, 0, 16, 0, 0},
                 {"Right", 180, 2, 0, 0, -14, 0, 0, 0}, {"Right", 180, 3, 0, 0, 0, -14, 0, 0},
                 {"Center", 0, 0, 0, 0, 0, 0, 0, 0},    {"Center", 0, 1, 0, 0, 0, 0, 0, 0},
                 {"Center", 0, 2, 0, 0, 0, 0, 0, 0},    {"Center", 0, 3, 0, 0, 0, 0, 0, 0},
                 {"Center", 90, 0, -26, 0, 0, 0, 0, 0}, {"Center", 90, 1, -54, 0, 0, 0, 0, 0},
                 {"Center", 90, 2, 28, 0, 0, 0, 0, 0},  {"Center", 90, 3, 56, 0, 0, 0, 0, 0},
                 {"Center", 180, 0, 40, 0, 0, 0, 0, 0}, {"Center", 180, 1, 80, 0, 0, 0, 0, 0},
                 {"Center", 180, 2, 0, 0, 0, 0, 0, 0},  {"Center", 180, 3, 0, 0, 0, 0, 0, 0}};
    for (const auto& c : cases) {
        Use(c.tracking, 1, c.natural);
        const auto model = Model();
        DevMode mode;
        mode.CreateDefault(model.get());
        mode.SetOrientation(c.turn);
        Stock stock = Label();
        stock.CalculateOffsets(model.get(), mode.GetDevMode());
        const std::string what = std::string(c.tracking) + " " + std::to_string(c.natural) +
                                 " turned " + std::to_string(c.turn);
        const bool landscape = c.turn % 2 != 0;
        EXPECT_EQ(stock.dpi_x, landscape ? 406 : 203) << what;
        EXPECT_EQ(stock.paper_width, landscape ? 151500 : 105000) << what;
        const NumberList expected = {c.origin_x, c.origin_y, c.shift_x,
                                     c.shift_y,  c.device_x, c.device_y};
        for (int time = 0; time < 2; ++time) {
            EXPECT_EQ(NumberList({stock.origin_x, stock.origin_y, stock.shift_x, stock.shift_y,
                                  stock.device_x, stock.device_y}),
                      expected)
                << what;
            stock.CalculateOffsets(model.get(), mode.GetDevMode());
        }
        if (*c.tracking != 'L') continue;
        const int32_t margins[4][2] = {{15, 0}, {23, 15}, {23, 23}, {0, 23}};
        EXPECT_EQ(stock.margin_x, margins[c.turn][0]) << what;
        EXPECT_EQ(stock.margin_y, margins[c.turn][1]) << what;
    }
}

TEST_F(StockOfModel, BecomesThePaperOfADevMode) {
    Replace(Tables());
    const auto model = Model();
    const DWORD extent = DM_PAPERLENGTH | DM_PAPERWIDTH;
    for (const bool user : {true, false}) {
        Stock stock = Label();
        stock.SetName(std::string(40, 'n').c_str());
        stock.flags = user ? Stock::USER : Stock::GLOBAL;
        stock.paper_id = 258;
        stock.length = 5000000;
        DevMode mode;
        mode.CreateDefault(model.get());
        mode.GetDevMode()->dmFields = 0;
        mode.SetStock(nullptr);
        EXPECT_EQ(mode.GetDevMode()->dmFields, 0u);
        mode.SetStock(&stock);
        const DEVMODEW& raw = *mode.GetDevMode();
        EXPECT_EQ(raw.dmFields, DM_PAPERSIZE | DM_FORMNAME | (user ? extent : 0));
        EXPECT_EQ(raw.dmPaperSize, 258);
        EXPECT_EQ(raw.dmPaperWidth, 1050);
        EXPECT_EQ(raw.dmPaperLength, 32767) << "longer than a DEVMODE can say";
        EXPECT_EQ(Text(OString(raw.dmFormName)), std::string(31, 'n'));
    }
    DevMode none;
    Stock stock = Label();
    none.SetStock(&stock);
}

TEST(StockRecords, AreFingerprintedWithTheName) {
    Stock stock = Label();
    const uint32_t before = stock.GetCRC32(0);
    EXPECT_NE(stock.GetCRC32(1), before);
    stock.flags ^= Stock::SERVER;
    EXPECT_NE(stock.GetCRC32(0), before);
    stock.flags ^= Stock::SERVER;
    stock.paper_width = 5;
    EXPECT_EQ(stock.GetCRC32(0), before) << "what is derived does not count";
    stock.SetName("x");
    EXPECT_NE(stock.GetCRC32(0), before);
}
