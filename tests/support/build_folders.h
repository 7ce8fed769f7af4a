// The locations of the build and the sources. Only one file knows them: with these paths in every
// compile line, no two trees could share a compiler cache.
#pragma once

#include <string>

// Path of something in the build folder ("/bin/labelhost") or in the source folder.
std::string Built(const std::string& path = "");
std::string Sources(const std::string& path);
