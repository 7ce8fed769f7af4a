// A text, or the number of one.
#pragma once

#include "core/ostring.h"

class UDialog;

// Lets a function take either. A number is looked up in the dialog's language when the text is
// first asked for.
class UStringResource {
public:
    UStringResource(const OString& text)
        : text_(text) {}
    UStringResource(const char* text)
        : text_(text) {}
    UStringResource(int number)
        : number_(number) {}

    const OString& GetText(UDialog& dialog) const;

private:
    mutable OString text_;
    mutable int number_ = 0; // 0 when the text is there
};
