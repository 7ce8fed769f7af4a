// What controls and window frames look like: flat, with thin borders and one accent colour.
//
// Controls paint with these functions and no others, so that they look alike. All take a device
// context and draw inside of the rectangle, in its logical units (pixels). Sizes that are meant for
// 96 dots per inch are scaled to the context's resolution. What stays as it was: the context's
// objects, colours and modes.
//
// Text is drawn by the control with the font that it was given (WM_SETFONT), in the colours that
// its parent answers to WM_CTLCOLOR*, or by DrawLabel. The colours here are those of GetSysColor.
#pragma once

#include <windows.h>

#include <string_view>

namespace win32host::look {

// How a control is, as bits. A function ignores those that mean nothing to it.
using State = unsigned;
constexpr State kNormal = 0;
constexpr State kDisabled = 1;   // cannot be used
constexpr State kPressed = 2;    // held down by the mouse or the space bar
constexpr State kFocused = 4;    // has the keyboard
constexpr State kDefault = 8;    // a push button that Enter presses
constexpr State kChecked = 16;   // a check box or radio button that is on
constexpr State kMixed = 32;     // a check box in its third state
constexpr State kSelected = 64;  // the chosen tab, item of a menu or list
constexpr State kReadOnly = 128; // an edit field that cannot be changed
constexpr State kInactive = 256; // a window that is not the active one

// A size of 96 dots per inch in pixels of the context.
int Scaled(HDC dc, int size);

// ---- Colours ------------------------------------------------------------------------------------

COLORREF AccentColor();               // COLOR_HIGHLIGHT: what is on, chosen or focused
COLORREF BorderColor(State state);    // of fields and buttons
COLORREF TextColor(State state);      // of labels and buttons: black, or grey when disabled
COLORREF FieldColor(State state);     // the background of edit fields and lists
COLORREF SelectionColor(State state); // behind chosen items; paler without kFocused
COLORREF SelectionTextColor(State state);

// ---- Buttons ------------------------------------------------------------------------------------

// The face of a push button. Its text goes in the middle, in TextColor(state).
void DrawPushButton(HDC dc, const RECT& rect, State state);
// The square or circle of a check box or radio button, centred in the rectangle. MarkSize is its
// side; the text usually starts MarkSize and MarkGap to its right.
void DrawCheckMark(HDC dc, const RECT& rect, State state);
void DrawRadioMark(HDC dc, const RECT& rect, State state);
int MarkSize(HDC dc);
int MarkGap(HDC dc);
// The frame of a group box, whose upper line is in the middle of a line of its text. The line is
// left out between `gap_left` and `gap_right` (in the same units as the rectangle; equal for none).
// The caller passes the rectangle of the whole control and the height of its text.
void DrawGroupBox(HDC dc, const RECT& rect, int text_height, int gap_left, int gap_right);
// A dotted rectangle around what has the focus.
void DrawFocus(HDC dc, const RECT& rect);

// ---- Fields -------------------------------------------------------------------------------------

// The border and the background of an edit field, list box, list view or rich edit. Kept free
// inside is the border's FieldBorder on each side.
void DrawField(HDC dc, const RECT& rect, State state);
// The border alone, where the control has filled its background itself.
void DrawFieldBorder(HDC dc, const RECT& rect, State state);
int FieldBorder(HDC dc);
// A closed combo box with its arrow. `editable`: its text can be typed, so that it looks like a
// field; otherwise like a button. The text has the rectangle without ComboArrowWidth at the right.
void DrawComboBox(HDC dc, const RECT& rect, bool editable, State state);
int ComboArrowWidth(HDC dc);
// The border of a list that dropped down.
void DrawDropDown(HDC dc, const RECT& rect);
// One of the two buttons of an up-down control.
enum class Arrow { Up, Down, Left, Right };
void DrawSpinButton(HDC dc, const RECT& rect, Arrow arrow, State state);
// An arrow in the middle of the rectangle, in the colour of the state's text.
void DrawArrow(HDC dc, const RECT& rect, Arrow arrow, State state);
// A chosen item's background, over the whole rectangle.
void DrawSelection(HDC dc, const RECT& rect, State state);

// ---- Track bar, progress bar, scroll bar --------------------------------------------------------

// The line that the thumb moves on, in the middle of the rectangle, along its longer side.
void DrawTrack(HDC dc, const RECT& rect, State state);
// The thumb, filling the rectangle.
void DrawThumb(HDC dc, const RECT& rect, State state);
// A tick: a line from one point to the other, horizontal or vertical.
void DrawTick(HDC dc, POINT from, POINT to, State state);
// `part` of `whole` is done; out of range it is limited. `whole` <= 0 is nothing done.
void DrawProgress(HDC dc, const RECT& rect, int part, int whole);
// A scroll bar with its two arrows and its thumb between `thumb_start` and `thumb_end`, in pixels
// from the rectangle's left or top; equal for none.
void DrawScrollBar(HDC dc, const RECT& rect, bool vertical, int thumb_start, int thumb_end,
                   State state);

// ---- Tabs, list headers, menus ------------------------------------------------------------------

// The frame below the tabs.
void DrawTabBody(HDC dc, const RECT& rect);
// A tab, without its text. The chosen one (kSelected) is drawn after the body and runs into it: its
// rectangle reaches one pixel below the body's upper edge.
void DrawTab(HDC dc, const RECT& rect, State state);
// A column's header in a list view, without its text.
void DrawHeader(HDC dc, const RECT& rect, State state);
void DrawMenuBackground(HDC dc, const RECT& rect);
// The background of an item; kSelected for the one under the pointer. Its text is in TextColor.
void DrawMenuItem(HDC dc, const RECT& rect, State state);
void DrawMenuSeparator(HDC dc, const RECT& rect);
// A check mark (or a dot, for `radio`) in the middle of the rectangle.
void DrawMenuMark(HDC dc, const RECT& rect, bool radio, State state);

// ---- Frames and icons ---------------------------------------------------------------------------

// The frame of a sheet, dialog or message box with its title bar, given the rectangle of the whole
// window. `border` and `caption`: the widths of its parts; `dialog_close` and `help`: whether it
// has these boxes. The client area stays as it is.
struct Frame {
    int border = 0;
    int caption = 0;
    bool close = false;
    bool help = false;
    std::u16string_view title;
};
void DrawFrame(HDC dc, const RECT& rect, const Frame& frame, State state);

// The icons of message boxes, filling the rectangle's middle square.
enum class Icon { Information, Question, Warning, Error };
void DrawMessageIcon(HDC dc, const RECT& rect, Icon icon);

// ---- Text ---------------------------------------------------------------------------------------

// DrawTextW in the context's font, transparent, in TextColor(state).
void DrawLabel(HDC dc, const RECT& rect, std::u16string_view text, UINT format, State state);

} // namespace win32host::look
