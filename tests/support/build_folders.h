// Where the build and the sources are. Known to one file only: with these paths in every compile
// line, no two trees could share a compiler cache.
#pragma once

#include <string>

// Path of something in the build folder ("/bin/labelhost"), and in the source folder.
std::string Built(const std::string& path = "");
std::string Sources(const std::string& path);
