// What the handles of GDI's objects name, and the objects that are always there.
#pragma once

#include "host/handles.h"

#include <windows.h>

#include <memory>
#include <vector>

namespace win32host {

class Bitmap;

// What DeleteObject deletes.
class GdiObject : public HandleObject {};

struct Pen : GdiObject {
    int style = PS_SOLID;
    int width = 0;
    COLORREF color = 0;
    bool of_context = false; // its colour is the context's
};

struct Brush : GdiObject {
    UINT style = BS_SOLID;
    COLORREF color = 0;
    int hatch = 0;
    std::shared_ptr<const Bitmap> pattern; // a copy of its own
    bool of_context = false;
};

struct Palette : GdiObject {
    std::vector<PALETTEENTRY> entries;

    // The entry that is nearest to a colour. There is at least one.
    UINT Nearest(COLORREF color) const;
};

struct Region : GdiObject {
    RECT rect = {};
};

// Stock objects and the brushes of the system's colours have handles of their own, which are not
// among the open ones.
bool IsStock(HGDIOBJ handle);

// The object, a stock object too, or null without touching the last error.
std::shared_ptr<GdiObject> FindGdiObject(HGDIOBJ handle);

// The same if it is a T, else null with ERROR_INVALID_HANDLE.
template <class T>
std::shared_ptr<T> FindGdi(HGDIOBJ handle) {
    auto found = std::dynamic_pointer_cast<T>(FindGdiObject(handle));
    if (!found) SetLastError(ERROR_INVALID_HANDLE);
    return found;
}

// A handle for a new object; null with ERROR_NOT_ENOUGH_MEMORY.
template <class Handle, class T>
Handle NewGdi(std::shared_ptr<T> object) {
    return static_cast<Handle>(NewHandle(std::move(object)));
}

// What every memory context starts with: a bitmap of one black pixel, which all of them share.
HBITMAP OnePixelBitmap();

} // namespace win32host
