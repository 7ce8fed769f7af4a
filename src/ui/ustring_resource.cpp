#include "ui/ustring_resource.h"

#include <utility>

#include "ui/udialog.h"

const OString& UStringResource::GetText(UDialog& dialog) const {
    if (number_ != 0) text_ = dialog.GetString(std::exchange(number_, 0));
    return text_;
}
