// Common controls; a header per control.
#pragma once

#include <winuser.h>

#include <commctrl/notify.h>
#include <commctrl/header.h>
#include <commctrl/listview.h>
#include <commctrl/tab.h>
#include <commctrl/updown.h>
#include <commctrl/trackbar.h>
#include <commctrl/progress.h>
