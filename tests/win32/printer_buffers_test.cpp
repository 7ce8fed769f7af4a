// The layout of printers, drivers, ports and printer data in callers' buffers.
#include "platform/error_of.h"
#include "support/printer_test.h"
#include "support/wide.h"

#include <algorithm>
#include <cstring>
#include <functional>
#include <string>
#include <vector>

namespace {

using Bytes = std::vector<BYTE>;

// A text of the SDK's that is not written to.
WCHAR* Text(const WCHAR* text) {
    return const_cast<WCHAR*>(text);
}

// The texts that the records in a buffer point to.
using Texts = std::function<std::vector<const WCHAR*>(const BYTE*)>;

// The texts of `count` records, as its members point to them.
template <class Info, class... Members>
Texts TextsOf(const DWORD& count, Members... members) {
    return [&count, members...](const BYTE* buffer) {
        std::vector<const WCHAR*> texts;
        for (DWORD i = 0; i < count; ++i) {
            Info info;
            std::memcpy(&info, buffer + i * sizeof info, sizeof info);
            (texts.push_back(info.*members), ...);
        }
        return texts;
    };
}

const Texts kNone = [](const BYTE*) { return std::vector<const WCHAR*>(); };

Texts PrinterTexts(DWORD level, const DWORD& count) {
    using One = PRINTER_INFO_1W;
    using Two = PRINTER_INFO_2W;
    using Four = PRINTER_INFO_4W;
    switch (level) {
    case 1:
        return TextsOf<One>(count, &One::pDescription, &One::pName, &One::pComment);
    case 2:
        return TextsOf<Two>(count, &Two::pServerName, &Two::pPrinterName, &Two::pShareName,
                            &Two::pPortName, &Two::pDriverName, &Two::pComment, &Two::pLocation,
                            &Two::pSepFile, &Two::pPrintProcessor, &Two::pDatatype,
                            &Two::pParameters);
    case 4:
        return TextsOf<Four>(count, &Four::pPrinterName, &Four::pServerName);
    default:
        return kNone;
    }
}

Texts DriverTexts(DWORD level, const DWORD& count) {
    using Two = DRIVER_INFO_2W;
    using Three = DRIVER_INFO_3W;
    using Six = DRIVER_INFO_6W;
    switch (level) {
    case 2:
        return TextsOf<Two>(count, &Two::pName, &Two::pEnvironment, &Two::pDriverPath,
                            &Two::pDataFile, &Two::pConfigFile);
    case 3:
        return TextsOf<Three>(count, &Three::pName, &Three::pConfigFile, &Three::pHelpFile,
                              &Three::pDependentFiles, &Three::pMonitorName,
                              &Three::pDefaultDataType);
    default:
        return TextsOf<Six>(count, &Six::pName, &Six::pConfigFile, &Six::pDependentFiles,
                            &Six::pszzPreviousNames, &Six::pszMfgName, &Six::pszHardwareID,
                            &Six::pszProvider);
    }
}

// A record to ask the spooler for.
struct Question {
    std::string name;
    std::function<BOOL(BYTE*, DWORD, DWORD*)> ask;
    Texts texts;
};

class PrinterBuffers : public PrinterTest {
protected:
    PrinterBuffers() {
        DEVMODEW settings = {};
        settings.dmSpecVersion = 0x401;
        settings.dmSize = sizeof settings;
        EXPECT_TRUE(AddDriver("Model 1", "zplqv.ddt"));
        EXPECT_TRUE(AddPrinter("Dock 3", "Model 1", 0, &settings));
        PRINTER_DEFAULTSW all = {nullptr, nullptr, PRINTER_ALL_ACCESS};
        EXPECT_TRUE(OpenPrinterW(Text(TEXT("Dock 3")), &printer_, &all));
    }
    ~PrinterBuffers() override { ClosePrinter(printer_); }

    std::vector<Question> Questions();

    HANDLE printer_ = nullptr;
    DWORD one_ = 1, count_ = 0;
};

std::vector<Question> PrinterBuffers::Questions() {
    std::vector<Question> questions = {
        {"EnumPortsW 2", [this](auto... to) { return EnumPortsW(nullptr, 2, to..., &count_); },
         TextsOf<PORT_INFO_2W>(count_, &PORT_INFO_2W::pPortName, &PORT_INFO_2W::pMonitorName,
                               &PORT_INFO_2W::pDescription)},
        {"GetPrinterDriverDirectoryW",
         [](auto... to) { return GetPrinterDriverDirectoryW(nullptr, nullptr, 1, to...); },
         [](const BYTE* buffer) {
             return std::vector<const WCHAR*>{reinterpret_cast<const WCHAR*>(buffer)};
         }},
        {"GetPrinterA 2", [this](auto... to) { return GetPrinterA(printer_, 2, to...); }, kNone},
        {"GetPrinterDriverA 3",
         [this](auto... to) { return GetPrinterDriverA(printer_, nullptr, 3, to...); }, kNone}};
    for (const DWORD level : {DWORD{1}, DWORD{2}, DWORD{4}, DWORD{8}, DWORD{9}}) {
        const std::string number = std::to_string(level);
        questions.push_back({"GetPrinterW " + number,
                             [=, this](auto... to) { return GetPrinterW(printer_, level, to...); },
                             PrinterTexts(level, one_)});
        if (level > 4) continue;
        questions.push_back({"EnumPrintersW " + number,
                             [=, this](auto... to) {
                                 return EnumPrintersW(PRINTER_ENUM_LOCAL, nullptr, level, to...,
                                                      &count_);
                             },
                             PrinterTexts(level, count_)});
    }
    for (const DWORD level : {DWORD{2}, DWORD{3}, DWORD{6}}) {
        const std::string number = std::to_string(level);
        questions.push_back(
            {"GetPrinterDriverW " + number,
             [=, this](auto... to) { return GetPrinterDriverW(printer_, nullptr, level, to...); },
             DriverTexts(level, one_)});
        questions.push_back({"EnumPrinterDriversW " + number,
                             [=, this](auto... to) {
                                 return EnumPrinterDriversW(nullptr, nullptr, level, to...,
                                                            &count_);
                             },
                             DriverTexts(level, count_)});
    }
    return questions;
}

// A buffer of `size` bytes followed by a fence.
class Fenced {
public:
    explicit Fenced(DWORD size)
        : size_(size)
        , bytes_(size + kFence, kEmpty) {}
    BYTE* data() { return bytes_.data(); }
    bool FenceStands() const {
        return std::count(bytes_.end() - kFence, bytes_.end(), kEmpty) == kFence;
    }
    bool IsUntouched() const {
        return static_cast<size_t>(std::count(bytes_.begin(), bytes_.end(), kEmpty)) ==
               bytes_.size();
    }
    // Whether a text begins and ends inside the buffer.
    bool Holds(const WCHAR* text) const {
        const auto* begin = reinterpret_cast<const BYTE*>(text);
        if (begin < bytes_.data() || begin >= bytes_.data() + size_) return false;
        const auto* end = reinterpret_cast<const WCHAR*>(bytes_.data() + (size_ & ~DWORD{1}));
        return std::find(text, end, 0) != end;
    }

private:
    static constexpr DWORD kFence = 64;
    static constexpr BYTE kEmpty = 0xEE;
    DWORD size_;
    Bytes bytes_;
};

TEST_F(PrinterBuffers, AreFilledWhenTheyAreLargeEnough) {
    for (const Question& question : Questions()) {
        SCOPED_TRACE(question.name);
        DWORD needed = 0, again = 0;
        EXPECT_EQ(ErrorOf(question.ask(nullptr, 0, &needed)), ERROR_INSUFFICIENT_BUFFER);
        ASSERT_GT(needed, 1u);
        for (const DWORD size : {needed - 1, needed / 2, DWORD{1}}) {
            if (RunsUnderWine() && size < needed - 1) break; // it writes past some of these
            Fenced buffer(size);
            EXPECT_EQ(ErrorOf(question.ask(buffer.data(), size, &again)),
                      ERROR_INSUFFICIENT_BUFFER);
            EXPECT_EQ(again, needed);
            EXPECT_TRUE(buffer.FenceStands());
            EXPECT_TRUE(RunsUnderWine() || buffer.IsUntouched());
        }
        for (const DWORD size : {needed, needed + 40}) {
            Fenced buffer(size);
            EXPECT_TRUE(question.ask(buffer.data(), size, &again));
            EXPECT_EQ(again, needed);
            EXPECT_TRUE(buffer.FenceStands());
            for (const WCHAR* text : question.texts(buffer.data()))
                EXPECT_TRUE(!text || buffer.Holds(text));
        }
        if (RunsUnderWine()) continue; // it writes to null pointers
        Bytes odd(needed + 1);
        EXPECT_TRUE(question.ask(odd.data() + 1, needed, &again));
        EXPECT_EQ(ErrorOf(question.ask(nullptr, needed, &again)), ERROR_INVALID_USER_BUFFER);
        EXPECT_EQ(ErrorOf(question.ask(odd.data(), needed, nullptr)), ERROR_INVALID_PARAMETER);
    }
}

TEST_F(PrinterBuffers, HoldTheDocumentSettingsToo) {
    for (const DWORD level : {DWORD{2}, DWORD{8}, DWORD{9}}) {
        DWORD needed = 0;
        GetPrinterW(printer_, level, nullptr, 0, &needed);
        Bytes buffer(needed);
        ASSERT_TRUE(GetPrinterW(printer_, level, buffer.data(), needed, &needed));
        PRINTER_INFO_2W record = {};
        std::memcpy(level == 2 ? static_cast<void*>(&record) : &record.pDevMode, buffer.data(),
                    level == 2 ? sizeof record : sizeof record.pDevMode);
        const auto* settings = reinterpret_cast<const BYTE*>(record.pDevMode);
        ASSERT_TRUE(settings > buffer.data());
        EXPECT_LE(settings + record.pDevMode->dmSize + record.pDevMode->dmDriverExtra,
                  buffer.data() + buffer.size());
        EXPECT_EQ(record.pDevMode->dmSize, sizeof(DEVMODEW));
    }
}

TEST_F(PrinterBuffers, AreForTheLevelsThatThereAre) {
    BYTE b[16];
    DWORD needed = 0;
    PRINTER_INFO_2W info = {};
    DRIVER_INFO_6W driver = {};
    const auto bytes = reinterpret_cast<BYTE*>(&info);
    const auto driver_bytes = reinterpret_cast<BYTE*>(&driver);
    for (const DWORD level : {DWORD{0}, DWORD{100}, DWORD{0xFFFFFFFF}}) {
        const int errors[] = {
            ErrorOf(GetPrinterW(printer_, level, b, 16, &needed)),
            ErrorOf(GetPrinterA(printer_, level, b, 16, &needed)),
            ErrorOf(SetPrinterW(printer_, level, bytes, 0)),
            ErrorOf(AddPrinterW(nullptr, level, bytes)),
            ErrorOf(AddPrinterDriverExW(nullptr, level, driver_bytes, APD_COPY_ALL_FILES)),
            ErrorOf(EnumPrintersW(PRINTER_ENUM_LOCAL, nullptr, level, b, 16, &needed, &count_)),
            ErrorOf(EnumPrinterDriversW(nullptr, nullptr, level, b, 16, &needed, &count_)),
            ErrorOf(GetPrinterDriverW(printer_, nullptr, level, b, 16, &needed)),
            ErrorOf(GetPrinterDriverDirectoryW(nullptr, nullptr, level, b, 16, &needed)),
            ErrorOf(EnumPortsW(nullptr, level, b, 16, &needed, &count_))};
        for (const int& error : errors)
            EXPECT_EQ(error, ERROR_INVALID_LEVEL) << level << ", " << &error - errors;
    }
}

TEST_F(PrinterBuffers, AreNotFilledForOtherHandles) {
    HANDLE closed = nullptr;
    ASSERT_TRUE(OpenPrinterW(Text(TEXT("Dock 3")), &closed, nullptr));
    ASSERT_TRUE(ClosePrinter(closed));
    std::vector<HANDLE> handles = {nullptr, INVALID_HANDLE_VALUE, closed};
    HANDLE server = nullptr;
    int local = 0;
    if (!RunsUnderWine()) { // it looks only at the number, and answers for the server
        ASSERT_TRUE(OpenPrinterW(nullptr, &server, nullptr));
        handles.insert(handles.end(), {server, &local});
    }
    BYTE b[16];
    DWORD needed = 0;
    PRINTER_INFO_8W info = {};
    WCHAR name[] = TEXT("x");
    for (const HANDLE handle : handles) {
        const int errors[] = {
            ErrorOf(GetPrinterW(handle, 2, b, 16, &needed)),
            ErrorOf(GetPrinterA(handle, 2, b, 16, &needed)),
            ErrorOf(SetPrinterW(handle, 9, reinterpret_cast<BYTE*>(&info), 0)),
            ErrorOf(DeletePrinter(handle)),
            ErrorOf(GetPrinterDriverW(handle, nullptr, 3, b, 16, &needed)),
            static_cast<int>(GetPrinterDataW(handle, name, nullptr, b, 16, &needed)),
            static_cast<int>(GetPrinterDataExW(handle, name, name, nullptr, b, 16, &needed)),
            static_cast<int>(SetPrinterDataW(handle, name, REG_BINARY, b, 1))};
        for (const int& error : errors) EXPECT_EQ(error, ERROR_INVALID_HANDLE) << &error - errors;
        EXPECT_EQ(ErrorOf(ClosePrinter(handle)),
                  server && handle == server ? 0 : ERROR_INVALID_HANDLE);
    }
}

TEST_F(PrinterBuffers, HoldPrinterDataOfEveryTypeAndSize) {
    const struct {
        const WCHAR* name;
        DWORD type;
        std::string bytes;
    } cases[] = {
        {TEXT("binary"), REG_BINARY, std::string("\0\1\2\xFF", 4)},
        {TEXT("empty"), REG_BINARY, ""},
        {TEXT("number"), REG_DWORD, std::string("\1\0\0\0", 4)},
        {TEXT("text"), REG_SZ, std::string("a\0b\0\0\0", 6)},
        {TEXT("no terminator"), REG_SZ, std::string("a\0b\0", 4)},
        {TEXT("large"), REG_BINARY, std::string(70000, 'x')},
        {TEXT("a/b:c%d"), 77, "own type"},
    };
    for (const WCHAR* key : {TEXT("PrinterDriverData"), TEXT("PrinterDriverData\\Settings")})
        for (const auto& c : cases) {
            const auto size = static_cast<DWORD>(c.bytes.size());
            std::string bytes = c.bytes + "xx"; // no terminator follows
            ASSERT_EQ(SetPrinterDataExW(printer_, key, c.name, c.type,
                                        reinterpret_cast<BYTE*>(bytes.data()), size),
                      0u);
            const auto get = [&](Fenced& buffer, DWORD room, DWORD* type, DWORD* needed) {
                return GetPrinterDataExW(printer_, key, c.name, type, buffer.data(), room, needed);
            };
            DWORD type = 99, needed = 99;
            if (size != 0) {
                Fenced small(size - 1);
                EXPECT_EQ(get(small, size - 1, &type, &needed), DWORD{ERROR_MORE_DATA});
                EXPECT_EQ(needed, size);
                EXPECT_TRUE(small.IsUntouched());
            }
            Fenced buffer(size);
            EXPECT_EQ(get(buffer, size, &type, &needed), 0u);
            EXPECT_EQ(std::memcmp(buffer.data(), c.bytes.data(), size), 0);
            EXPECT_TRUE(buffer.FenceStands());
            EXPECT_EQ(needed, size);
            EXPECT_EQ(type, c.type);
            EXPECT_EQ(get(buffer, size, nullptr, &needed), 0u);
        }
    // The first of the keys is the one of the functions that name none.
    Fenced buffer(4);
    DWORD type = 0, size = 0;
    EXPECT_EQ(GetPrinterDataW(printer_, Text(TEXT("number")), &type, buffer.data(), 4, &size), 0u);
    EXPECT_EQ(std::memcmp(buffer.data(), "\1\0\0\0", 4), 0);
    BYTE byte = 0;
    DWORD needed = 0;
    EXPECT_EQ(GetPrinterDataW(printer_, Text(TEXT("none")), nullptr, &byte, 1, &needed),
              DWORD{ERROR_FILE_NOT_FOUND});
    for (const WCHAR* key : {TEXT("PrinterDriverData"), TEXT("None")})
        EXPECT_EQ(GetPrinterDataExW(printer_, key, TEXT("none"), nullptr, &byte, 1, &needed),
                  DWORD{ERROR_FILE_NOT_FOUND});
}

} // namespace
