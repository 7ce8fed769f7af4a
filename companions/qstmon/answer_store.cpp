#include "qstmon/answer_store.h"

#include <algorithm>

namespace {

const WCHAR* const kAnswers = TEXT("SOFTWARE\\Valdrick\\Drivers\\Global\\Query");
const WCHAR* const kSettings = TEXT("SOFTWARE\\Valdrick\\Drivers\\Status Monitor");
constexpr DWORD kLongestLimit = 600000;

bool SetValue(const WideString& name, DWORD type, const void* data, size_t size) {
    HKEY key = nullptr;
    if (RegCreateKeyExW(HKEY_LOCAL_MACHINE, kAnswers, 0, nullptr, 0, KEY_WRITE, nullptr, &key,
                        nullptr) != ERROR_SUCCESS)
        return false;
    const LONG error = RegSetValueExW(key, name.c_str(), 0, type, static_cast<const BYTE*>(data),
                                      static_cast<DWORD>(size));
    RegCloseKey(key);
    return error == ERROR_SUCCESS;
}

void ReadLimit(HKEY key, const WCHAR* name, int& limit) {
    DWORD value = 0, size = sizeof value;
    if (RegQueryValueExW(key, name, nullptr, nullptr, reinterpret_cast<BYTE*>(&value), &size) ==
            ERROR_SUCCESS &&
        size == sizeof value)
        limit = static_cast<int>(std::min(value, kLongestLimit));
}

} // namespace

bool StoreAnswer(const WideString& query, const std::string& answer) {
    const WideString name = TEXT("Query ") + query;
    const DWORD size = static_cast<DWORD>(answer.size());
    return SetValue(name + TEXT(" Response"), REG_BINARY, answer.data(), answer.size()) &&
           SetValue(name + TEXT(" Size"), REG_DWORD, &size, sizeof size);
}

void MarkQueryDone() {
    const uint32_t done = 1;
    SetValue(TEXT("Query Done"), REG_BINARY, &done, sizeof done);
}

TimeLimits ConfiguredTimeLimits() {
    TimeLimits limits;
    HKEY key = nullptr;
    if (RegOpenKeyExW(HKEY_LOCAL_MACHINE, kSettings, 0, KEY_READ, &key) != ERROR_SUCCESS)
        return limits;
    ReadLimit(key, TEXT("Connect Time Limit"), limits.connect);
    ReadLimit(key, TEXT("Answer Time Limit"), limits.answer);
    ReadLimit(key, TEXT("Quiet Time Limit"), limits.quiet);
    RegCloseKey(key);
    return limits;
}
