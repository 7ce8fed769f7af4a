// Windows, messages, dialogs, the basic controls, menus and resources; a header per subject.
#pragma once

#include <winuser/resources.h>
#include <winuser/message.h>
#include <winuser/window.h>
#include <winuser/input.h>
#include <winuser/dialog.h>
#include <winuser/letter_case.h>
#include <winuser/menu.h>
#include <winuser/rect.h>
#include <winuser/system.h>
#include <winuser/drawing.h>
#include <winuser/message_box.h>
#include <winuser/owner_draw.h>
#include <winuser/scrollbar.h>
#include <winuser/static.h>
#include <winuser/button.h>
#include <winuser/edit.h>
#include <winuser/listbox.h>
#include <winuser/combobox.h>
