#include "platform/spooler_test.h"

namespace {

class DeviceContexts : public LabelsTest {
protected:
    static int Start(HDC dc, LPCWSTR name) {
        const DOCINFOW info = {sizeof info, name, nullptr, nullptr, 0};
        return StartDocW(dc, &info);
    }
};

TEST_F(DeviceContexts, TellTheDriverAndTheRenderingModuleInTurn) {
    DEVMODEW settings = {};
    settings.dmSize = sizeof settings;
    settings.dmPaperWidth = 1016;
    const HDC dc = CreateDCW(u"WINSPOOL", u"labels", nullptr, &settings);
    ASSERT_NE(dc, nullptr);
    EXPECT_EQ(TakeNotes(), u"event 1;enable LABELS;event 2;");
    EXPECT_EQ(GetDeviceCaps(dc, HORZRES), 1016);
    EXPECT_EQ(Start(dc, u"Label"), 1);
    EXPECT_EQ(StartPage(dc), 1);
    EXPECT_EQ(ExtEscape(dc, 15001, 3, "abc", 0, nullptr), 15004);
    EXPECT_EQ(EndPage(dc), 1);
    EXPECT_EQ(EndDoc(dc), 1);
    EXPECT_EQ(TakeNotes(), u"event 5;start doc Label 1;event 13;event 6;event 7;send page;event 8;"
                           u"end doc;event 12;");
    EXPECT_TRUE(DeleteDC(dc));
    EXPECT_EQ(TakeNotes(), u"event 10;disable;");
    EXPECT_EQ(Spooled(1), "abc");
    EXPECT_FALSE(DeleteDC(dc));
}

TEST_F(DeviceContexts, DropDocumentsThatDoNotComeToTheirEnd) {
    const HDC dc = CreateDCW(u"WINSPOOL", u"LABELS", nullptr, nullptr);
    EXPECT_EQ(EndDoc(dc), SP_ERROR);
    EXPECT_EQ(StartPage(dc), SP_ERROR);
    EXPECT_EQ(Start(dc, u"No document"), SP_ERROR);
    EXPECT_EQ(Start(dc, u"Refused document"), SP_ERROR);
    EXPECT_GT(Start(dc, u"Aborted"), 0);
    EXPECT_EQ(Start(dc, u"Second"), SP_ERROR);
    EXPECT_EQ(AbortDoc(dc), 1);
    const int job = Start(dc, u"Left");
    EXPECT_GT(job, 0);
    EXPECT_TRUE(DeleteDC(dc));
    EXPECT_EQ(Spooled(static_cast<DWORD>(job)), "");
    DWORD needed = 0, count = 1;
    EXPECT_TRUE(EnumJobsW(Open(u"LABELS"), 0, 100, 1, nullptr, 0, &needed, &count) && count == 0);
}

TEST_F(DeviceContexts, NeedAPrinterWithARenderingModule) {
    DEVMODEW bad = {};
    bad.dmSize = 4;
    EXPECT_EQ(CreateDCW(u"WINSPOOL", u"NONE", nullptr, nullptr), nullptr);
    EXPECT_EQ(GetLastError(), DWORD{ERROR_INVALID_PRINTER_NAME});
    EXPECT_EQ(CreateDCW(u"DISPLAY", u"LABELS", nullptr, nullptr), nullptr);
    EXPECT_EQ(CreateDCW(u"WINSPOOL", nullptr, nullptr, nullptr), nullptr);
    EXPECT_EQ(CreateDCW(u"WINSPOOL", u"LABELS", nullptr, &bad), nullptr);
    WriteFile("setup\\testdrv.dll", "not a library");
    AddDriver();
    EXPECT_EQ(CreateDCW(u"WINSPOOL", u"LABELS", nullptr, nullptr), nullptr);
}

} // namespace
