// Choosing from menus, with the arrow keys as a person does.
#include "sheet/acts.h"

#include "fault.h"
#include "sheet/input.h"
#include "sheet/windows_read.h"

#include <memory>
#include <vector>

namespace {

// An item on the way to the wanted one, and the menu that it is in.
struct WayMark {
    HMENU menu;
    int position;
};

// The way to a command from the first menu on. False if there is none.
bool FindWay(HMENU menu, int command, std::vector<WayMark>& way) {
    for (int i = 0; i < GetMenuItemCount(menu); ++i) {
        const HMENU below = GetSubMenu(menu, i);
        way.push_back({menu, i});
        if (below ? FindWay(below, command, way)
                  : static_cast<int>(GetMenuItemID(menu, i)) == command)
            return true;
        way.pop_back();
    }
    return false;
}

bool IsUsable(const WayMark& mark) {
    const UINT state = GetMenuState(mark.menu, static_cast<UINT>(mark.position), MF_BYPOSITION);
    return !(state & (MF_GRAYED | MF_DISABLED));
}

// Presses a key each turn until the item is chosen.
class MenuWalk {
public:
    explicit MenuWalk(int command)
        : command_(command) {}

    bool Step() {
        const Topmost topmost = FindTopmost();
        if (topmost.kind != WindowKind::Menu) {
            if (way_.empty()) throw Fault("no menu has opened");
            throw Fault("the menu has closed");
        }
        if (way_.empty()) FindItem(topmost.menu);
        // The last menu that is open has the keyboard.
        size_t depth = 0;
        while (depth + 1 < way_.size() && MenuWindow(way_[depth + 1].menu)) ++depth;
        const bool there = IsHighlighted(way_[depth]);
        const bool last = depth + 1 == way_.size();
        if (turns_-- == 0) throw Fault("the menu does not go to item " + std::to_string(command_));
        PostKey(topmost.window, !there ? VK_DOWN : last ? VK_RETURN : VK_RIGHT);
        return there && last;
    }

private:
    void FindItem(HMENU menu) {
        const std::string item = "item " + std::to_string(command_);
        if (!FindWay(menu, command_, way_)) throw Fault("there is no " + item + " in the menu");
        for (const WayMark& mark : way_) {
            if (!IsUsable(mark)) throw Fault(item + " of the menu is disabled");
            // Once around each menu, and into the next one.
            turns_ += 2 * GetMenuItemCount(mark.menu) + 2;
        }
    }

    static bool IsHighlighted(const WayMark& mark) {
        return (GetMenuState(mark.menu, static_cast<UINT>(mark.position), MF_BYPOSITION) &
                MF_HILITE) != 0;
    }

    const int command_;
    std::vector<WayMark> way_;
    int turns_ = 0;
};

} // namespace

Rest ChooseFromMenu(const Topmost& topmost, const Act& act) {
    const auto walk = std::make_shared<MenuWalk>(act.number);
    if (act.id == 0) {
        if (topmost.kind != WindowKind::Menu) throw Fault("no menu is open");
        return walk->Step() ? Rest() : [walk] { return walk->Step(); };
    }
    PostClick(UsableControl(topmost, act.id));
    return [walk] { return walk->Step(); };
}
