// Objects of the system that every account may use, whoever made them.
#pragma once

#include <windows.h>

// Security attributes for such an object, valid while this lives.
class OpenToAll {
public:
    OpenToAll();
    OpenToAll(const OpenToAll&) = delete;
    OpenToAll& operator=(const OpenToAll&) = delete;

    // Null on a system without access rights.
    SECURITY_ATTRIBUTES* Get() { return attributes_.nLength ? &attributes_ : nullptr; }

private:
    SECURITY_DESCRIPTOR descriptor_ = {};
    SECURITY_ATTRIBUTES attributes_ = {};
};
