// Texts in the ANSI code page.
#pragma once

#include <string>
#include <string_view>

namespace win32host {

std::string Ansi(std::u16string_view text);
std::u16string FromAnsi(std::string_view text);

} // namespace win32host
