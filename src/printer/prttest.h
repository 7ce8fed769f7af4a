// The test page, printed through the driver as an application would.
#pragma once

#include "printer/prtspool.h"

// One document with one page, named "Printer Test". Both end with the object.
class prttest : public prtspool {
public:
    explicit prttest(const UIPrinter* ui);
    ~prttest() override;

    // Fills a rectangle between two corners, in either order, with coordinates in thousandths of an
    // inch. It is drawn as a bar of the rendering module if the printer can draw lines, else by
    // GDI. Without width or height it is a bar of one dot, and nothing for GDI.
    void DrawRect(int x1, int y1, int x2, int y2);

private:
    // Dots per inch, of the document settings.
    int32_t x_resolution_ = 0, y_resolution_ = 0;
    bool bars_ = false;
};

enum class TestPattern {
    BLANK = 0,
    LABEL = 1, // a double frame around the word TEST, two inches by one
};

// Prints the page, or nothing if the printer cannot be opened.
void PrtTest(const UIPrinter* ui, TestPattern pattern);
