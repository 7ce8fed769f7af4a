// Device capabilities, from a program's question to the spooler down to the module's tables and
// back.

#include <cstring>
#include <string>
#include <thread>
#include <utility>
#include <vector>

#include "support/staged_driver_test.h"
#include "zplui.h"

namespace {

class DeviceCapabilities : public StagedDriverTest {
protected:
    static int Ask(WORD capability, void* output = nullptr) {
        return DeviceCapabilitiesW(TEXT("Dock 3"), TEXT("FILE:"), capability,
                                   static_cast<LPWSTR>(output), nullptr);
    }
};

} // namespace

TEST_F(DeviceCapabilities, ComeFromTheModuleThatTheSpoolerLoads) {
    Install({.model = "Resolution=203,300x600\nColor=yes\nColor.Process=CMYK\n"
                      "Stock.Minimum.X=20 mm\nStock.Minimum.Y=6 mm\n"
                      "Stock.Maximum.X=114 mm\nStock.Maximum.Y=3988 mm\n",
             .method = "Copies.Limit=9999\n"});
    const std::pair<WORD, int> cases[] = {
        {0, -1},          {DC_FIELDS, 0x780FF1F}, {DC_MINEXTENT, 60 << 16 | 200},
        {21, -1},         {DC_DRIVER, 0x607},     {DC_MAXEXTENT, 32767 << 16 | 1140},
        {DC_SIZE, 220},   {DC_VERSION, 0x401},    {DC_ENUMRESOLUTIONS, 2},
        {34, -1},         {DC_COPIES, 9999},      {DC_FILEDEPENDENCIES, 2},
        {DC_EXTRA, 1288}, {DC_COLORDEVICE, 1},    {DC_ORIENTATION, 90},
        {DC_DUPLEX, 0},   {DC_TRUETYPE, 1},       {DC_BINADJUST, 2},
        {DC_COLLATE, 0},  {DC_EMF_COMPLIANT, 1},  {DC_STAPLE, 0}};
    for (const auto& [capability, expected] : cases)
        EXPECT_EQ(Ask(capability), expected) << capability;
}

TEST_F(DeviceCapabilities, AreTheModulesWordForWord) {
    Install({.model = "Resolution=203,300x600\nStock.Maximum.X=114 mm\n"});
    const auto ask = Export<decltype(DrvDeviceCapabilities)>("DrvDeviceCapabilities");
    WCHAR name[] = TEXT("Dock 3");
    HANDLE printer = nullptr;
    ASSERT_TRUE(ask && OpenPrinterW(name, &printer, nullptr));
    for (WORD capability = 0; capability <= 35; ++capability) {
        EXPECT_EQ(Ask(capability),
                  static_cast<int>(ask(printer, name, capability, nullptr, nullptr)))
            << capability;
        std::vector<BYTE> output(1024, 0xEE), expected(1024, 0xEE);
        EXPECT_EQ(Ask(capability, output.data()),
                  static_cast<int>(ask(printer, name, capability, expected.data(), nullptr)))
            << capability;
        EXPECT_EQ(output, expected) << capability;
    }
    ClosePrinter(printer);
}

TEST_F(DeviceCapabilities, OfDocumentsFollowTheDevModeOfTheProgram) {
    Install({});
    DEVMODEW mode = {};
    mode.dmSpecVersion = 0x320;
    mode.dmDriverVersion = 5;
    mode.dmSize = 188;
    mode.dmFields = DM_PAPERSIZE;
    mode.dmPaperSize = 9;
    const struct {
        WORD capability;
        int expected;
    } cases[] = {{DC_FIELDS, 0x780FF13}, {DC_SIZE, 220},     {DC_EXTRA, 1288},
                 {DC_VERSION, 0x401},    {DC_DRIVER, 0x607}, {DC_COPIES, 32767}};
    for (const auto& c : cases)
        EXPECT_EQ(DeviceCapabilitiesW(TEXT("Dock 3"), nullptr, c.capability, nullptr, &mode),
                  c.expected)
            << c.capability;
}

TEST_F(DeviceCapabilities, OfNoPrinterAreDefaults) {
    EXPECT_EQ(DrvDeviceCapabilities(nullptr, nullptr, DC_COPIES, nullptr, nullptr), 32767u);
    EXPECT_EQ(DrvDeviceCapabilities(nullptr, nullptr, DC_ENUMRESOLUTIONS, nullptr, nullptr), 0u);
    EXPECT_EQ(DrvDeviceCapabilities(nullptr, nullptr, DC_FILEDEPENDENCIES, nullptr, nullptr), 0u);
    EXPECT_EQ(Ask(DC_COPIES), RunsUnderWine() ? 0 : -1) << "the spooler knows better";
    EXPECT_TRUE(DevQueryPrintEx(nullptr));
}

using DeviceCapabilitiesThreads = DeviceCapabilities;

TEST_F(DeviceCapabilitiesThreads, AnswerSeveralAtOnceWhileTheRecordsAreRebuilt) {
    Install({.model = "Resolution=203\n", .method = "Copies.Limit=9999\n"});
    const auto ask = [] {
        for (int i = 0; i < 50; ++i) {
            int32_t pair[2] = {};
            WCHAR files[2][64] = {};
            EXPECT_EQ(Ask(DC_COPIES), 9999);
            EXPECT_EQ(Ask(DC_ENUMRESOLUTIONS, pair), 1);
            EXPECT_EQ(pair[1], 203);
            EXPECT_EQ(Ask(DC_FILEDEPENDENCIES, files), 2);
        }
    };
    std::thread first(ask), second(ask);
    prtreg registry(OString("Dock 3"));
    for (uint32_t stamp = 1; stamp <= 50; ++stamp)
        registry.SetDWORD("DATA:Model Synchronization", stamp);
    first.join();
    second.join();
}
