#include "support/host_test.h"

#include <windows.h>

#include <filesystem>
#include <fstream>
#include <iterator>

namespace fs = std::filesystem;

std::string HostTest::BytesOf(const std::string& path) {
    std::ifstream file(path, std::ios::binary);
    return {std::istreambuf_iterator<char>(file), {}};
}

void HostTest::WriteFile(const std::string& windows_path, const std::string& bytes) const {
    fs::path path = OnDriveC(windows_path);
    fs::create_directories(path.parent_path());
    std::ofstream(path, std::ios::binary) << bytes;
}

void SkipTest(const char* reason) {
    [reason] { GTEST_SKIP() << reason; }();
    // The framework takes this for something that is reported already.
    throw testing::AssertionException(
        testing::TestPartResult(testing::TestPartResult::kSkip, __FILE__, __LINE__, reason));
}

void SkipUnderWine(const char* difference) {
    if (RunsUnderWine()) SkipTest(difference);
}

bool HostTest::ListsByCreation() {
    HKEY key = nullptr;
    if (RegCreateKeyExW(HKEY_CURRENT_USER, TEXT("ListsByCreation"), 0, nullptr, 0, KEY_ALL_ACCESS,
                        nullptr, &key, nullptr) != ERROR_SUCCESS)
        return false;
    for (const WCHAR* name : {TEXT("z"), TEXT("a")})
        RegSetValueExW(key, name, 0, REG_BINARY, nullptr, 0);
    WCHAR first[2] = {};
    DWORD size = 2;
    RegEnumValueW(key, 0, first, &size, nullptr, nullptr, nullptr, nullptr);
    RegCloseKey(key);
    RegDeleteKeyW(HKEY_CURRENT_USER, TEXT("ListsByCreation"));
    return first[0] == 'z';
}
