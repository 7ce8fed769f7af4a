#include "sheet/people.h"

#include <cstdio>
#include <string>

namespace {

std::string OneLine(const std::string& text) {
    std::string line;
    for (const char c : text) {
        if (c == '\r') continue;
        if (c == '\n')
            line += " / ";
        else
            line += c;
    }
    return line;
}

std::string ValueText(const Json& value) {
    if (value.is_string()) return OneLine(value.get<std::string>());
    return value.dump(-1, ' ', false, Json::error_handler_t::replace);
}

std::string Quoted(const Json& text) {
    return "'" + OneLine(text.get<std::string>()) + "'";
}

std::string ItemsText(const Json& control) {
    std::string line;
    const Json& items = control["items"];
    for (size_t i = 0; i < items.size(); ++i) {
        bool selected = false;
        for (const Json& number : control["selection"]) selected = selected || number == i;
        std::string item;
        if (items[i].is_array()) {
            for (const Json& column : items[i])
                item += (item.empty() ? "" : " | ") + ValueText(column);
        } else {
            item = ValueText(items[i]);
        }
        line += (i ? ", " : "") + std::string(selected ? "[" : "") + item + (selected ? "]" : "");
    }
    return line;
}

void PrintControl(const Json& control) {
    if (!control["visible"].get<bool>()) return;
    const int id = control["id"].get<int>();
    std::string line = (id < 0 ? std::string("-") : std::to_string(id)) + "\t" +
                       control["class"].get<std::string>() + "\t" + Quoted(control["text"]);
    if (control.contains("checked")) {
        constexpr const char* kChecked[] = {"off", "on", "mixed"};
        line += std::string(" ") + kChecked[control["checked"].get<size_t>() % 3];
    }
    if (control.contains("position"))
        line += " at " + ValueText(control["position"]) + " of " + ValueText(control["range"][0]) +
                " to " + ValueText(control["range"][1]);
    if (control.contains("items")) line += ": " + ItemsText(control);
    if (control.contains("bitmap") && !control["bitmap"].is_null())
        line += " bitmap " + ValueText(control["bitmap"]);
    if (!control["enabled"].get<bool>()) line += " (disabled)";
    if (control.contains("readonly") && control["readonly"].get<bool>()) line += " (read-only)";
    std::printf("  %s\n", line.c_str());
}

void PrintMenu(const Json& items, int depth) {
    for (const Json& item : items) {
        std::string line(static_cast<size_t>(2 * depth), ' ');
        if (item["id"].get<int>() > 0) line += ValueText(item["id"]) + " ";
        line += Quoted(item["text"]);
        if (item["checked"].get<bool>()) line += " (checked)";
        if (!item["enabled"].get<bool>()) line += " (disabled)";
        std::printf("%s\n", line.c_str());
        PrintMenu(item["items"], depth + 1);
    }
}

void PrintState(const Json& state) {
    std::string heading = ValueText(state["window"]);
    if (state.contains("title")) heading += " " + Quoted(state["title"]);
    if (const std::string name = ValueText(state["name"]); !name.empty())
        heading = name + ": " + heading;
    if (state.contains("page") && !state["page"].is_null())
        heading += " of " + Quoted(state["sheet"]) +
                   (state["apply"].get<bool>() ? ", can be applied" : "");
    std::printf("%s\n", heading.c_str());
    if (state["window"] == "menu") return PrintMenu(state["items"], 1);
    if (state.contains("controls")) {
        for (const Json& control : state["controls"]) PrintControl(control);
        return;
    }
    for (const auto& [name, value] : state.items())
        if (name != "name" && name != "window" && name != "title")
            std::printf("  %s: %s\n", name.c_str(), ValueText(value).c_str());
}

} // namespace

void PrintForPeople(const Json& told) {
    for (const Json& state : told["states"]) PrintState(state);
    for (const Json& act : told["acts"]) {
        std::string line = ValueText(act["kind"]) + " " + ValueText(act["what"]);
        if (const std::string with = ValueText(act["parameters"]); !with.empty())
            line += " " + with;
        std::printf("asked to %s\n", line.c_str());
    }
    if (told.contains("version_report")) {
        std::printf("%s: version report of '%s'\n", ValueText(told["version_report"]).c_str(),
                    ValueText(told["printer"]).c_str());
        return;
    }
    std::printf("%s of '%s': %s%s\n", ValueText(told["kind"]).c_str(),
                ValueText(told["printer"]).c_str(), ValueText(told["result"]).c_str(),
                told.contains("applied") ? ", but applied before" : "");
}
