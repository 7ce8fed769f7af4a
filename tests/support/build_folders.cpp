#include "support/build_folders.h"

std::string Built(const std::string& path) {
    return TEST_BINARY_DIR + path;
}

std::string Sources(const std::string& path) {
    return TEST_SOURCE_DIR + path;
}
