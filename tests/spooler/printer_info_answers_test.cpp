// Printer information from a spooler that lacks functions or gives broken answers.

#include <win32host/spooler_control.h>

#include <cstddef>
#include <cstring>
#include <string>
#include <string_view>
#include <vector>

#include "spooler/printer_info.h"
#include "support/printer_test.h"

namespace {

using win32host::SpoolerQuestion;

// A DEVMODE with names, every public member set and private bytes after it.
struct NamedDevMode {
    DEVMODEW public_part = {};
    unsigned char private_part[16] = {};

    NamedDevMode() {
        constexpr WCHAR device[] = TEXT("Dock caf\u00E9 \u20AC");
        constexpr WCHAR form[] = TEXT("4 x 6 \u00B1");
        unsigned char fill = 1;
        auto* bytes = reinterpret_cast<unsigned char*>(&public_part);
        for (size_t i = offsetof(DEVMODEW, dmFields); i < sizeof public_part; ++i)
            bytes[i] = fill++;
        std::memset(public_part.dmFormName, 0, sizeof public_part.dmFormName);
        std::memcpy(public_part.dmDeviceName, device, sizeof device);
        std::memcpy(public_part.dmFormName, form, sizeof form);
        public_part.dmSpecVersion = 0x0401;
        public_part.dmDriverVersion = 0x0300;
        public_part.dmSize = sizeof(DEVMODEW);
        public_part.dmDriverExtra = sizeof private_part;
        std::memset(private_part, 0x5A, sizeof private_part);
    }
};

class SpoolerAnswers : public PrinterTest {
protected:
    void Install() {
        ASSERT_TRUE(AddDriver("Mod\xE8le 1", "ZPLQV.DDT"));
        ASSERT_TRUE(AddPrinter("Dock caf\xE9", "Mod\xE8le 1", PRINTER_ATTRIBUTE_ENABLE_BIDI,
                               &dev_mode.public_part));
    }

    static void RefuseWideQuestions() {
        win32host::RefuseSpoolerQuestions([](const SpoolerQuestion& question) {
            const bool wide = std::string_view(question.function).ends_with('W');
            return wide ? DWORD{ERROR_CALL_NOT_IMPLEMENTED} : DWORD{ERROR_SUCCESS};
        });
    }

    const OString name = "Dock caf\xE9";
    NamedDevMode dev_mode;
};

std::vector<OString> PrinterTexts(const PrinterInfo& printer) {
    return {printer.GetPrinterName(), printer.GetServerName(),    printer.GetShareName(),
            printer.GetPortName(),    printer.GetDriverName(),    printer.GetComment(),
            printer.GetLocation(),    printer.GetSeparatorFile(), printer.GetPrintProcessor(),
            printer.GetDatatype(),    printer.GetParameters()};
}

std::vector<OString> DriverTexts(const PrinterInfo& printer) {
    std::vector<OString> texts = {printer.GetEnvironment(), printer.GetDriverDirectory(),
                                  printer.GetDriverFile(),  printer.GetDataFile(),
                                  printer.GetConfigFile(),  printer.GetHelpFile(),
                                  printer.GetMonitorName(), printer.GetDefaultDatatype()};
    const OStringArray& files = printer.GetDependentFiles();
    for (int i = 0; i < files.GetSize(); ++i) texts.push_back(files[i]);
    return texts;
}

} // namespace

TEST_F(SpoolerAnswers, AreTheSameThroughTheAnsiFunctions) {
    Install();
    PrinterInfo wide(name);
    const std::vector<OString> printer_texts = PrinterTexts(wide);
    const std::vector<OString> driver_texts = DriverTexts(wide);
    ASSERT_TRUE(wide.GetDevMode());

    RefuseWideQuestions();
    PrinterInfo ansi(name);
    EXPECT_EQ(PrinterTexts(ansi), printer_texts);
    EXPECT_EQ(DriverTexts(ansi), driver_texts);
    EXPECT_EQ(ansi.GetAttributes(), wide.GetAttributes());
    EXPECT_EQ(ansi.GetDriverVersion(), wide.GetDriverVersion());
    EXPECT_TRUE(ansi.IsKnown());
    EXPECT_TRUE(ansi.GetManufacturer().IsEmpty());
    EXPECT_TRUE(ansi.GetHardwareID().IsEmpty());
    EXPECT_TRUE(ansi.GetProvider().IsEmpty());
    ASSERT_TRUE(ansi.GetDevMode());
    EXPECT_EQ(std::memcmp(ansi.GetDevMode(), &dev_mode, sizeof dev_mode), 0);
    EXPECT_FALSE(ansi.SetDevMode(&dev_mode.public_part));
}

TEST_F(SpoolerAnswers, WithABrokenDevModeHaveNone) {
    Install();
    // The claimed start of the DEVMODE, and its sizes.
    struct Claim {
        BYTE* start;
        BYTE* const end; // of the buffer
        const size_t head;
        WORD public_part, private_part;
    };
    static BYTE elsewhere[sizeof(NamedDevMode)] = {};
    const struct {
        const char* what;
        void (*change)(Claim&);
        bool kept;
    } cases[] = {
        {"as it was", [](Claim&) {}, true},
        {"to the end",
         [](Claim& c) { c.private_part = static_cast<WORD>(c.end - c.start - c.public_part); },
         true},
        {"one byte too far",
         [](Claim& c) { c.private_part = static_cast<WORD>(c.end - c.start - c.public_part + 1); },
         false},
        {"all sizes the largest", [](Claim& c) { c.public_part = c.private_part = 0xFFFF; }, false},
        {"no size", [](Claim& c) { c.public_part = c.private_part = 0; }, false},
        {"without its sizes", [](Claim& c) { c.public_part = static_cast<WORD>(c.head - 1); },
         false},
        {"too near the end", [](Claim& c) { c.start = c.end - c.head + 1; }, false},
        {"at the end", [](Claim& c) { c.start = c.end; }, false},
        {"elsewhere", [](Claim& c) { c.start = elsewhere; }, false},
        {"nowhere", [](Claim& c) { c.start = nullptr; }, false}};
    for (const bool wide : {true, false}) {
        if (!wide) RefuseWideQuestions();
        for (const auto& c : cases) {
            win32host::AlterSpoolerAnswers([&](const SpoolerQuestion& question, BYTE* buffer,
                                               DWORD size) {
                if (question.level != 2) return;
                const size_t at = wide ? offsetof(PRINTER_INFO_2W, pDevMode)
                                       : offsetof(PRINTER_INFO_2A, pDevMode);
                const size_t sizes = wide ? offsetof(DEVMODEW, dmSize) : offsetof(DEVMODEA, dmSize);
                BYTE* start = nullptr;
                std::memcpy(&start, buffer + at, sizeof start);
                Claim claim = {start, buffer + size, sizes + 4, 0, 0};
                std::memcpy(&claim.public_part, start + sizes, 4);
                c.change(claim);
                std::memcpy(start + sizes, &claim.public_part, 4);
                std::memcpy(buffer + at, &claim.start, sizeof start);
            });
            PrinterInfo printer(name);
            EXPECT_EQ(printer.GetDevMode() != nullptr, c.kept) << c.what << wide;
            EXPECT_STREQ(printer.GetComment().nstring(), "A comment") << c.what;
        }
    }
}
