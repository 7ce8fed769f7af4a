// The words of the system itself: on the buttons of message boxes and property sheets, and in its
// file, folder and font dialogs.
#pragma once

#include <string>
#include <string_view>

namespace win32host {

// An English text of the system's in the language of the user. Texts without a translation, and all
// texts for users of other languages than those of the product, stay as they are.
std::u16string SystemText(std::u16string_view english);

} // namespace win32host
