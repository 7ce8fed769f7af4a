// The machine that the commands work on: a pretended one in a folder or, on Windows, the one that
// the program runs on.
#pragma once

#include <string>

// What the usage says of it.
extern const char* const kMachineUsage;

// Makes `folder` the root of the host for the rest of the process. Must come before any other call
// of the host. Throws Fault when the folder cannot be made or written, and on Windows always.
void UseRoot(const std::string& folder);

// Has the name `server` lead to another machine, whose root is `folder`, as a name service does.
// Throws Fault when the name is another machine's or `folder` is no root, and on Windows always.
void NameServer(const std::string& server, const std::string& folder);

// The name that other programs of this machine have for a file of the host: "/tmp/x" for
// "Z:\tmp\x". On Windows both are the same.
std::string OwnPath(const std::string& windows_path);

// The full name that the host has for a file of this machine: "Z:\tmp\x" for "x" in "/tmp".
std::string HostPath(const std::string& file);
