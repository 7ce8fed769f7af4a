// Scripts that say what a user does in property sheets: a line is an act.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

enum class ActKind {
    Page,
    Click,
    Check,
    Type,
    Leave,
    Choose,
    Select,
    Double,
    Column,
    Slide,
    Spin,
    Menu,
    Key,
    Answer,
    File,
    Font,
    Clock,
    Ok,
    Cancel,
    Apply,
    Help,
    State,
    Picture,
};

// An item of a list, named by its text or by its position.
struct ItemName {
    std::string text;
    int position = -1; // from 0; less than 0: the text names it
};

// Keys that are held down; combined with |.
enum HeldKeys : uint32_t { HELD_CTRL = 1, HELD_ALT = 2, HELD_SHIFT = 4 };

// What a line says. Members that the act does not need stay as they are here.
struct Act {
    ActKind kind = ActKind::Leave;
    int line = 0;                // from 1
    int id = 0;                  // of the control
    std::vector<ItemName> items; // of Page, Choose, Select, Double and Column
    // Type: what is typed. Key and Answer: the name of the key without those held, or of the
    // button. Font: the family. State: the name. Picture: the file.
    std::string text;
    std::vector<std::string> paths; // of File; none cancels
    uint32_t held = 0;              // HELD_ bits of Click and Key
    int number = 0;                 // Slide: position. Spin: times. Menu: identifier. Clock: ms
    double points = 0;              // of Font
    bool on = false;                // Check: whether on. Spin: whether up
    bool bold = false, italic = false;
};

// The acts of a script (UTF-8) in their order. Throws UsageFault with the number of the first line
// that is no act, and the reason.
std::vector<Act> ParseScript(const std::string& script);

// The virtual key of a name that Key may have: "TAB", "F1", "X"; 0 for others.
int VirtualKey(const std::string& name);

// The identifier of a message box's button: IDYES for "Yes"; 0 for other names. And the name of a
// button; null for those that no script can name.
int AnswerId(const std::string& name);
const char* AnswerName(int id);
