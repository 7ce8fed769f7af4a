// What the property sheets need of each host in its own way.
#pragma once

#include "json.h"
#include "png/picture.h"

#include <windows.h>

#include <cstdint>
#include <functional>

// Whether a dialog is one of the system's own rather than a program's.
bool IsOfSystem(HWND window);

// While this object exists, `act` is called on this thread when one of its message loops has
// nothing to deliver, from the loops of modal windows too, again and again until it answers false.
// It does not throw. Only one object may exist at a time.
class WhenLoopsAreIdle {
public:
    explicit WhenLoopsAreIdle(std::function<bool()> act);
    ~WhenLoopsAreIdle();
    WhenLoopsAreIdle(const WhenLoopsAreIdle&) = delete;
    WhenLoopsAreIdle& operator=(const WhenLoopsAreIdle&) = delete;
};

// A stretch of time that passes while loops run. Ask Passed again each time when they are idle.
class Passing {
public:
    explicit Passing(uint32_t milliseconds);
    bool Passed();

private:
    uint64_t left_or_end_; // natively what is left, on Windows when it ends
};

// To be called when there is nothing but to wait for a timer.
void LetTimePass();

// Makes the screen that windows are made for finer or coarser than 96 dots per inch. Throws Fault
// where the screen is a real one.
void SetScreenResolution(int dpi);

// The window with its frame. Throws Fault if it cannot be drawn.
Picture PictureOfWindow(HWND window);

// Notes the programs, files and help topics that a module asks the system to open, from now on;
// they are not opened. The module (null: none) stays loaded until the process ends.
class OpenedThings {
public:
    explicit OpenedThings(HMODULE module);

    // An array of objects with kind ("open", "run", "help", "folder"), what and parameters.
    Json Told() const;
};
