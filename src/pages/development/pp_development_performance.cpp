#include "pages/development/pp_development_performance.h"

#include <memory>

#include "locale/text_numbers.h"
#include "model/prtmodel.h"
#include "printer/escape_records.h"
#include "printer/prtstream.h"
#include "ui/prtui.h"

namespace {

enum : uint16_t {
    kOutputText = 693,
    kOtherMenu = 668,
    kEscapeMenu = 727,
    kTimedMenu = 728,

    kFirstEscapeTest = 134,
    kLastEscapeTest = 139,
    kConstruct = 142,
    kDestroy = 144,
    kFlushCache = 145,
    kClearOutput = 146,
    kPrintEmptyPage = 155,
    kPrintTextPage = 156
};

constexpr uint32_t kRepeat = 10;
constexpr int kOutputTab = 120;

constexpr int kTextLines = 36;
constexpr int kTextLineHeight = 100;

// Lines of text, from the top of the page.
void DrawLines(HDC dc, prtpage& texts) {
    SetMapMode(dc, MM_TEXT);
    const HFONT font =
        CreateFontW(kTextLineHeight, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, TEXT("Arial"));
    const HGDIOBJ before = SelectObject(dc, font);
    for (int line = 0; line < kTextLines; ++line) {
        const OString text = texts.GetString(TEXT_FIRST_SYMBOLOGY + line);
        const WCHAR* const units = text.wstring();
        TextOutW(dc, 0, line * kTextLineHeight, units, text.wlen());
    }
    SelectObject(dc, before);
    DeleteObject(font);
}

// Prints a page as a document of its own; with text that `texts` has, or empty for null.
void PrintPage(prtui& ui, prtpage* texts) {
    prtspool connection(&ui);
    connection.StartDocW("Performance Test");
    connection.StartPage();
    if (texts) DrawLines(connection.GetDC(), *texts);
    connection.EndPage();
    connection.EndDoc();
}

} // namespace

void ppDevelopmentPerformance::Init() {
    prtpage::Init();
    menu_.Load(ui_->locale, "*:DEVELOPMENT/PERFORMANCE/MENU");
    escape_tests_.Bind(this, kEscapeMenu);
    escape_tests_.GetMenu() = menu_.GetSubMenu(0);
    timed_tests_.Bind(this, kTimedMenu);
    timed_tests_.GetMenu() = menu_.GetSubMenu(1);
    other_.Bind(this, kOtherMenu);
    other_.GetMenu() = menu_.GetSubMenu(2);
    output_.Bind(this, kOutputText);
}

void ppDevelopmentPerformance::Refresh(bool all) {
    if (all) output_.SetTabStops({&kOutputTab, 1});
}

bool ppDevelopmentPerformance::Command(uint16_t id, uint16_t code, LPARAM value) {
    if (code != BN_CLICKED) return prtpage::Command(id, code, value);
    if (id >= kFirstEscapeTest && id <= kLastEscapeTest) {
        RunTest(id);
        return false;
    }
    switch (id) {
    case kConstruct:
    case kDestroy:
    case kPrintEmptyPage:
    case kPrintTextPage:
        RunTest(id);
        return false;
    case kFlushCache:
        GetModel()->FlushDataCache();
        return false;
    case kClearOutput:
        output_.SetText(OString());
        return false;
    default:
        return prtpage::Command(id, code, value);
    }
}

void ppDevelopmentPerformance::RunTest(uint16_t item) {
    const int32_t time = item <= kLastEscapeTest ? RunEscapeTest(uint32_t{item} - kFirstEscapeTest)
                                                 : RunTimedTest(item);
    OString text = output_.GetText();
    text << menu_.GetText(item) << tab << time << " ms" << endl;
    output_.SetText(text);
    output_.SetSelection(text.wlen(), text.wlen());
    Forward(kOutputText, EM_SCROLLCARET, 0, 0);
}

int32_t ppDevelopmentPerformance::RunEscapeTest(uint32_t test) {
    const KVPerformanceTest record = {test, kRepeat};
    return static_cast<int32_t>(ui_->stream->Escape(ESCAPE_PERFORMANCE_TEST, sizeof record,
                                                    reinterpret_cast<const char*>(&record), 0,
                                                    nullptr));
}

int32_t ppDevelopmentPerformance::RunTimedTest(uint16_t item) {
    std::unique_ptr<prtspool> connection;
    if (item == kDestroy) connection.reset(new (kCounted) prtspool(ui_));
    const DWORD start = GetTickCount();
    if (item == kConstruct)
        connection.reset(new (kCounted) prtspool(ui_));
    else if (item == kDestroy)
        connection.reset();
    else
        PrintPage(*ui_, item == kPrintTextPage ? this : nullptr);
    return static_cast<int32_t>(GetTickCount() - start);
}
