// The folder that the pretended machine lives in.
#pragma once

#include <string>

// Makes `folder` the root of the host for the rest of the process. Must come before any other call
// of the host. Throws Fault when the folder cannot be made or written.
void UseRoot(const std::string& folder);

// The name that other programs of this machine have for a file: "/tmp/x" for "Z:\tmp\x".
std::string OwnPath(const std::string& windows_path);
