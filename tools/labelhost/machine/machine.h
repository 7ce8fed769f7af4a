// The machine that the commands work on: a simulated one in a folder or, on Windows, the one that
// the program runs on.
#pragma once

#include <string>

// What the usage text says about it.
extern const char* const kMachineUsage;

// Makes `folder` the root of the host for the rest of the process. To be called before any other
// function of the host. Throws Fault if the folder cannot be made or written, and always on
// Windows.
void UseRoot(const std::string& folder);

// Lets the rest of the process run as a user who is no administrator. Always throws Fault on
// Windows.
void BecomeStandardUser();

// Makes the name `server` lead to another machine, whose root is `folder`, as a name service does.
// Throws Fault if the name is another machine's or `folder` is not a root, and always on Windows.
void NameServer(const std::string& server, const std::string& folder);

// The name that other programs on this machine use for a file of the host: "/tmp/x" for "Z:\tmp\x".
// On Windows both are the same.
std::string OwnPath(const std::string& windows_path);

// The full name that the host uses for a file of this machine: "Z:\tmp\x" for "x" in "/tmp".
std::string HostPath(const std::string& file);
