// Tables of printer actions: one row each, with everything that is known about it.
#pragma once

#include <cstdint>

#include "printer/printer_action.h"

class prtpage;
class prtui;

struct ActionRow {
    printer_action action;
    // The number of its name among the language's texts, or 0 if it has none.
    int text;
    // How it is offered, the sum of ACTION_OFFERED and the others. 0 for an action of another
    // printer language.
    uint32_t offer = 0;
    // Whether it is offered for the printer as set up, or null for always. The model exists.
    bool (*is_possible)(prtui& ui) = nullptr;
    // Runs it, or null if a dialog does. The stream to the printer exists.
    void (*run)(prtui& ui, const ActionRow& row) = nullptr;
    // The command that `run` sends, if several actions share `run`.
    const char* command = nullptr;
    // Opens the action's dialog over a page, or null if it has none.
    void (*show)(prtpage& page) = nullptr;
};

// The row of an action in a table, or null.
template <int Size>
const ActionRow* FindRow(const ActionRow (&rows)[Size], printer_action action) {
    for (const ActionRow& row : rows)
        if (row.action == action) return &row;
    return nullptr;
}
