// Keeps the column widths of list views for the user.
#pragma once

#include <span>

#include "keys/prtreg.h"
#include "ui/ulist_view.h"

// Replaces the widths of columns by those stored as a value (REG_BINARY, 32-bit pixels each). They
// stay if there are none for exactly so many columns, or if one is no width.
void LoadColumnWidths(prtreg& registry, const OString& value, std::span<UColumnInfo> columns);

// Stores the widths that a list's columns have now, unless they are those that it remembers
// (UListView::SaveWidths). It then remembers the new ones. A list without a window, or without
// columns, has nothing to store. Widths that cannot be stored are lost: they do not matter enough
// for a message when a window closes.
void SaveColumnWidths(prtreg& registry, const OString& value, UListView& list);
