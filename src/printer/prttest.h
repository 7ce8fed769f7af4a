// The test page, printed through the driver as an application would.
#pragma once

#include "printer/prtspool.h"

// One document with one page, named "Printer Test". Both end with the object.
class prttest : public prtspool {
public:
    explicit prttest(const UIPrinter* ui);
    ~prttest() override;

    // Fills a rectangle between two corners, in either order, whose coordinates are thousandths of
    // an inch. As a bar of the rendering module's when the printer can draw lines, else as GDI does
    // it. One without width or height is a bar of one dot, and nothing for GDI.
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

// Prints the page; nothing when the printer cannot be had.
void PrtTest(const UIPrinter* ui, TestPattern pattern);
