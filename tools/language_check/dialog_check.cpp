#include "dialog_check.h"

#include <windows.h>

#include <algorithm>
#include <cstdlib>
#include <map>
#include <set>

#include "ruler.h"
#include "texts.h"

namespace {

using win32host::DialogItem;
using win32host::DialogTemplate;

// Styles by their values: the check needs no other declaration of the controls.
constexpr uint32_t kInside = 0x0400; // DS_CONTROL
constexpr uint32_t kChild = 0x40000000, kTabStop = 0x00010000, kGroup = 0x00020000;
constexpr uint32_t kButtonType = 0xF, kPushButton = 0, kDefaultButton = 1, kGroupBox = 7,
                   kRadioButton = 4, kAutoRadioButton = 9, kOwnerDrawn = 11, kMultiLine = 0x2000;
constexpr uint32_t kStaticType = 0x1F, kLastTextType = 2, kLeftNoWrap = 12, kNoPrefix = 0x80;
constexpr uint32_t kComboType = 3, kSimpleCombo = 1;

// The numbers of standard classes.
constexpr uint16_t kButton = 0x80, kEdit = 0x81, kStatic = 0x82, kListBox = 0x83, kComboBox = 0x85;

// Room that controls keep beside their texts, in pixels.
constexpr int kPushButtonEdges = 8, kCheckMark = 17, kGroupBoxEdges = 18, kComboEdges = 6,
              kComboButton = 17, kClosedComboEdges = 8, kTitleEdges = 40;

enum class Kind {
    BUTTON,
    CHECK,
    RADIO,
    GROUP_BOX,
    TEXT,
    PICTURE,
    EDIT,
    LIST,
    COMBO,
    UP_DOWN,
    TAB,
    OTHER
};

Kind KindOfButton(uint32_t style) {
    switch (style & kButtonType) {
    case kPushButton:
    case kDefaultButton:
    case kOwnerDrawn:
        return Kind::BUTTON;
    case kGroupBox:
        return Kind::GROUP_BOX;
    case kRadioButton:
    case kAutoRadioButton:
        return Kind::RADIO;
    default:
        return Kind::CHECK;
    }
}

Kind KindOf(const DialogItem& item) {
    static const std::map<std::u16string, uint16_t> numbers = {{u"BUTTON", kButton},
                                                               {u"EDIT", kEdit},
                                                               {u"STATIC", kStatic},
                                                               {u"LISTBOX", kListBox},
                                                               {u"COMBOBOX", kComboBox}};
    std::u16string name = item.window_class.text;
    for (char16_t& unit : name)
        if (unit >= u'a' && unit <= u'z') unit = static_cast<char16_t>(unit - 0x20);
    const auto known = numbers.find(name);
    switch (known == numbers.end() ? item.window_class.number : known->second) {
    case kButton:
        return KindOfButton(item.style);
    case kEdit:
        return Kind::EDIT;
    case kStatic: {
        const uint32_t type = item.style & kStaticType;
        return type <= kLastTextType || type == kLeftNoWrap ? Kind::TEXT : Kind::PICTURE;
    }
    case kListBox:
        return Kind::LIST;
    case kComboBox:
        return Kind::COMBO;
    default:
        if (name == u"SYSTABCONTROL32") return Kind::TAB;
        return name == u"MSCTLS_UPDOWN32" ? Kind::UP_DOWN : Kind::OTHER;
    }
}

bool Overlap(const RECT& a, const RECT& b) {
    return a.left < b.right && b.left < a.right && a.top < b.bottom && b.top < a.bottom;
}

bool Contains(const RECT& outer, const RECT& inner) {
    return outer.left <= inner.left && inner.right <= outer.right && outer.top <= inner.top &&
           inner.bottom <= outer.bottom;
}

class DialogCheck {
public:
    DialogCheck(const Library& library, const std::u16string& name, const DialogHints& hints,
                Faults& faults)
        : library_(library)
        , dialog_(library.dialogs.at(name))
        , hints_(hints)
        , name_(name)
        , where_(library.file + ": " + Utf8(name))
        , faults_(faults)
        , ruler_(dialog_) {
        for (const DialogItem& item : dialog_.items) {
            places_.push_back(ruler_.Pixels(item.x, item.y, item.width, item.height));
            const bool drops =
                KindOf(item) == Kind::COMBO && (item.style & kComboType) != kSimpleCombo;
            if (drops) places_.back().bottom = places_.back().top + ClosedComboHeight();
        }
    }

    void Run() {
        CheckTitle();
        CheckPlaces();
        CheckIdentifiers();
        for (const DialogItem& item : dialog_.items)
            for (const std::u16string& text : TextsOf(item)) CheckRoom(item, Shown(text));
        CheckAccessKeys();
        CheckOrder();
        CheckRadioGroups();
    }

private:
    int ClosedComboHeight() const { return ruler_.LineHeight() + kClosedComboEdges; }

    const RECT& PlaceOf(const DialogItem& item) const {
        return places_[static_cast<size_t>(&item - dialog_.items.data())];
    }

    std::string Called(const DialogItem& item) const {
        std::string name = std::to_string(static_cast<int16_t>(item.id));
        if (!item.title.text.empty()) name += " \"" + Utf8(item.title.text) + "\"";
        return name;
    }

    void Fault(const std::string& what) { faults_.Add(where_, what); }
    void Fault(const DialogItem& item, const std::string& what) {
        faults_.Add(where_ + ": " + Called(item), what);
    }

    // Its own text and those that the page shows in it.
    std::vector<std::u16string> TextsOf(const DialogItem& item) {
        std::vector<std::u16string> texts;
        if (!item.title.text.empty()) texts.push_back(item.title.text);
        const auto shown = hints_.texts.find(item.id);
        if (shown == hints_.texts.end()) return texts;
        for (uint32_t number : shown->second) {
            const auto text = library_.texts.find(number);
            if (text == library_.texts.end())
                Fault(item, "text " + std::to_string(number) + " is missing");
            else
                texts.push_back(text->second);
        }
        return texts;
    }

    void CheckTitle() {
        const int room = static_cast<int>(ruler_.Pixels(0, 0, dialog_.width, 0).right);
        if (dialog_.title.empty())
            Fault("has no title");
        else if (ruler_.Width(dialog_.title) + kTitleEdges > room)
            Fault("its title is cut");
    }

    void CheckPlaces() {
        const RECT client = ruler_.Pixels(0, 0, dialog_.width, dialog_.height);
        for (size_t i = 0; i < places_.size(); ++i) {
            const DialogItem& item = dialog_.items[i];
            if (!Contains(client, places_[i])) Fault(item, "reaches out of the dialog");
            for (size_t j = 0; j < i; ++j)
                if (Collide(j, i)) Fault(item, "overlaps " + Called(dialog_.items[j]));
        }
    }

    // Whether others may lie in a control.
    static bool IsFrame(const DialogItem& item) {
        return KindOf(item) == Kind::GROUP_BOX || KindOf(item) == Kind::TAB;
    }

    bool Collide(size_t first, size_t second) const {
        if (!Overlap(places_[first], places_[second])) return false;
        const DialogItem &one = dialog_.items[first], &other = dialog_.items[second];
        if (hints_.turns.contains({one.id, other.id})) return false;
        if (KindOf(other) == Kind::UP_DOWN && second == first + 1) return false;
        return !(IsFrame(one) && Contains(places_[first], places_[second])) &&
               !(IsFrame(other) && Contains(places_[second], places_[first]));
    }

    void CheckIdentifiers() {
        std::set<uint32_t> seen;
        for (const DialogItem& item : dialog_.items)
            if (static_cast<int16_t>(item.id) != -1 && !seen.insert(item.id).second)
                Fault(item, "another control has this identifier");
    }

    void CheckRoom(const DialogItem& item, const std::u16string& text) {
        const RECT& place = PlaceOf(item);
        const int width = static_cast<int>(place.right - place.left),
                  height = static_cast<int>(place.bottom - place.top);
        int edges = 0;
        bool wraps = false;
        switch (KindOf(item)) {
        case Kind::BUTTON:
            edges = kPushButtonEdges;
            break;
        case Kind::CHECK:
        case Kind::RADIO:
            edges = kCheckMark;
            wraps = (item.style & kMultiLine) != 0;
            break;
        case Kind::GROUP_BOX:
            edges = kGroupBoxEdges;
            break;
        case Kind::COMBO:
            edges = kComboEdges + kComboButton;
            break;
        case Kind::TEXT:
            wraps = (item.style & kStaticType) <= kLastTextType;
            break;
        default:
            return;
        }
        bool is_cut = false;
        int lines = 1;
        if (wraps)
            lines = ruler_.Lines(text, width - edges, is_cut);
        else
            is_cut = ruler_.Width(text) > width - edges;
        if (is_cut)
            Fault(item, "\"" + Utf8(text) +
                            "\" is cut: " + std::to_string(ruler_.Width(text) + edges) +
                            " pixels, room for " + std::to_string(width));
        if (lines * ruler_.LineHeight() > height)
            Fault(item, "\"" + Utf8(text) + "\" takes " + std::to_string(lines) + " lines of " +
                            std::to_string(ruler_.LineHeight()) + " pixels, there are " +
                            std::to_string(height));
    }

    bool IsPage() const { return (dialog_.style & kChild) && !(dialog_.style & kInside); }

    static bool HasAccessKey(const DialogItem& item) {
        switch (KindOf(item)) {
        case Kind::BUTTON:
        case Kind::CHECK:
        case Kind::RADIO:
        case Kind::GROUP_BOX:
            return true;
        case Kind::TEXT:
            return !(item.style & kNoPrefix);
        default:
            return false;
        }
    }

    void CheckAccessKeys() {
        std::map<char16_t, const DialogItem*> owners = KeysAround();
        for (const DialogItem& item : dialog_.items) {
            if (!HasAccessKey(item)) continue;
            std::set<char16_t> keys;
            for (const std::u16string& text : TextsOf(item)) keys.insert(AccessKey(text));
            keys.erase(0);
            for (char16_t key : keys) {
                const auto [owner, is_new] = owners.emplace(key, &item);
                if (!is_new)
                    Fault(item, "the access key of " + Called(*owner->second) + " is used again");
                if (IsPage() && key == KeyOfApply())
                    Fault(item, "the access key is that of the sheet's Apply button");
            }
            const bool is_label = KindOf(item) == Kind::TEXT || KindOf(item) == Kind::GROUP_BOX;
            if (!keys.empty() && is_label && !LeadsSomewhere(item))
                Fault(item, "the access key leads to no control");
        }
    }

    // The access keys of the dialog that this one lies in. Its name is the beginning of this one's.
    std::map<char16_t, const DialogItem*> KeysAround() const {
        std::map<char16_t, const DialogItem*> owners;
        if (!(dialog_.style & kInside)) return owners;
        const auto outer = library_.dialogs.find(name_.substr(0, name_.find_last_of(u'/')));
        if (outer == library_.dialogs.end()) return owners;
        for (const DialogItem& item : outer->second.items)
            if (HasAccessKey(item)) owners.emplace(AccessKey(item.title.text), &item);
        owners.erase(0);
        return owners;
    }

    char16_t KeyOfApply() const { return library_.file.ends_with("deu.dll") ? u'B' : u'A'; }

    // Whether the control after a label takes the focus.
    bool LeadsSomewhere(const DialogItem& label) const {
        const DialogItem* next = &label + 1;
        return next != dialog_.items.data() + dialog_.items.size() && (next->style & kTabStop);
    }

    void CheckOrder() {
        std::vector<const DialogItem*> stops;
        for (const DialogItem& item : dialog_.items)
            if (item.style & kTabStop || KindOf(item) == Kind::RADIO) stops.push_back(&item);
        for (size_t later = 1; later < stops.size(); ++later)
            for (size_t earlier = 0; earlier < later; ++earlier)
                if (ComesFirst(PlaceOf(*stops[later]), PlaceOf(*stops[earlier])))
                    Fault(*stops[later], "is reached after " + Called(*stops[earlier]) +
                                             ", which lies below or right of it");
    }

    // Whether a reader who goes from top left to bottom right meets `place` before `other`. Beside
    // each other, a column may be read to its end before the next.
    static bool ComesFirst(const RECT& place, const RECT& other) {
        const bool is_above = place.bottom <= other.top, is_left = place.right <= other.left;
        const bool is_right = place.left >= other.right, is_below = place.top >= other.bottom;
        return (is_above && !is_right) || (is_left && !is_below);
    }

    void CheckRadioGroups() {
        const DialogItem* last_radio = nullptr; // of the open group
        for (const DialogItem& item : dialog_.items) {
            if (item.style & kGroup) last_radio = nullptr;
            if (KindOf(item) == Kind::RADIO) {
                if (!last_radio && !(item.style & kGroup))
                    Fault(item, "no group of radio buttons starts here");
                last_radio = &item;
            } else if (last_radio && (item.style & kTabStop)) {
                Fault(item, "is in the group of " + Called(*last_radio));
            }
        }
    }

    const Library& library_;
    const DialogTemplate& dialog_;
    const DialogHints& hints_;
    const std::u16string name_;
    const std::string where_;
    Faults& faults_;
    const Ruler ruler_;
    std::vector<RECT> places_;
};

} // namespace

void CheckDialog(const Library& library, const std::u16string& name, const DialogHints& hints,
                 Faults& faults) {
    DialogCheck(library, name, hints, faults).Run();
}
