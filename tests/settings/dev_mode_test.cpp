// The driver's DEVMODE: its layout, its defaults and its settings.
#include "settings/dev_mode.h"

#include <string>

#include "settings/common_private_dm.h"
#include "spooler/platform_flags.h"
#include "spooler/printer_info.h"
#include "support/dev_mode_test.h"

namespace {

class DriverDevMode : public DevModeTest {};

// The expected bytes of a record, written value by value.
struct Bytes {
    template <class T>
    void Put(size_t offset, std::initializer_list<int> values) {
        for (const int number : values) {
            const T value = static_cast<T>(number);
            std::memcpy(&bytes[offset], &value, sizeof value);
            offset += sizeof value;
        }
    }
    void Words(size_t offset, std::initializer_list<int> values) { Put<uint16_t>(offset, values); }
    void Longs(size_t offset, std::initializer_list<int> values) { Put<uint32_t>(offset, values); }
    void Text(size_t offset, const std::string& text) { bytes.replace(offset, text.size(), text); }

    std::string bytes;
};

} // namespace

TEST_F(DriverDevMode, HasEveryByteOfItsDefaultsInPlace) {
    CustomData data = {};
    data.speeds[0] = {4, "C", 1};
    ModelTables tables = Tables("Color=yes\nColor.DefaultState=Color\n");
    tables.custom_data = CustomDataLines(data);
    Install(tables);
    ASSERT_EQ(DevMode::GetDefaultDevModeSize(), 1508);
    DevMode mode;
    mode.CreateDefault(Model().get());

    Bytes expected = {std::string(1508, '\0')};
    expected.Words(0, {'D', 'o', 'c', 'k', ' ', '3'});
    expected.Words(64, {0x401, 0x607, 220, 1288});
    expected.Longs(72, {0x780FF1F});
    expected.Words(76, {1, 256, 1524, 1041, 100, 1, 256, 203, 2, 1, 203, 1, 0});
    expected.Longs(188, {2, 1, 1, 256});

    expected.Words(220, {164, 1});
    expected.Text(224, "MDTN");
    expected.Longs(228, {2,    5,    203,   6380,  3350,  0,    2345, 6075, 0,    1410, 932,
                         0,    2000, 2450,  0,     5210,  2100, 0,    4750, 5100, 0,    3127,
                         3290, 0,    12500, 12500, 12500, 585,  120,  0,    0,    0,    10000});
    expected.Words(360, {24, 0, 0, 10000, 10000, 10000, 0, 10000});

    expected.Words(384 + 1024, {1116, 1028, 0, 0});
    expected.Longs(384 + 1032, {6350});
    expected.Words(384 + 1036, {2, 0, 0, 0, 0, 0, 2, 2, 0, 18, 16, 0});
    expected.Words(384 + 1060, {-1, -1});
    expected.Longs(384 + 1072, {4, 4, 4, 0, 0, 0, 12});
    expected.Words(384 + 1100, {-1});
    expected.Text(1500, "kvkzpl");
    expected.Words(1506, {1124});
    const char* actual = reinterpret_cast<const char*>(mode.GetDevMode());
    for (size_t i = 0; i < 1508; ++i) ASSERT_EQ(actual[i], expected.bytes[i]) << "byte " << i;
}

TEST_F(DriverDevMode, CutsTheDeviceNameToLeaveATerminator) {
    ASSERT_TRUE(AddDriver("Model 1", "zplqv.ddt"));
    const std::string name(40, 'n');
    ASSERT_TRUE(AddPrinter(name.c_str(), "Model 1"));
    const std::unique_ptr<prtmodel> model(prtmodel::new_ext(PrinterInfo(OString(name.c_str()))));
    DevMode mode;
    mode.CreateDefault(model.get());
    EXPECT_EQ(Text(OString(mode.GetDevMode()->dmDeviceName)), std::string(31, 'n'));
    EXPECT_EQ(mode.GetDevMode()->dmSpecVersion, 0x401);
}

TEST_F(DriverDevMode, LeavesColourManagementToSystemsThatHaveIt) {
    Install(Tables());
    const bool nt = winNT, w2000 = win2000;
    const std::pair<const char*, bool> cases[] = {{"C:\\drivers\\w32x86\\2", false},
                                                  {"C:\\drivers\\w32x86\\3", true},
                                                  {"C:\\WINDOWS\\SYSTEM", true}};
    for (const auto& [folder, has] : cases) {
        SetPlatformFlags(folder);
        DevMode mode;
        mode.CreateDefault(Model().get());
        const DEVMODEW& raw = *mode.GetDevMode();
        EXPECT_EQ(DevMode::SupportsICM(), has) << folder;
        EXPECT_EQ(raw.dmFields, has ? 0x780FF1Fu : 0xFF1Fu) << folder;
        mode.SetICMIntent(3);
        mode.SetICMMethod(4);
        EXPECT_EQ(NumberList({mode.GetICMIntent(), mode.GetICMMethod(), raw.dmICMIntent}),
                  has ? NumberList({3, 4, 3}) : NumberList({1, 2, 0}));
    }
    winNT = nt;
    win2000 = w2000;
}

TEST_F(DriverDevMode, TurnsThePageInItsConfiguration) {
    Install(Tables());
    DevMode mode;
    mode.CreateDefault(Model().get());
    for (int orientation : {3, 2, 1, 0}) {
        mode.SetOrientation(orientation);
        EXPECT_EQ(mode.GetOrientation(), orientation);
        EXPECT_EQ(mode.GetDevMode()->dmOrientation, orientation % 2 + 1);
        EXPECT_EQ(mode.GetConfiguration()->flags, orientation / 2);
    }
    mode.SetOrientation(3);
    mode.GetDevMode()->dmFields &= ~DWORD(DM_ORIENTATION);
    EXPECT_EQ(mode.GetOrientation(), 2) << "dmOrientation does not count";
}

TEST(DevModeSettings, AreNeutralWithoutBufferOrConfiguration) {
    ForeignDevMode foreign(220, 0), nothing(0, 0);
    foreign->dmFields = DM_COPIES;
    foreign->dmCopies = 3;
    for (DEVMODEW* buffer :
         {static_cast<DEVMODEW*>(nullptr), foreign.dev_mode(), nothing.dev_mode()}) {
        DevMode mode(buffer);
        mode.SetPresetCRC32(5);
        mode.SetMirror(true);
        EXPECT_EQ(mode.GetConfiguration(), nullptr);
        EXPECT_EQ(mode.GetPresetCRC32(), 0u);
        EXPECT_FALSE(mode.GetMirror() || mode == mode);
        EXPECT_EQ(mode.GetCopies(), buffer == foreign.dev_mode() ? 3 : 1);
        if (buffer == foreign.dev_mode()) continue;
        mode.SetCopies(9);
        mode.SetOrientation(3);
        mode.SetResolutionID(1);
        EXPECT_EQ(mode.GetColor(), 1);
        EXPECT_EQ(mode.GetICMIntent(), 1);
        EXPECT_EQ(mode.GetICMMethod(), 2);
        EXPECT_EQ(mode.GetOrientation(), 0);
        EXPECT_EQ(mode.GetResolutionID(), 0u);
    }
    DevMode none; // of which nothing can be made
    none.Merge(foreign.dev_mode(), nullptr);
    none.Validate(nullptr);
    none.Reset(nullptr);
    EXPECT_EQ(none.GetDevMode(), nullptr);
}

TEST_F(DriverDevMode, IsEqualInWhatPresetsAreKnownBy) {
    Install(Tables());
    const auto model = Model();
    DevMode a, b;
    a.CreateDefault(model.get());
    const struct {
        SHORT DEVMODEW::*field;
        SHORT change;
        bool equal;
    } cases[] = {
        {&DEVMODEW::dmOrientation, 1, false},  {&DEVMODEW::dmDefaultSource, 1, false},
        {&DEVMODEW::dmPaperWidth, 2, true},    {&DEVMODEW::dmPaperWidth, 3, false}, // 0.3 mm
        {&DEVMODEW::dmPaperLength, -2, true},  {&DEVMODEW::dmPaperLength, -3, false},
        {&DEVMODEW::dmPrintQuality, 1, false}, {&DEVMODEW::dmYResolution, 1, false},
        {&DEVMODEW::dmColor, 1, false},        {&DEVMODEW::dmDuplex, 1, false},
        {&DEVMODEW::dmCollate, 1, false},      {&DEVMODEW::dmCopies, 1, true},
        {&DEVMODEW::dmScale, 1, true},         {&DEVMODEW::dmPaperSize, 1, true},
        {&DEVMODEW::dmTTOption, 1, true},
    };
    for (const auto& c : cases) {
        b.CreateDefault(model.get());
        EXPECT_TRUE(a == b);
        SHORT& field = b.GetDevMode()->*c.field;
        field = static_cast<SHORT>(field + c.change);
        EXPECT_TRUE((a == b) == c.equal && (b == a) == c.equal) << "case " << &c - cases;
    }
    for (DWORD DEVMODEW::*field : {&DEVMODEW::dmICMMethod, &DEVMODEW::dmICMIntent,
                                   &DEVMODEW::dmMediaType, &DEVMODEW::dmDitherType}) {
        b.CreateDefault(model.get());
        b.GetDevMode()->*field += 1;
        EXPECT_EQ(a == b, field == &DEVMODEW::dmDitherType);
    }
    b.SetMirror(true);
    EXPECT_FALSE(a == b) << "another configuration";
}

TEST_F(DriverDevMode, AssignsSettingsAndKeepsWhoseItIs) {
    Install(Tables());
    DevMode a, b;
    a.CreateDefault(Model().get());
    b.CreateDefault(Model().get());
    b.SetNegative(true);
    DEVMODEW& source = *b.GetDevMode();
    source.dmDeviceName[0] = 'X';
    source.dmScale = 50;
    source.dmPanningHeight = 6;
    reinterpret_cast<char*>(&source)[228] = 99;
    a = b;
    const DEVMODEW& raw = *a.GetDevMode();
    EXPECT_EQ(Text(OString(raw.dmDeviceName)), "Dock 3");
    EXPECT_EQ(raw.dmScale, 50);
    EXPECT_EQ(reinterpret_cast<const char*>(&raw)[228], 2) << "its own halftones";

    ForeignDevMode older(156, 0);
    older->dmScale = 25;
    a = DevMode(older.dev_mode());
    EXPECT_EQ(raw.dmScale, 25);
    EXPECT_EQ(raw.dmPanningHeight, 6u) << "not in the older one";
    EXPECT_TRUE(a.GetNegative());
    DevMode none;
    a = none;
    none = a;
    EXPECT_EQ(none.GetDevMode(), nullptr);
}

TEST_F(DriverDevMode, TakesOverTheSettingsOf16BitPrograms) {
    Install(Tables());
    const auto model = Model();
    DevMode mode;
    const struct {
        WORD size;
        DWORD bits_per_pel, icm;
        SHORT collate;
    } cases[] = {{156, 24, 5, 1}, {124, 24, 2, 1}, {147, 24, 2, 1},
                 {70, 0, 2, 1},   {60, 0, 2, 0},   {0, 0, 2, 0}};
    for (const auto& c : cases) {
        std::vector<char> bytes((c.size < 40u ? 40u : c.size) + 1124u);
        auto* source = reinterpret_cast<DEVMODE16*>(bytes.data());
        DEVMODE16 all = {};
        all.dmFields = DM_COPIES;
        all.dmOrientation = 2;
        all.dmCollate = 1;
        all.dmFormName[0] = 'F';
        all.dmBitsPerPel = 24;
        all.dmICMMethod = 5;
        all.dmPanningWidth = 3;
        std::memcpy(bytes.data(), &all, c.size);
        source->dmSize = c.size;
        source->dmDriverExtra = 1124;
        mode.CreateDefault(model.get());
        mode.SetNegative(true);
        if (c.size >= 40) // with its configuration and tail
            std::memcpy(bytes.data() + c.size, mode.GetConfiguration(), 1124);
        mode.SetNegative(false);
        mode.Convert(bytes.data());
        const DEVMODEW& raw = *mode.GetDevMode();
        EXPECT_EQ(NumberList({raw.dmCollate, raw.dmBitsPerPel, raw.dmICMMethod, raw.dmPanningWidth,
                              raw.dmFormName[0], raw.dmSize, mode.GetNegative()}),
                  NumberList({c.collate, c.bits_per_pel, c.icm, 0, 0, 220, c.size >= 40}))
            << c.size;
        EXPECT_EQ(Text(OString(raw.dmDeviceName)), "Dock 3") << c.size;
    }
}
