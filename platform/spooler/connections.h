// The user's connections to printers of other machines.
#pragma once

#include <string>
#include <vector>

namespace win32host {

// Their full names, in the order in which they were made.
std::vector<std::u16string> ConnectionNames();

} // namespace win32host
