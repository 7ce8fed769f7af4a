// The controls of the platform layer on Windows itself: what the system lets a program do is done,
// and a test that asks for more is skipped there, with the reason.
#include <win32host/clock_control.h>
#include <win32host/control.h>
#include <win32host/registry_control.h>
#include <win32host/spooler_control.h>

#include <windows.h>

#include <gtest/gtest.h>

#include <string>

namespace {

// Ends the test that runs.
[[noreturn]] void Skip(const char* reason) {
    [reason] { GTEST_SKIP() << reason; }();
    // The framework takes this for something that is reported already.
    throw testing::AssertionException(
        testing::TestPartResult(testing::TestPartResult::kSkip, __FILE__, __LINE__, reason));
}

void SetFact(LCTYPE fact, const std::wstring& text) {
    SetLocaleInfoW(LOCALE_USER_DEFAULT, fact, text.c_str());
}

} // namespace

namespace win32host {

std::string Root() {
    Skip("there is one machine only");
}

void SetRoot(const std::string&) {
    Skip("there is one machine only");
}

void ResetControl() {
    SetLocaleFacts({});
}

void SetVersion(DWORD, DWORD, DWORD, DWORD) {
    Skip("the system has its version");
}

void SetAnsiCodePage(UINT) {
    Skip("the system's code page is fixed while it runs");
}

void SetOemCodePage(UINT) {
    Skip("the system's code page is fixed while it runs");
}

void SetMissingCodePages(const std::vector<UINT>&) {
    Skip("the system has all code pages");
}

void SetLocaleFacts(const LocaleFacts& facts) {
    if (facts.abbreviation != L"ENU") Skip("the user's language is fixed");
    SetFact(LOCALE_IMEASURE, facts.inches ? L"1" : L"0");
    SetFact(LOCALE_ILZERO, facts.leading_zero ? L"1" : L"0");
    SetFact(LOCALE_SDECIMAL, facts.decimal);
    SetFact(LOCALE_STHOUSAND, facts.thousands);
}

void UseProcessLocale() {
    Skip("the locale is the system's");
}

void SetUser(const UserFacts&) {
    Skip("the user is who runs the tests");
}

void UseProcessUser() {}

void AnswerMessageBoxes(int) {
    Skip("nobody is there to answer message boxes");
}

std::vector<ShownMessageBox> TakeMessageBoxes() {
    Skip("nobody is there to answer message boxes");
}

void SetTickCount(uint32_t) {
    Skip("the clock is the system's");
}

void UseRealTickCount() {}

bool SetKeyReadOnly(HKEY, const WCHAR*, bool) {
    Skip("the user may write everywhere");
}

void RefuseSpoolerQuestions(std::function<DWORD(const SpoolerQuestion&)>) {
    Skip("the spooler answers as it is");
}

void AlterSpoolerAnswers(std::function<void(const SpoolerQuestion&, BYTE*, DWORD)>) {
    Skip("the spooler answers as it is");
}

} // namespace win32host
