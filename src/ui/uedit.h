// Edit fields and rich edit controls.
#pragma once

#include <windows.h>

#include <richedit.h>

#include <cstdint>
#include <span>

#include "ui/ucontrol.h"

// Positions count characters; a line break of a rich edit control is one character. -1 as the end
// of a range means the end of the text.
class UEdit : public UControl {
public:
    // Whether it is a rich edit control; the operations on formats, events and scrolling below are
    // for those only.
    bool IsRichEdit() const;

    void LimitText(int32_t characters);
    void SetReadOnly(bool read_only);
    // Positions in quarters of the average character's width; none restores the usual ones.
    void SetTabStops(std::span<const int> stops);
    void SetMargins(uint16_t left, uint16_t right); // pixels

    void GetSelection(int& start, int& end) const;
    void SetSelection(int start, int end);
    // Replaces the selected text, as if typed. The user can undo it if `undo` is set.
    void ReplaceSelection(const OString& text, bool undo = false);

    // The format of the selected characters, or of the next one typed. `format` has its size and
    // says in dwMask what counts.
    void GetFormat(CHARFORMAT2W& format) const;
    void SetFormat(const CHARFORMAT2W& format);
    void SetBackground(COLORREF color);
    // ENM_ bits of the notifications that the dialog gets. Returns those that were set before, so
    // that they can be set again after changes that are not the user's.
    uint32_t SetEventMask(uint32_t mask);

    CPoint GetScrollPosition() const; // pixels
    void SetScrollPosition(CPoint position);
};
