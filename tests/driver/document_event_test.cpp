// The driver's work for documents.
#include "zplui.h"

#include <win32host/clock_control.h>

#include "keys/prtreg.h"
#include "support/printer_test.h"

namespace {

class DocumentEvents : public PrinterTest {
protected:
    static int Raise(HANDLE printer, int event) {
        return DrvDocumentEvent(printer, nullptr, event, 0, nullptr, 0, nullptr);
    }
};

} // namespace

TEST_F(DocumentEvents, BracketTheUseOfSharedSettings) {
    win32host::SetTickCount(5);
    OnServer("SRV1", [&] {
        ASSERT_TRUE(AddDriver("Model 1", "zplqv.ddt"));
        ASSERT_TRUE(AddPrinter("Dock3", "Model 1", PRINTER_ATTRIBUTE_SHARED));
    });
    WCHAR name[] = TEXT("\\\\SRV1\\Dock3");
    ASSERT_TRUE(AddPrinterConnectionW(name));
    prtreg copy(name);
    const unsigned char yes = 1;
    ASSERT_TRUE(copy.SetPrinterDataW("Network Sharing5", REG_BINARY, &yes, 1));
    HANDLE printer = nullptr;
    ASSERT_TRUE(OpenPrinterW(name, &printer, nullptr));

    const struct {
        int event;
        int answer;
        bool creates;
        bool commits;
    } cases[] = {{0, 0, false, false},      {1, 1, true, false},
                 {2, 0, false, false},      {5, 1, true, false},
                 {0x70005, 1, true, false}, {11, 0, false, false},
                 {12, 1, false, true},      {-0x10000 + 12, 1, false, true},
                 {13, 0, false, false}};
    for (const auto& c : cases) {
        copy.SetInt("Settings:v", c.event);
        copy.Delete("DATA:Settings CRC32", false);
        uint32_t size = 0;
        copy.SetPrinterDataW("Shadow Key Size", REG_DWORD, &size, sizeof size);
        EXPECT_EQ(Raise(printer, c.event), c.answer) << c.event;
        EXPECT_EQ(copy.GetSize("DATA:Settings CRC32") > 0, c.creates) << c.event;
        EXPECT_TRUE(copy.GetPrinterDataW("Shadow Key Size", REG_DWORD, &size, sizeof size));
        EXPECT_EQ(size > 0, c.commits) << c.event;
    }
    EXPECT_EQ(Raise(nullptr, 1), 1) << "whatever comes of it";
    ClosePrinter(printer);
    win32host::UseRealTickCount();
}
