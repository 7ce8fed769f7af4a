// Merging the DEVMODEs of programs, of other printers and of other drivers.
#include <string>

#include "settings/common_private_dm.h"
#include "support/dev_mode_test.h"

namespace {

class DevModeMerge : public DevModeTest {
protected:
    // The printer's default after merging a source into it.
    struct Merged {
        explicit Merged(const DEVMODEW* source) {
            const auto model = Model();
            mode.CreateDefault(model.get());
            mode.Merge(source, model.get());
        }
        DEVMODEW* operator->() { return mode.GetDevMode(); }
        DevMode mode;
    };
};

constexpr DWORD PAPER_BITS = DM_PAPERSIZE | DM_PAPERLENGTH | DM_PAPERWIDTH | DM_FORMNAME;

} // namespace

TEST_F(DevModeMerge, NamesThePaperAsTheSourceDoes) {
    Install(Tables());
    const struct {
        WORD size; // 102 leaves the form's name out, 106 half of it
        DWORD fields;
        SHORT paper;
        DWORD bits_then;
        SHORT paper_then;
        const char* form_then;
    } cases[] = {
        {220, DM_PAPERSIZE, 256, PAPER_BITS, 256, "Form"},
        {220, DM_PAPERSIZE, 0, PAPER_BITS, 256, "Form"},
        {102, DM_PAPERSIZE, 256, PAPER_BITS, 256, ""},
        {220, DM_PAPERSIZE | DM_PAPERLENGTH, 9, DM_PAPERSIZE, 9, "-"},
        {220, DM_PAPERSIZE | DM_FORMNAME, 260, DM_PAPERSIZE | DM_FORMNAME, 260, "Form"},
        {220, DM_FORMNAME | DM_PAPERWIDTH, 9, DM_FORMNAME, 256, "Form"},
        {106, DM_FORMNAME, 9, DM_FORMNAME, 256, "Fo"},
        {102, DM_FORMNAME, 9, PAPER_BITS & ~DWORD{DM_FORMNAME}, 256, "-"},
        {220, DM_PAPERLENGTH, 9, PAPER_BITS & ~DWORD{DM_FORMNAME}, 256, "-"},
    };
    const auto model = Model();
    for (const auto& c : cases) {
        ForeignDevMode source(220, 0);
        source->dmFields = c.fields;
        source->dmPaperSize = c.paper;
        source->dmPaperLength = 777;
        source->dmPaperWidth = 555;
        for (int i = 0; i < 4; ++i) source->dmFormName[i] = static_cast<WCHAR>("Form"[i]);
        source->dmSize = c.size;
        source.bytes.resize(c.size);
        source.bytes.shrink_to_fit();

        DevMode mode;
        mode.CreateDefault(model.get());
        mode.GetDevMode()->dmFormName[0] = '-';
        mode.Merge(source.dev_mode(), model.get());
        const DEVMODEW& raw = *mode.GetDevMode();
        EXPECT_EQ(NumberList({raw.dmFields & PAPER_BITS, raw.dmPaperSize, raw.dmPaperLength,
                              raw.dmPaperWidth}),
                  NumberList({c.bits_then, c.paper_then, 777, 555}))
            << &c - cases;
        EXPECT_EQ(Text(OString(raw.dmFormName)), c.form_then) << &c - cases;
    }
}

TEST_F(DevModeMerge, TakesColourAndResolutionFromItsOwnPrinterOnly) {
    Install(Tables("Color=yes\nColor.Process=CMYK\n"));
    const DWORD all = DM_COLOR | DM_PRINTQUALITY | DM_YRESOLUTION;
    const struct {
        const char* what;
        const char* device;
        DWORD fields;
        SHORT x, y;
        NumberList merged; // x, y and colour
    } cases[] = {
        {"its own", "Dock 3", all, 203, 406, {203, 406, 2}},
        {"another", "Dock 4", all, 203, 406, {203, 203, 1}},
        {"in another case", "dock 3", all, 203, 406, {203, 203, 1}},
        {"a longer name", "Dock 33", all, 203, 406, {203, 203, 1}},
        {"a pair that is not the model's", "Dock 3", all, 203, 300, {203, 203, 2}},
        {"symbolic", "Dock 3", all, -4, 406, {203, 203, 2}},
        {"one of the two", "Dock 3", DM_YRESOLUTION, 600, 406, {203, 406, 1}},
    };
    for (const auto& c : cases) {
        ForeignDevMode source(220, 0, c.device);
        source->dmFields = c.fields;
        source->dmPrintQuality = c.x;
        source->dmYResolution = c.y;
        source->dmColor = 2;
        Merged merged(source.dev_mode());
        EXPECT_EQ(NumberList({merged->dmPrintQuality, merged->dmYResolution, merged->dmColor}),
                  c.merged)
            << c.what;
        EXPECT_EQ(Text(OString(merged->dmDeviceName)), "Dock 3") << c.what;
    }
}

TEST_F(DevModeMerge, IsBoundedByTheModel) {
    Install(Tables());
    const struct {
        DWORD field;
        SHORT DEVMODEW::*member;
        SHORT value, expected;
    } cases[] = {
        {DM_ORIENTATION, &DEVMODEW::dmOrientation, 2, 2},
        {DM_ORIENTATION, &DEVMODEW::dmOrientation, 3, 1},
        {DM_COPIES, &DEVMODEW::dmCopies, 0, 1},
        {DM_COPIES, &DEVMODEW::dmCopies, 500, 500},
        {DM_COPIES, &DEVMODEW::dmCopies, 501, 500},
        {DM_COLOR, &DEVMODEW::dmColor, 2, 1},
        {DM_SCALE, &DEVMODEW::dmScale, 50, 100},
        {DM_DUPLEX, &DEVMODEW::dmDuplex, 2, 1},
        {DM_COLLATE, &DEVMODEW::dmCollate, 1, 0},
        {DM_DEFAULTSOURCE, &DEVMODEW::dmDefaultSource, 4, 4},
        {DM_TTOPTION, &DEVMODEW::dmTTOption, 2, 1},
    };
    DevMode before;
    before.CreateDefault(Model().get());
    for (const auto& c : cases)
        for (const bool asked : {true, false}) {
            ForeignDevMode source(220, 0, "Dock 3");
            source->dmFields = asked ? c.field : 0;
            source.dev_mode()->*c.member = c.value;
            Merged merged(source.dev_mode());
            EXPECT_EQ(merged.mode.GetDevMode()->*c.member,
                      asked ? c.expected : before.GetDevMode()->*c.member)
                << &c - cases;
        }
}

TEST_F(DevModeMerge, TakesFieldsThatBothPublicPartsHold) {
    Install(Tables());
    const NumberList cases[] = {{220, 7, 3, 4}, {196, 7, 3, 4}, {192, 7, 3, 1}, {188, 7, 2, 1},
                                {88, 7, 2, 1},  {86, 1, 2, 1},  {72, 1, 2, 1},  {0, 1, 2, 1}};
    for (const NumberList& c : cases) { // size, copies, method and intent
        ForeignDevMode source(220, 0);
        source->dmFields = DM_COPIES | DM_ICMMETHOD | DM_ICMINTENT | DM_MEDIATYPE | DM_DITHERTYPE;
        source->dmCopies = 7;
        source->dmICMMethod = 3;
        source->dmICMIntent = 4;
        source->dmMediaType = 5;
        source->dmDitherType = 6;
        source->dmSize = static_cast<WORD>(c[0]);
        source.bytes.resize(c[0] < 72 ? 72 : static_cast<size_t>(c[0]));
        source.bytes.shrink_to_fit();
        Merged merged(source.dev_mode());
        EXPECT_EQ(NumberList({c[0], merged->dmCopies, merged->dmICMMethod, merged->dmICMIntent}),
                  c);
        EXPECT_EQ(NumberList({merged->dmMediaType, merged->dmDitherType}), NumberList({1, 256}));
        EXPECT_EQ(merged->dmFields & DM_COLLATE, DWORD(DM_COLLATE)) << "stays set";
    }
}

TEST_F(DevModeMerge, TakesHalftonesOfTheSameVersion) {
    Install(Tables());
    const struct {
        const char* what;
        uint16_t extra, size, version;
        uint32_t signature;
        NumberList after; // flags, contrast, size
    } cases[] = {
        {"all", 164, 164, 1, 0x4E54444D, {7, 7, 164}},
        {"another version", 164, 164, 2, 0x4E54444D, {2, 0, 164}},
        {"another signature", 164, 164, 1, 0x4E54444E, {2, 0, 164}},
        {"a shorter one", 164, 140, 1, 0x4E54444D, {7, 0, 140}},
        {"a longer one", 200, 200, 1, 0x4E54444D, {7, 7, 164}},
        {"one that tells lies", 12, 65535, 1, 0x4E54444D, {7, 0, 164}},
        {"half of its head", 7, 164, 1, 0x4E54444D, {2, 0, 164}},
    };
    for (const auto& c : cases) {
        ForeignDevMode source(188, c.extra);
        char block[200] = {};
        auto* content = reinterpret_cast<COMMONPRIVATEDM*>(block);
        content->size = c.size;
        content->version = c.version;
        content->signature = c.signature;
        content->halftone.HTFlags = 7;
        content->adjustment.caContrast = 7;
        std::memcpy(source.bytes.data() + 188, block, c.extra);
        Merged merged(source.dev_mode());
        const COMMONPRIVATEDM* after = GetCommonPrivateDm(merged.mode.GetDevMode());
        ASSERT_NE(after, nullptr) << c.what;
        EXPECT_EQ(NumberList({after->halftone.HTFlags, after->adjustment.caContrast, after->size}),
                  c.after)
            << c.what;
        EXPECT_NE(merged.mode.GetConfiguration(), nullptr) << c.what;
    }
}
