#include "zpl/extui.h"

#include <new>

// The framework knows that there is a UI object but not of which printer language.
prtui* prtui::new_ext() {
    return new (std::nothrow) extui;
}

extui::~extui() = default;

void extui::InitEx() {
    prtui::InitEx();
    stream = &stream_;
    stream->init(this);
}
