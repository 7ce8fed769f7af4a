// The clipboard: a text that the controls of this process share. There is no other one on this
// host.
#pragma once

#include <string>

namespace win32host {

void SetClipboardText(std::u16string text);
std::u16string ClipboardText();

} // namespace win32host
