// The pages, dialogs and controls of the test sheet, for its resources and its code.
#ifdef RC_INVOKED
#include "styles.h"

#define WS_DISABLED 0x08000000
#define WS_EX_CONTROLPARENT 0x00010000
#define ES_NUMBER 0x2000
#define CBS_DROPDOWN 0x0002
#endif

#define BUTTONS_PAGE 1
#define FIELDS_PAGE 2
#define LISTS_PAGE 3
#define TABBED_DIALOG 4
#define INNER_DIALOG 5
#define SHEET_MENU 6

#define ID_ASK 101
#define ID_MENU 102
#define ID_DIALOG 103
#define ID_LOCKED 104
#define ID_CHECK 105
#define ID_THREE 106
#define ID_RADIO_ONE 107
#define ID_RADIO_TWO 108
#define ID_TIMER 109
#define ID_SHEET 110
#define ID_FONT 111
#define ID_FILE 112
#define ID_FOLDER 113
#define ID_OPEN 114
#define ID_HIDDEN 115
#define ID_NAME 201
#define ID_COPIES 202
#define ID_COPIES_ARROWS 203
#define ID_LIST 204
#define ID_EDITED 205
#define ID_SIMPLE 206
#define ID_SLIDER 207
#define ID_PROGRESS 208
#define ID_RICH 209
#define ID_SINGLE 301
#define ID_EXTENDED 302
#define ID_REPORT 303
#define ID_TABS 501
#define ID_INNER 502
#define ID_INNER_CHECK 503
#define ID_LOG 900
