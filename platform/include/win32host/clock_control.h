// Control of the tick count, for tests and host programs. The module never includes this.
#pragma once

#include <cstdint>

#pragma GCC visibility push(default)
namespace win32host {

// Makes GetTickCount answer `milliseconds` until another value or UseRealTickCount follows.
void SetTickCount(uint32_t milliseconds);
void UseRealTickCount();

} // namespace win32host
#pragma GCC visibility pop
