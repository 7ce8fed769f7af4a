// The measures of the screen and of what is on it.
#include "gdi/drawing_context.h"

#include <iterator>

namespace {

struct Metric {
    int index;
    int size; // at 96 dots per inch
};

constexpr Metric kScaled[] = {
    {SM_CXBORDER, 1},        {SM_CYBORDER, 1},    {SM_CXEDGE, 2},       {SM_CYEDGE, 2},
    {SM_CXVSCROLL, 17},      {SM_CYHSCROLL, 17},  {SM_CYCAPTION, 26},   {SM_CXDLGFRAME, 3},
    {SM_CYDLGFRAME, 3},      {SM_CYVTHUMB, 17},   {SM_CXHTHUMB, 17},    {SM_CXICON, 32},
    {SM_CYICON, 32},         {SM_CXCURSOR, 32},   {SM_CYCURSOR, 32},    {SM_CYMENU, 20},
    {SM_CYVSCROLL, 17},      {SM_CXHSCROLL, 17},  {SM_CXMIN, 112},      {SM_CYMIN, 27},
    {SM_CXSIZE, 26},         {SM_CYSIZE, 26},     {SM_CXFRAME, 4},      {SM_CYFRAME, 4},
    {SM_CXSMICON, 16},       {SM_CYSMICON, 16},   {SM_CYSMCAPTION, 18}, {SM_CXSMSIZE, 18},
    {SM_CYSMSIZE, 18},       {SM_CXMENUSIZE, 20}, {SM_CYMENUSIZE, 20},  {SM_CXMENUCHECK, 15},
    {SM_CYMENUCHECK, 15},    {SM_CXSCREEN, 1920}, {SM_CYSCREEN, 1080},  {SM_CXFULLSCREEN, 1920},
    {SM_CYFULLSCREEN, 1054},
};

// These are the same at every resolution.
constexpr Metric kFixed[] = {
    {SM_CXDOUBLECLK, 4}, {SM_CYDOUBLECLK, 4}, {SM_CMOUSEBUTTONS, 3}, {SM_CXDRAG, 4}, {SM_CYDRAG, 4},
};

} // namespace

extern "C" int WINAPI GetSystemMetrics(int index) {
    for (const Metric& metric : kFixed)
        if (metric.index == index) return metric.size;
    for (const Metric& metric : kScaled)
        if (metric.index == index) return (metric.size * win32host::ScreenResolution() + 48) / 96;
    return 0;
}
