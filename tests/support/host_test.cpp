#include "support/host_test.h"

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
    // The framework takes this for a failure that was reported already.
    throw testing::AssertionException(
        testing::TestPartResult(testing::TestPartResult::kSkip, __FILE__, __LINE__, reason));
}

void SkipUnderWine(const char* difference) {
    if (RunsUnderWine()) SkipTest(difference);
}
