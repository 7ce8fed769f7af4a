#include "machine/machine.h"

#include "fault.h"
#include "files.h"

const char* const kMachineUsage = "The host is this machine.";

void UseRoot(const std::string& /*folder*/) {
    throw UsageFault("--root: on Windows, labelhost works on the machine that it runs on");
}

void BecomeStandardUser() {
    throw UsageFault("--standard-user: on Windows, labelhost runs as the user who starts it");
}

void NameServer(const std::string& /*server*/, const std::string& /*folder*/) {
    throw UsageFault("--server: on Windows, the network knows where a server is");
}

std::string OwnPath(const std::string& windows_path) {
    return windows_path;
}

std::string HostPath(const std::string& file) {
    return NameOf(std::filesystem::absolute(PathOf(file)).make_preferred());
}
