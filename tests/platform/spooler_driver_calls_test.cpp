#include "platform/spooler_test.h"

#include <thread>

namespace {

using SpoolerDriverCalls = LabelsTest;

int Capability(LPCWSTR printer, WORD capability) {
    return DeviceCapabilitiesW(printer, u"FILE:", capability, nullptr, nullptr);
}

TEST_F(SpoolerDriverCalls, TellTheDriverOfWhatHappensToItsPrinters) {
    PRINTER_INFO_2W info = Wanted(u"LABELS");
    info.pComment = Text(u"changed");
    EXPECT_EQ(SetInfo(printer_, info), 0);
    EXPECT_EQ(TakeNotes(), u"");
    info.Attributes = PRINTER_ATTRIBUTE_ENABLE_BIDI;
    EXPECT_EQ(SetInfo(printer_, info), 0);
    EXPECT_EQ(TakeNotes(), u"7 LABELS 64 2112;");
    AddDriver(u"Other Driver");
    info.pDriverName = Text(u"Other Driver");
    EXPECT_EQ(SetInfo(printer_, info), 0);
    EXPECT_EQ(TakeNotes(), u"3 LABELS;");
    EXPECT_TRUE(DeletePrinter(printer_));
    EXPECT_EQ(TakeNotes(), u"4 LABELS;");
}

TEST_F(SpoolerDriverCalls, HaveTheirPrintersUpgradedWhenTheDriverIsAddedAnew) {
    AddDriver(u"Other Driver");
    AddPrinter(u"Broken 1");
    TakeNotes();
    AddDriver(u"Unused Driver");
    EXPECT_EQ(TakeNotes(), u"");
    AddDriver();
    EXPECT_EQ(TakeNotes(), u"upgrade 1 LABELS;upgrade 1 Broken 1;");
}

TEST_F(SpoolerDriverCalls, KeepAPrinterWhoseDriverFails) {
    AddPrinter(u"Broken 1");
    EXPECT_EQ(TakeNotes(), u"3 Broken 1;");
    EXPECT_TRUE(PrinterInfo2(Open(u"Broken 1")).good());
    // A file that is not a library.
    WriteFile("setup\\testdrv.dll", "not a library");
    AddDriver(u"Bad");
    PRINTER_INFO_2W info = Wanted(u"Broken 2");
    info.pDriverName = Text(u"Bad");
    const HANDLE broken = Add(info);
    EXPECT_NE(broken, nullptr);
    EXPECT_EQ(Capability(u"Broken 2", DC_COPIES), -1);
    EXPECT_TRUE(DeletePrinter(broken));
}

TEST_F(SpoolerDriverCalls, KeepTheDriverLoadedUntilItChanges) {
    EXPECT_EQ(Capability(u"LABELS", DC_COPIES), 1);
    EXPECT_EQ(Capability(u"LABELS", DC_COPIES), 2);
    AddDriver(); // the file is a different one now
    EXPECT_EQ(Capability(u"LABELS", DC_COPIES), 1);
    AddPrinter(u"OTHER");
    EXPECT_TRUE(DeletePrinter(Open(u"OTHER")));
    EXPECT_EQ(Capability(u"LABELS", DC_COPIES), 1);
}

using SpoolerThreads = SpoolerDriverCalls;

TEST_F(SpoolerThreads, AskOpenAndChangeAtOnce) {
    std::vector<std::thread> threads;
    std::vector<int> failures(4);
    for (size_t i = 0; i < failures.size(); ++i) {
        threads.emplace_back([&, i] {
            const std::u16string own = u"Own " + std::u16string(i + 1, u'x');
            for (int round = 0; round < 8; ++round) {
                PRINTER_INFO_2W info = Wanted(own);
                const HANDLE printer = AddPrinterW(nullptr, 2, reinterpret_cast<LPBYTE>(&info));
                failures[i] += Capability(own.c_str(), DC_PERSONALITY) != 2;
                failures[i] += !PrinterInfo2(printer_).good();
                failures[i] += Print(printer, u"x", "abc") == 0;
                failures[i] += Capability(u"LABELS", DC_PERSONALITY) != 2;
                failures[i] += !DeletePrinter(printer) || !ClosePrinter(printer);
            }
        });
    }
    for (std::thread& thread : threads) thread.join();
    EXPECT_EQ(failures, std::vector<int>(failures.size()));
}

} // namespace
