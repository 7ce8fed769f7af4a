// The items of lists: combo boxes, list boxes, list views and tab controls.
#pragma once

#include "sheet/script.h"

#include <windows.h>

#include <string>
#include <vector>

enum class ListKind { None, ComboBox, ListBox, ListView, Tabs };

ListKind ListKindOf(HWND control);

// Of a control that is such a list.
int ItemCount(HWND list);
// Columns only matter to list views. Empty if the list keeps no texts.
std::string ItemText(HWND list, int item, int column = 0);
std::vector<int> SelectedItems(HWND list);
// Whether any number of items can be selected.
bool SelectsMany(HWND list);

// How many columns the list view has; 0 if it shows none.
int ColumnCount(HWND list_view);

// The position of an item; throws Fault if there is none such, which calls it `noun`. The first one
// of those with the same text is meant.
int FindItem(HWND list, const ItemName& name, const std::string& noun = "item");
