#include "sheet/acts.h"

#include "fault.h"
#include "sheet/host.h"
#include "sheet/input.h"
#include "sheet/items.h"
#include "sheet/system_dialogs.h"
#include "sheet/windows_read.h"
#include "text.h"

#include <memory>

namespace {

constexpr int kHelpOfSystemDialogs = 1038; // pshHelp

void RequireKind(const Topmost& topmost, WindowKind kind, const char* missing) {
    if (topmost.kind != kind) throw Fault(missing);
}

void Check(HWND button, bool on) {
    if (!IsCheckable(button))
        throw Fault("control " + std::to_string(IdOf(button)) + " is not a check box");
    const LRESULT wanted = on ? BST_CHECKED : BST_UNCHECKED;
    if (SendMessageW(button, BM_GETCHECK, 0, 0) != wanted) PostClick(button);
}

void Press(const Topmost& topmost, int id, const char* name) {
    PostClick(UsableButton(topmost.window, id, name));
}

void PressKey(const Topmost& topmost, int key, uint32_t held) {
    const HWND focus = GetFocus();
    const bool here = focus && topmost.kind != WindowKind::Menu;
    PostKey(here ? focus : topmost.window, key, held);
}

void EnterPaths(const Topmost& topmost, const std::vector<std::string>& paths) {
    if (topmost.kind != WindowKind::File && topmost.kind != WindowKind::Folder)
        throw Fault("no file or folder dialog is open");
    if (paths.size() > 1 && topmost.kind == WindowKind::Folder)
        throw Fault("the folder dialog takes one folder");
    if (!paths.empty() && topmost.kind == WindowKind::File)
        EnterFiles(topmost.window, paths);
    else if (!paths.empty())
        EnterFolder(topmost.window, paths[0]);
    Press(topmost, paths.empty() ? IDCANCEL : IDOK, "button");
}

// Of a message box, the button that changes nothing; insistent, the last other one.
HWND DismissingButton(HWND box, bool insistent) {
    const std::vector<HWND> buttons = MessageButtons(box);
    for (const int id : {IDCANCEL, IDNO, IDABORT, IDOK})
        for (const HWND button : buttons)
            if (IdOf(button) == id && (!insistent || buttons.size() == 1)) return button;
    for (const HWND button : buttons)
        if (IdOf(button) == IDYES || IdOf(button) == IDOK || IdOf(button) == IDIGNORE)
            return button;
    return buttons.empty() ? nullptr : buttons[0];
}

} // namespace

HWND UsableControl(const Topmost& topmost, int id) {
    const std::string name = "control " + std::to_string(id);
    if (topmost.kind == WindowKind::Menu) throw Fault(name + ": a menu is open");
    const HWND control = topmost.dialog ? ControlWithId(topmost.dialog, id) : nullptr;
    if (!control) throw Fault("there is no " + name);
    if (!IsWindowVisible(control)) throw Fault(name + " is not visible");
    for (HWND window = control; window && window != topmost.window;
         window = GetAncestor(window, GA_PARENT))
        if (!IsWindowEnabled(window)) throw Fault(name + " is disabled");
    return control;
}

HWND UsableButton(HWND window, int id, const char* name) {
    const HWND button = GetDlgItem(window, id);
    if (!button || !IsWindowVisible(button))
        throw Fault(std::string("there is no ") + name + " here");
    if (!IsWindowEnabled(button)) throw Fault(std::string("the ") + name + " is disabled");
    return button;
}

Rest Hands::Do(const Act& act, const Topmost& topmost) {
    ++begun_;
    switch (act.kind) {
    case ActKind::Page:
        RequireKind(topmost, WindowKind::Sheet, "no property sheet is in front");
        ChooseTab(TabsOf(topmost.window), FindItem(TabsOf(topmost.window), act.items[0], "page"));
        break;
    case ActKind::Click:
        PostClick(UsableControl(topmost, act.id), act.held);
        break;
    case ActKind::Check:
        Check(UsableControl(topmost, act.id), act.on);
        break;
    case ActKind::Type:
        Type(act, topmost);
        break;
    case ActKind::Leave:
        PressKey(topmost, VK_TAB, 0);
        break;
    case ActKind::Choose:
        Choose(act, topmost);
        break;
    case ActKind::Select:
        Select(act, topmost);
        break;
    case ActKind::Double:
        DoubleClickItem(UsableControl(topmost, act.id), act.items[0]);
        break;
    case ActKind::Column:
        ClickColumn(UsableControl(topmost, act.id), act.items[0].position);
        break;
    case ActKind::Slide:
        Slide(topmost, UsableControl(topmost, act.id), act.number);
        break;
    case ActKind::Spin:
        return Spin(topmost, act);
    case ActKind::Menu:
        return ChooseFromMenu(topmost, act);
    case ActKind::Key:
        PressKey(topmost, VirtualKey(act.text), act.held);
        break;
    case ActKind::Answer:
        RequireKind(topmost, WindowKind::Message, "no message box is open");
        Press(topmost, AnswerId(act.text), ("button '" + act.text + "'").c_str());
        break;
    case ActKind::File:
        EnterPaths(topmost, act.paths);
        break;
    case ActKind::Font:
        RequireKind(topmost, WindowKind::Font, "no font dialog is open");
        EnterFont(topmost, act);
        Press(topmost, IDOK, "OK button");
        break;
    case ActKind::Clock:
        return [passing = std::make_shared<Passing>(static_cast<uint32_t>(act.number))] {
            return passing->Passed();
        };
    case ActKind::Ok:
        Press(topmost, IDOK, "OK button");
        break;
    case ActKind::Cancel:
        Press(topmost, IDCANCEL, "Cancel button");
        break;
    case ActKind::Apply:
        Press(topmost, kApplyButton, "Apply button");
        break;
    case ActKind::Help: {
        const bool of_system = topmost.kind == WindowKind::Font || topmost.kind == WindowKind::File;
        Press(topmost, of_system ? kHelpOfSystemDialogs : IDHELP, "Help button");
        break;
    }
    case ActKind::State:
    case ActKind::Picture:
        break;
    }
    return {};
}

void Hands::Type(const Act& act, const Topmost& topmost) {
    const unsigned number = begun_;
    const HWND field = FieldOf(UsableControl(topmost, act.id));
    GoTo(topmost.dialog, field);
    if (GetFocus() != field) SetFocus(field);
    SendMessageW(field, EM_SETSEL, 0, -1);
    if (act.text.empty()) SendMessageW(field, WM_KEYDOWN, VK_DELETE, 1);
    for (const WCHAR unit : ToWide(act.text)) {
        if (!IsWindow(field) || Interrupted(number)) return;
        SendMessageW(field, WM_CHAR, static_cast<WPARAM>(unit == '\n' ? '\r' : unit), 1);
    }
}

void Hands::Dismiss(const Topmost& topmost, bool insistent) {
    ++begun_;
    if (topmost.kind == WindowKind::Menu) {
        PostKey(topmost.window, VK_ESCAPE);
        return;
    }
    HWND button = topmost.kind == WindowKind::Message ? DismissingButton(topmost.window, insistent)
                                                      : GetDlgItem(topmost.window, IDCANCEL);
    if (button && IsWindowEnabled(button) && IsWindowVisible(button))
        PostClick(button);
    else if (button && !insistent)
        PostMessageW(topmost.window, WM_COMMAND, MAKEWPARAM(IDCANCEL, BN_CLICKED),
                     reinterpret_cast<LPARAM>(button));
    else
        PostMessageW(topmost.window, WM_CLOSE, 0, 0);
}
