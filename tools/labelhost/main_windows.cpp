// The entry point on Windows: words come in as UTF-16, and output goes out as UTF-8.
#include "labelhost.h"
#include "text.h"

#include <windows.h>

#include <shellapi.h>

namespace {

// The words as they were typed. The C runtime would turn characters outside its code page into
// question marks, and patterns into file names.
Words WordsOf(const WCHAR* line) {
    Words words;
    int count = 0;
    LPWSTR* const all = CommandLineToArgvW(line, &count);
    for (int i = 1; i < count; ++i) words.push_back(ToUtf8(all[i]));
    LocalFree(all);
    return words;
}

} // namespace

int main() {
    const UINT code_page = GetConsoleOutputCP();
    SetConsoleOutputCP(CP_UTF8);
    const int status = RunLabelhost(WordsOf(GetCommandLineW()));
    if (code_page) SetConsoleOutputCP(code_page);
    return status;
}
