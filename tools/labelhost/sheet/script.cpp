#include "sheet/script.h"

#include "fault.h"
#include "sheet/script_words.h"

#include <windows.h>

#include <cstdlib>

namespace {

constexpr const char* kByteOrderMark = "\xEF\xBB\xBF";

ItemName NextItem(ScriptWords& words) {
    ItemName item;
    if (words.IsPosition())
        item.position = words.Position();
    else
        item.text = words.Text("an item");
    return item;
}

void ParseItem(ScriptWords& words, Act& act) {
    act.items.push_back(NextItem(words));
}

// "CTRL+ALT+SHIFT" in any order; the bits of the keys before `end`.
uint32_t HeldIn(const std::string& text, size_t end) {
    uint32_t held = 0;
    for (size_t at = 0; at < end;) {
        const size_t plus = std::min(text.find('+', at), end);
        const std::string name = text.substr(at, plus - at);
        uint32_t bit = 0;
        if (name == "CTRL") bit = HELD_CTRL;
        if (name == "ALT") bit = HELD_ALT;
        if (name == "SHIFT") bit = HELD_SHIFT;
        if (!bit || held & bit) throw UsageFault("'" + text + "' are not keys that can be held");
        held |= bit;
        at = plus + 1;
        if (plus + 1 == end) throw UsageFault("'" + text + "' lacks a key after '+'");
    }
    return held;
}

void ParseClick(ScriptWords& words, Act& act) {
    act.id = words.Id();
    if (words.AtEnd()) return;
    const std::string keys = words.Text("keys");
    act.held = HeldIn(keys, keys.size());
    if (!act.held) throw UsageFault("'' are not keys that can be held");
}

void ParseKey(ScriptWords& words, Act& act) {
    const std::string name = words.Text("the name of a key");
    const size_t plus = name.rfind('+');
    if (plus == 0) throw UsageFault("'" + name + "' is no key");
    if (plus != std::string::npos) act.held = HeldIn(name, plus);
    act.text = plus == std::string::npos ? name : name.substr(plus + 1);
    if (!VirtualKey(act.text)) throw UsageFault("'" + name + "' is no key");
}

void ParseAnswer(ScriptWords& words, Act& act) {
    act.text = words.Text("the name of a button");
    if (!AnswerId(act.text)) throw UsageFault("'" + act.text + "' is no button of a message box");
}

void ParseFont(ScriptWords& words, Act& act) {
    act.text = words.Text("a font's family");
    const std::string points = words.Text("a font's size");
    char* end = nullptr;
    act.points = std::strtod(points.c_str(), &end);
    if (points.empty() || points.find_first_not_of("0123456789.") != std::string::npos || *end ||
        act.points <= 0)
        throw UsageFault("'" + points + "' is not a font's size in points");
    while (!words.AtEnd()) {
        bool& style = words.OneOf("bold", "italic") ? act.bold : act.italic;
        if (style) throw UsageFault("a style is named twice");
        style = true;
    }
}

struct ActForm {
    const char* name;
    ActKind kind;
    void (*parse)(ScriptWords& words, Act& act); // null: no words follow
};

constexpr ActForm kForms[] = {
    {"page", ActKind::Page, ParseItem},
    {"click", ActKind::Click, ParseClick},
    {"check", ActKind::Check,
     [](ScriptWords& words, Act& act) {
         act.id = words.Id();
         act.on = words.OneOf("on", "off");
     }},
    {"type", ActKind::Type,
     [](ScriptWords& words, Act& act) {
         act.id = words.Id();
         act.text = words.Text("a text");
     }},
    {"leave", ActKind::Leave, nullptr},
    {"choose", ActKind::Choose,
     [](ScriptWords& words, Act& act) {
         act.id = words.Id();
         ParseItem(words, act);
     }},
    {"select", ActKind::Select,
     [](ScriptWords& words, Act& act) {
         act.id = words.Id();
         while (!words.AtEnd()) ParseItem(words, act);
     }},
    {"double", ActKind::Double,
     [](ScriptWords& words, Act& act) {
         act.id = words.Id();
         ParseItem(words, act);
     }},
    {"column", ActKind::Column,
     [](ScriptWords& words, Act& act) {
         act.id = words.Id();
         act.items.push_back({"", words.Position()});
     }},
    {"slide", ActKind::Slide,
     [](ScriptWords& words, Act& act) {
         act.id = words.Id();
         act.number = words.Number("a position", INT32_MIN, INT32_MAX);
     }},
    {"spin", ActKind::Spin,
     [](ScriptWords& words, Act& act) {
         act.id = words.Id();
         act.on = words.OneOf("up", "down");
         act.number = words.AtEnd() ? 1 : words.Number("how many times", 1, INT32_MAX);
     }},
    {"menu", ActKind::Menu,
     [](ScriptWords& words, Act& act) {
         act.id = words.Id();
         act.number = words.Number("the identifier of a menu item", 0, INT32_MAX);
     }},
    {"key", ActKind::Key, ParseKey},
    {"answer", ActKind::Answer, ParseAnswer},
    {"file", ActKind::File,
     [](ScriptWords& words, Act& act) {
         while (!words.AtEnd()) act.paths.push_back(words.Text("a path"));
     }},
    {"font", ActKind::Font, ParseFont},
    {"clock", ActKind::Clock,
     [](ScriptWords& words, Act& act) {
         act.number = words.Number("a number of milliseconds", 0, INT32_MAX);
     }},
    {"ok", ActKind::Ok, nullptr},
    {"cancel", ActKind::Cancel, nullptr},
    {"apply", ActKind::Apply, nullptr},
    {"help", ActKind::Help, nullptr},
    {"state", ActKind::State,
     [](ScriptWords& words, Act& act) {
         if (!words.AtEnd()) act.text = words.Text("a name");
     }},
    {"picture", ActKind::Picture,
     [](ScriptWords& words, Act& act) {
         act.text = words.Text("a file");
         if (act.text.empty()) throw UsageFault("a file has a name");
     }},
};

Act ParseAct(ScriptWords words) {
    const std::string name = words.Text("an act");
    for (const ActForm& form : kForms) {
        if (name != form.name) continue;
        Act act;
        act.kind = form.kind;
        if (form.parse) form.parse(words, act);
        words.End();
        return act;
    }
    throw UsageFault("'" + name + "' is no act");
}

struct Named {
    const char* name;
    int number;
};

constexpr Named kKeys[] = {
    {"TAB", VK_TAB},       {"ENTER", VK_RETURN},   {"ESC", VK_ESCAPE},    {"SPACE", VK_SPACE},
    {"UP", VK_UP},         {"DOWN", VK_DOWN},      {"LEFT", VK_LEFT},     {"RIGHT", VK_RIGHT},
    {"HOME", VK_HOME},     {"END", VK_END},        {"PAGEUP", VK_PRIOR},  {"PAGEDOWN", VK_NEXT},
    {"DELETE", VK_DELETE}, {"BACKSPACE", VK_BACK}, {"INSERT", VK_INSERT},
};

constexpr Named kAnswers[] = {
    {"OK", IDOK},       {"Cancel", IDCANCEL}, {"Yes", IDYES},       {"No", IDNO},
    {"Retry", IDRETRY}, {"Abort", IDABORT},   {"Ignore", IDIGNORE},
};

} // namespace

std::vector<Act> ParseScript(const std::string& script) {
    std::vector<Act> acts;
    size_t at = script.starts_with(kByteOrderMark) ? 3 : 0;
    for (int line = 1; at < script.size(); ++line) {
        const size_t end = std::min(script.find('\n', at), script.size());
        std::string text = script.substr(at, end - at);
        at = end + 1;
        if (text.ends_with('\r')) text.pop_back();
        const size_t start = text.find_first_not_of(" \t");
        if (start == std::string::npos || text[start] == '#') continue;
        try {
            acts.push_back(ParseAct(ScriptWords(WordsOfLine(text))));
            acts.back().line = line;
        } catch (const UsageFault& fault) {
            throw UsageFault("line " + std::to_string(line) + ": " + fault.what());
        }
    }
    return acts;
}

int VirtualKey(const std::string& name) {
    for (const Named& key : kKeys)
        if (name == key.name) return key.number;
    if (name.size() == 1 &&
        ((name[0] >= 'A' && name[0] <= 'Z') || (name[0] >= '0' && name[0] <= '9')))
        return name[0];
    for (int i = 1; i <= 12; ++i)
        if (name == "F" + std::to_string(i)) return VK_F1 + i - 1;
    return 0;
}

int AnswerId(const std::string& name) {
    for (const Named& answer : kAnswers)
        if (name == answer.name) return answer.number;
    return 0;
}

const char* AnswerName(int id) {
    for (const Named& answer : kAnswers)
        if (id == answer.number) return answer.name;
    return nullptr;
}
