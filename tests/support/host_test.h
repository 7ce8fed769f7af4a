// The fixture of every test that touches the host: a fresh root folder per test, removed
// afterwards.
#pragma once

#include <gtest/gtest.h>

#include <string>

#include "support/wine.h"

class HostTest : public ::testing::Test {
protected:
    HostTest();
    ~HostTest() override;

    // The root folder of this test (POSIX path).
    const std::string& root() const { return root_; }

    // The POSIX path of a file of the machine that the test pretends to be: `windows_path` is
    // relative to C:, with either kind of slash ("spool\\drivers\\x.ddt").
    std::string OnDriveC(const std::string& windows_path) const;

    // The bytes of a whole file (POSIX path), empty if it cannot be read.
    static std::string BytesOf(const std::string& path);

    // Writes a whole file below drive C, and makes its folders.
    void WriteFile(const std::string& windows_path, const std::string& bytes) const;

private:
    std::string root_;
};
