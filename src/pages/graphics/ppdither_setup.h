// The dialog that chooses the pattern of a dithering method.
#pragma once

#include "ui/prtpage.h"

class ppDitherSetup : public prtpage {
public:
    static INT_PTR CALLBACK WinProc(HWND window, UINT message, WPARAM first, LPARAM second);

    void Refresh(bool all) override;
    bool Command(unsigned short id, unsigned short code, LPARAM parameter) override;
    const char* HelpTopic() override { return "/base/Graphics_Dithering.html"; }

private:
    void FillPatterns();
    // What the list edits for the current method; null for a method without patterns.
    int16_t* Field();
};
