// Merging the DEVMODEs of programs, of other printers and of other drivers.
#include <string>

#include "settings/common_private_dm.h"
#include "support/dev_mode_test.h"

namespace {

class DevModeMerge : public DevModeTest {
protected:
    // What the printer's default becomes when it is merged with a source.
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
        const char* what;
        WORD size;
        DWORD fields;
        SHORT paper;
        DWORD expected_bits;
        SHORT expected_paper;
        const char* expected_form;
    } cases[] = {
        {"custom by 256", 220, DM_PAPERSIZE, 256, PAPER_BITS, 256, "Form"},
        {"custom by 0", 220, DM_PAPERSIZE, 0, PAPER_BITS, 256, "Form"},
        {"a number", 220, DM_PAPERSIZE, 9, DM_PAPERSIZE, 9, "-"},
        {"a number and extent", 220, DM_PAPERSIZE | DM_PAPERLENGTH, 9, DM_PAPERSIZE, 9, "-"},
        {"a number and a form", 220, DM_PAPERSIZE | DM_FORMNAME, 260, DM_PAPERSIZE | DM_FORMNAME,
         260, "Form"},
        {"a form", 220, DM_FORMNAME | DM_PAPERWIDTH, 9, DM_FORMNAME, 256, "Form"},
        {"a form beyond the public part", 102, DM_FORMNAME, 9,
         DM_PAPERSIZE | DM_PAPERLENGTH | DM_PAPERWIDTH, 256, "-"},
        {"half a form", 106, DM_FORMNAME, 9, DM_FORMNAME, 256, "Fo"},
        {"custom without a form", 102, DM_PAPERSIZE, 256, PAPER_BITS, 256, ""},
        {"nothing", 220, DM_PAPERLENGTH | DM_PAPERWIDTH, 9,
         DM_PAPERSIZE | DM_PAPERLENGTH | DM_PAPERWIDTH, 256, "-"},
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
        EXPECT_EQ(raw.dmFields & PAPER_BITS, c.expected_bits) << c.what;
        EXPECT_EQ(raw.dmPaperSize, c.expected_paper) << c.what;
        EXPECT_EQ(Text(OString(raw.dmFormName)), c.expected_form) << c.what;
        EXPECT_EQ(raw.dmPaperLength, 777) << c.what;
        EXPECT_EQ(raw.dmPaperWidth, 555) << c.what;
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
        SHORT expected_x, expected_y, expected_color;
    } cases[] = {
        {"its own", "Dock 3", all, 203, 406, 203, 406, 2},
        {"another", "Dock 4", all, 203, 406, 203, 203, 1},
        {"in another case", "dock 3", all, 203, 406, 203, 203, 1},
        {"a longer name", "Dock 33", all, 203, 406, 203, 203, 1},
        {"a pair that is not the model's", "Dock 3", all, 203, 300, 203, 203, 2},
        {"symbolic", "Dock 3", all, -4, 406, 203, 203, 2},
        {"one of the two", "Dock 3", DM_YRESOLUTION, 600, 406, 203, 406, 1},
        {"none", "Dock 3", 0, 203, 406, 203, 203, 1},
    };
    for (const auto& c : cases) {
        ForeignDevMode source(220, 0, c.device);
        source->dmFields = c.fields;
        source->dmPrintQuality = c.x;
        source->dmYResolution = c.y;
        source->dmColor = 2;
        Merged merged(source.dev_mode());
        EXPECT_EQ(merged->dmPrintQuality, c.expected_x) << c.what;
        EXPECT_EQ(merged->dmYResolution, c.expected_y) << c.what;
        EXPECT_EQ(merged->dmColor, c.expected_color) << c.what;
        EXPECT_EQ(Text(OString(merged->dmDeviceName)), "Dock 3") << c.what;
    }
}

TEST_F(DevModeMerge, IsBoundedByTheModel) {
    Install(Tables());
    const struct {
        const char* what;
        DWORD field;
        SHORT DEVMODEW::*member;
        SHORT value, expected;
    } cases[] = {
        {"orientation 2", DM_ORIENTATION, &DEVMODEW::dmOrientation, 2, 2},
        {"orientation 0", DM_ORIENTATION, &DEVMODEW::dmOrientation, 0, 1},
        {"orientation 3", DM_ORIENTATION, &DEVMODEW::dmOrientation, 3, 1},
        {"copies 0", DM_COPIES, &DEVMODEW::dmCopies, 0, 1},
        {"copies", DM_COPIES, &DEVMODEW::dmCopies, 500, 500},
        {"too many copies", DM_COPIES, &DEVMODEW::dmCopies, 501, 500},
        {"colour", DM_COLOR, &DEVMODEW::dmColor, 2, 1},
        {"scale", DM_SCALE, &DEVMODEW::dmScale, 50, 100},
        {"duplex", DM_DUPLEX, &DEVMODEW::dmDuplex, 2, 1},
        {"collation", DM_COLLATE, &DEVMODEW::dmCollate, 1, 0},
        {"source", DM_DEFAULTSOURCE, &DEVMODEW::dmDefaultSource, 4, 4},
        {"TrueType option", DM_TTOPTION, &DEVMODEW::dmTTOption, 2, 1},
    };
    for (const auto& c : cases) {
        for (const bool asked : {true, false}) {
            ForeignDevMode source(220, 0, "Dock 3");
            source->dmFields = asked ? c.field : 0;
            source.dev_mode()->*c.member = c.value;
            DevMode before;
            before.CreateDefault(Model().get());
            Merged merged(source.dev_mode());
            EXPECT_EQ(merged.mode.GetDevMode()->*c.member,
                      asked ? c.expected : before.GetDevMode()->*c.member)
                << c.what;
        }
    }
}

TEST_F(DevModeMerge, TakesFieldsThatBothPublicPartsHold) {
    Install(Tables());
    const struct {
        WORD size;
        SHORT copies;
        DWORD method, intent;
    } cases[] = {{220, 7, 3, 4}, {196, 7, 3, 4}, {192, 7, 3, 1}, {188, 7, 2, 1}, {156, 7, 2, 1},
                 {88, 7, 2, 1},  {86, 1, 2, 1},  {76, 1, 2, 1},  {72, 1, 2, 1},  {0, 1, 2, 1}};
    for (const auto& c : cases) {
        ForeignDevMode source(220, 0);
        source->dmFields = DM_COPIES | DM_ICMMETHOD | DM_ICMINTENT | DM_MEDIATYPE | DM_DITHERTYPE;
        source->dmCopies = 7;
        source->dmICMMethod = 3;
        source->dmICMIntent = 4;
        source->dmMediaType = 5;
        source->dmDitherType = 6;
        source->dmSize = c.size;
        source.bytes.resize(c.size < 72 ? 72 : c.size);
        source.bytes.shrink_to_fit();
        Merged merged(source.dev_mode());
        EXPECT_EQ(merged->dmCopies, c.copies) << c.size;
        EXPECT_EQ(merged->dmICMMethod, c.method) << c.size;
        EXPECT_EQ(merged->dmICMIntent, c.intent) << c.size;
        EXPECT_EQ(merged->dmMediaType, 1u) << c.size;
        EXPECT_EQ(merged->dmDitherType, 256u) << c.size;
        EXPECT_EQ(merged->dmFields & DM_COLLATE, DWORD(DM_COLLATE)) << "stays set";
    }
}

TEST_F(DevModeMerge, TakesHalftonesOfTheSameVersion) {
    Install(Tables());
    const struct {
        const char* what;
        uint16_t extra, size, version;
        uint32_t signature;
        uint32_t flags, contrast;
        uint16_t size_after;
    } cases[] = {
        {"all", 164, 164, 1, 0x4E54444D, 7, 7, 164},
        {"another version", 164, 164, 2, 0x4E54444D, 2, 0, 164},
        {"another signature", 164, 164, 1, 0x4E54444E, 2, 0, 164},
        {"a shorter one", 164, 140, 1, 0x4E54444D, 7, 0, 140},
        {"a longer one", 200, 200, 1, 0x4E54444D, 7, 7, 164},
        {"one that tells lies", 12, 65535, 1, 0x4E54444D, 7, 0, 164},
        {"half of its head", 7, 164, 1, 0x4E54444D, 2, 0, 164},
        {"none", 0, 0, 0, 0, 2, 0, 164},
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
        EXPECT_EQ(after->halftone.HTFlags, c.flags) << c.what;
        EXPECT_EQ(after->adjustment.caContrast, static_cast<SHORT>(c.contrast)) << c.what;
        EXPECT_EQ(after->size, c.size_after) << c.what;
        EXPECT_NE(merged.mode.GetConfiguration(), nullptr) << c.what;
    }
}

TEST_F(DevModeMerge, TakesTheConfigurationOfItsOwnFamily) {
    Install(Tables());
    DevMode source;
    for (const size_t changed : {size_t{0}, size_t{1500}, size_t{1503}, size_t{384 + 1026}}) {
        source.CreateDefault(Model().get());
        source.SetNegative(true);
        reinterpret_cast<char*>(source.GetDevMode())[changed] ^= 1; // 0: of the device name
        Merged merged(source.GetDevMode());
        EXPECT_EQ(merged.mode.GetNegative(), changed == 0) << changed;
        merged.mode.Merge(nullptr, nullptr);
    }
}
