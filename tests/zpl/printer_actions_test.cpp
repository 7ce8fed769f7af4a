// Printer actions, from the offer to the bytes of the job.
#include "printer/printer_action.h"

#include <functional>
#include <memory>

#include "support/job_test.h"
#include "zpl/extconfig.h"

namespace {

using Jobs = std::vector<PrintedJob>;
using Change = std::function<void(extconfig&)>;

constexpr char kModel[] = "Resolution=203\nStock.Default.X=4 in\nStock.Default.Y=6 in\n";

std::string Pplz(const std::string& model) {
    return model + "~ArgoxPPLZ=yes\n";
}

CustomData Data(uint32_t flags) {
    CustomData data = {};
    data.flags = flags;
    data.tear_off_min = data.label_top_min = -120;
    data.tear_off_max = data.label_top_max = 99;
    data.speeds[0] = {2, {'2'}, 1};
    data.speeds[1] = {4, {'4'}, 0};
    data.speeds[2] = {12, {'1', '2', '.'}, 0};
    return data;
}

class PrinterActions : public JobTest {
protected:
    void SetUp() override {
        Install({});
        InstallLanguage();
    }

    void Use(const ModelTables& tables, const Change& change = {}) {
        ui_.reset();
        Replace(tables);
        ui_ = OpenUI();
        if (change) change(*extconfig::get_cfg(ui_->devmode.GetDevMode()));
    }
    Jobs Run(int action) {
        ui_->PrinterAction(nullptr, static_cast<printer_action>(action));
        return TakeJobs();
    }
    // The configuration as the feed action sends it.
    std::string Block() {
        const Jobs jobs = Run(ACTION_FEED);
        const std::string head = "^XA\r\n", tail = "^XZ\r\n~PH";
        if (jobs.size() != 1 || !jobs[0].bytes.starts_with(head) || !jobs[0].bytes.ends_with(tail))
            return "(no configuration)";
        return jobs[0].bytes.substr(head.size(), jobs[0].bytes.size() - head.size() - tail.size());
    }

    std::unique_ptr<prtui> ui_;
};

} // namespace

TEST_F(PrinterActions, WritesEachSettingByItsValue) {
    struct Case {
        Change change;
        const char* block;      // from the page width to the end of its line, and what follows it
        const char* pplz_block; // null: the same
    };
    const auto media = [](int16_t type, int16_t tracking) {
        return [=](extconfig& config) {
            config.media_type = type;
            config.media_tracking = tracking;
            config.print_mode = extconfig::PRINT_TEAR_OFF;
        };
    };
    const auto mode = [](int16_t print_mode, int32_t backfeed, int16_t variant = 0) {
        return [=](extconfig& config) {
            config.print_mode = print_mode;
            config.backfeed = backfeed;
            config.cut_variant = variant;
        };
    };
    const auto darkness = [](uint16_t flags, int value) {
        return [=](extconfig& config) {
            config.print_mode = extconfig::PRINT_REWIND;
            config.setting_flags = flags;
            config.absolute_darkness = config.relative_darkness = value;
        };
    };
    const Case cases[] = {
        {media(-1, -1), "^MMT\r\n", "~JSN^MMT\r\n"},
        {media(1, 0), "^MTT^MNN^LL1218^MMT\r\n", "^MTT^MNN^LL1218~JSN^MMT\r\n"},
        {media(7, 1), "^MTT^MNY^MMT\r\n", "^MTT^MNY~JSN^MMT\r\n"},
        {media(0, 3), "^MTD^MNM^MMT\r\n", "^MTD^MNY~JSN^MMT\r\n"},
        {media(0, 9), "^MTD^MN^MMT\r\n", "^MTD^MN~JSN^MMT\r\n"},
        {mode(-1, 1), "~JSB\r\n", "\r\n"},
        {mode(1, 2), "~JSA^MMP\r\n", "~JSN^MMP\r\n"},
        {mode(2, 2), "^MMR\r\n", "~JSN^MMR\r\n"},
        {mode(4, 3), "~JSO^MMA\r\n", "~JSN^MMA\r\n"},
        {mode(3, 0, 0), "~JSN^MMC\r\n", "~JSA^MMC\r\n"},
        {mode(3, 5, 1), "~JSN^MMT\r\n", "~JSN^MMT\r\n"},
        {mode(3, 0, 2), "~JSN^MMC\r\n", "~JSA^MMC\r\n"},
        {mode(3, 0, 3), "~JSN^MM\r\n", "~JSA^MM\r\n"},
        {mode(6, 0), "~JSN^MM\r\n", "~JSN^MM\r\n"},
        {darkness(0x30, 7), "^MMR\r\n~SD07^MD0\r\n", "~JSN^MMR\r\n~SD07^MD0\r\n"},
        {darkness(0x10, 7), "^MMR\r\n^MD7\r\n", "~JSN^MMR\r\n^MD7\r\n"},
        {darkness(0x08, 7), "^MMR\r\n^PR2\r\n", "~JSN^MMR\r\n^PR2\r\n"},
    };
    for (const bool pplz : {false, true}) {
        const ModelTables tables = {.model = pplz ? Pplz(kModel) : kModel,
                                    .custom_data = CustomDataLines(Data(0))};
        for (const Case& c : cases) {
            Use(tables, c.change);
            const std::string head = pplz ? "" : "^SZ2^JMA\r\n";
            EXPECT_EQ(Block(),
                      head + "^MCY^PMN\r\n^PW832" + (pplz ? c.pplz_block : c.block) + "^JZY\r\n")
                << c.block;
        }
    }
}

TEST_F(PrinterActions, TellsTheMemoriesThatObjectsAreKeptIn) {
    Use({.model = kModel, .features = "~Memory.Options=E,X\n"});
    CacheParameters parameters;
    ui_->GetCacheParameters(parameters);
    EXPECT_EQ(parameters.largest_memory, 8192);
    EXPECT_EQ(parameters.format_max, 999);
    EXPECT_EQ(Text(parameters.graphics_location_names), "E: Flash memory,X,R: Working memory");
    ASSERT_EQ(parameters.format_locations.GetSize(), 3);
    EXPECT_EQ(parameters.format_locations[2], 'R');
}
