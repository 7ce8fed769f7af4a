#include "support/host_test.h"

#include <win32host/control.h>

#include <algorithm>
#include <cstdlib>
#include <filesystem>

namespace fs = std::filesystem;

HostTest::HostTest() {
    std::string pattern = (fs::temp_directory_path() / "host-test-XXXXXX").string();
    if (!mkdtemp(pattern.data())) std::abort();
    root_ = pattern;
    win32host::SetRoot(root_);
    win32host::ResetControl();
}

HostTest::~HostTest() {
    win32host::ResetControl();
    std::error_code ignored;
    fs::remove_all(root_, ignored);
}

std::string HostTest::OnDriveC(const std::string& windows_path) const {
    std::string path = windows_path;
    std::replace(path.begin(), path.end(), '\\', '/');
    return root_ + "/drive_c/" + path;
}
