// Arithmetic of rectangles.
#include <windows.h>

#include <algorithm>

extern "C" {

BOOL WINAPI SetRect(LPRECT rect, int left, int top, int right, int bottom) {
    if (!rect) return FALSE;
    *rect = {left, top, right, bottom};
    return TRUE;
}

BOOL WINAPI SetRectEmpty(LPRECT rect) {
    return SetRect(rect, 0, 0, 0, 0);
}

BOOL WINAPI CopyRect(LPRECT to, const RECT* from) {
    if (!to || !from) return FALSE;
    *to = *from;
    return TRUE;
}

BOOL WINAPI InflateRect(LPRECT rect, int x, int y) {
    if (!rect) return FALSE;
    return SetRect(rect, rect->left - x, rect->top - y, rect->right + x, rect->bottom + y);
}

BOOL WINAPI OffsetRect(LPRECT rect, int x, int y) {
    if (!rect) return FALSE;
    return SetRect(rect, rect->left + x, rect->top + y, rect->right + x, rect->bottom + y);
}

BOOL WINAPI IsRectEmpty(const RECT* rect) {
    return !rect || rect->left >= rect->right || rect->top >= rect->bottom;
}

BOOL WINAPI EqualRect(const RECT* first, const RECT* second) {
    return first && second && first->left == second->left && first->top == second->top &&
           first->right == second->right && first->bottom == second->bottom;
}

BOOL WINAPI PtInRect(const RECT* rect, POINT point) {
    return rect && point.x >= rect->left && point.x < rect->right && point.y >= rect->top &&
           point.y < rect->bottom;
}

BOOL WINAPI IntersectRect(LPRECT to, const RECT* first, const RECT* second) {
    if (!to || !first || !second) return FALSE;
    const RECT common = {std::max(first->left, second->left), std::max(first->top, second->top),
                         std::min(first->right, second->right),
                         std::min(first->bottom, second->bottom)};
    const bool empty = IsRectEmpty(first) || IsRectEmpty(second) || IsRectEmpty(&common);
    *to = empty ? RECT{} : common;
    return !empty;
}

BOOL WINAPI UnionRect(LPRECT to, const RECT* first, const RECT* second) {
    if (!to || !first || !second) return FALSE;
    if (IsRectEmpty(first))
        *to = IsRectEmpty(second) ? RECT{} : *second;
    else if (IsRectEmpty(second))
        *to = *first;
    else
        *to = {std::min(first->left, second->left), std::min(first->top, second->top),
               std::max(first->right, second->right), std::max(first->bottom, second->bottom)};
    return !IsRectEmpty(to);
}

BOOL WINAPI SubtractRect(LPRECT to, const RECT* first, const RECT* second) {
    if (!to || !first || !second) return FALSE;
    RECT rest = *first;
    RECT common;
    if (IsRectEmpty(first)) {
        rest = {};
    } else if (IntersectRect(&common, first, second)) {
        if (EqualRect(&common, first))
            rest = {};
        else if (common.top == rest.top && common.bottom == rest.bottom) {
            if (common.left == rest.left)
                rest.left = common.right;
            else if (common.right == rest.right)
                rest.right = common.left;
        } else if (common.left == rest.left && common.right == rest.right) {
            if (common.top == rest.top)
                rest.top = common.bottom;
            else if (common.bottom == rest.bottom)
                rest.bottom = common.top;
        }
    }
    *to = rest;
    return !IsRectEmpty(to);
}

} // extern "C"
