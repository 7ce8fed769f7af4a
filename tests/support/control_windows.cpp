// The controls of the platform layer on Windows itself. Whatever the system lets a program do is
// done; a test that asks for more is skipped, with the reason.
#include <win32host/clock_control.h>
#include <win32host/control.h>
#include <win32host/registry_control.h>
#include <win32host/spooler_control.h>

#include <windows.h>

#include "support/host_test.h"

#include <string>

namespace {

void SetFact(LCTYPE fact, const std::wstring& text) {
    SetLocaleInfoW(LOCALE_USER_DEFAULT, fact, text.c_str());
}

} // namespace

namespace win32host {

std::string Root() {
    SkipTest("there is one machine only");
}

void SetRoot(const std::string&) {
    SkipTest("there is one machine only");
}

void ResetControl() {
    SetLocaleFacts({});
}

void SetVersion(DWORD, DWORD, DWORD, DWORD) {
    SkipTest("the system has its version");
}

void SetAnsiCodePage(UINT) {
    SkipTest("the system's code page is fixed while it runs");
}

void SetOemCodePage(UINT) {
    SkipTest("the system's code page is fixed while it runs");
}

void SetMissingCodePages(const std::vector<UINT>&) {
    SkipTest("the system has all code pages");
}

void SetLocaleFacts(const LocaleFacts& facts) {
    if (facts.abbreviation != L"ENU") SkipTest("the user's language is fixed");
    SetFact(LOCALE_IMEASURE, facts.inches ? L"1" : L"0");
    SetFact(LOCALE_ILZERO, facts.leading_zero ? L"1" : L"0");
    SetFact(LOCALE_SDECIMAL, facts.decimal);
    SetFact(LOCALE_STHOUSAND, facts.thousands);
}

void UseProcessLocale() {
    SkipTest("the locale is the system's");
}

void SetUser(const UserFacts&) {
    SkipTest("the user is who runs the tests");
}

void UseProcessUser() {}

void AnswerMessageBoxes(int) {
    SkipTest("nobody is there to answer message boxes");
}

std::vector<ShownMessageBox> TakeMessageBoxes() {
    SkipTest("nobody is there to answer message boxes");
}

std::vector<StartedProgram> TakeStartedPrograms() {
    SkipTest("programs that are started run");
}

void SetTickCount(uint32_t) {
    SkipTest("the clock is the system's");
}

void UseRealTickCount() {}

bool SetKeyReadOnly(HKEY, const WCHAR*, bool) {
    SkipTest("the user may write everywhere");
}

void RefuseSpoolerQuestions(std::function<DWORD(const SpoolerQuestion&)>) {
    SkipTest("the spooler answers as it is");
}

void AlterSpoolerAnswers(std::function<void(const SpoolerQuestion&, BYTE*, DWORD)>) {
    SkipTest("the spooler answers as it is");
}

} // namespace win32host
