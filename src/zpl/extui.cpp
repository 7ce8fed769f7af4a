#include "zpl/extui.h"

#include "core/memory.h"

// The framework knows that there is a UI object but not of which printer language.
prtui* prtui::new_ext() {
    return new (kCounted) extui;
}

extui::~extui() = default;

void extui::InitEx() {
    prtui::InitEx();
    stream = &stream_;
    stream->init(this);
}

OString extui::MemoryName(const OString& location) const {
    constexpr struct {
        char letter;
        int text; // in the language library
    } kNames[] = {{'R', 10430}, {'E', 10431}, {'B', 10432}, {'A', 10433}};
    for (const auto& known : kNames) {
        if (known.letter != *location.nstring()) continue;
        const OString name = locale.GetString(known.text);
        return name.IsEmpty() ? location : name;
    }
    return location;
}
