// Printer actions as tables: one row for each, with all that there is to know about it.
#pragma once

#include <cstdint>

#include "printer/printer_action.h"

class prtui;

struct ActionRow {
    printer_action action;
    // The number of its name among the language's texts; 0 for one that has none.
    int text;
    // How it is offered, the sum of ACTION_OFFERED and the others; 0 for one that other printer
    // languages have.
    uint32_t offer = 0;
    // Whether it is offered for the printer as it is set up; null for always. The model exists.
    bool (*is_possible)(prtui& ui) = nullptr;
    // Does it; null for what a dialog does. The way to the printer exists.
    void (*run)(prtui& ui, const ActionRow& row) = nullptr;
    // What `run` sends, where several actions share one.
    const char* command = nullptr;
};

// The row of an action in a table; null when it is not there.
template <int Size>
const ActionRow* FindRow(const ActionRow (&rows)[Size], printer_action action) {
    for (const ActionRow& row : rows)
        if (row.action == action) return &row;
    return nullptr;
}
