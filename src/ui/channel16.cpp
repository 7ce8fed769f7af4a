#include "ui/channel16.h"

#include "registry/oregistry.h"

bool Channel16::Open(const OString& name) {
    name_ = name;
    window_ = FindWindowW(TEXT("X16_Channel"), name.wstring());
    return window_ != nullptr;
}

OString Channel16::ValuePath(const char* value) const {
    return OString("LOCAL:X16/") << name_ << "/" << value;
}

bool Channel16::Wants(const char* value) const {
    return ORegistry().GetByte(ValuePath(value), 0) != 0;
}

bool Channel16::Publish(const DEVMODEW& settings) const {
    if (!window_) return true;
    const uint32_t size = uint32_t{settings.dmSize} + settings.dmDriverExtra;
    if (ORegistry().SetBinary(ValuePath("DevMode 32"), &settings, size) < 0) return false;
    PostMessageW(window_, SETTINGS_CHANGED, edits_defaults_, 0);
    return true;
}
