#include "core/open_to_all.h"

#include "core/windows_version.h"

OpenToAll::OpenToAll() {
    if (!IsWindowsNT() ||
        !InitializeSecurityDescriptor(&descriptor_, SECURITY_DESCRIPTOR_REVISION) ||
        !SetSecurityDescriptorDacl(&descriptor_, TRUE, nullptr, FALSE))
        return;
    attributes_.nLength = sizeof attributes_;
    attributes_.lpSecurityDescriptor = &descriptor_;
}
