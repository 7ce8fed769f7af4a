#include "host/user.h"

#include <pwd.h>
#include <unistd.h>

#include <vector>

namespace win32host {
namespace {

std::string ReadOwnerName() {
    const uid_t id = geteuid();
    std::vector<char> text(16384);
    passwd record{};
    passwd* found = nullptr;
    if (getpwuid_r(id, &record, text.data(), text.size(), &found) == 0 && found && *found->pw_name)
        return found->pw_name;
    return "uid" + std::to_string(id);
}

} // namespace

std::string ProcessOwnerName() {
    static const std::string* const name = new std::string(ReadOwnerName());
    return *name;
}

} // namespace win32host
