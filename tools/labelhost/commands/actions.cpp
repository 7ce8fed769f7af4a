// labelhost actions, labelhost action: lists and runs the actions of a printer.
#include "arguments.h"
#include "commands/commands.h"
#include "fault.h"
#include "files.h"
#include "json.h"
#include "machine/machine.h"
#include "machine/open_settings.h"
#include "text.h"

#include <zplui.h>

#include <cstdio>

namespace {

std::string NameOf(const OpenSettings& settings, int action) {
    const auto name_of = settings.Export<int(WINAPI*)(HANDLE, int, LPWSTR, int)>("DAL_Action_Name");
    WideString name(static_cast<size_t>(name_of(settings.handle(), action, nullptr, 0)) + 1, 0);
    name_of(settings.handle(), action, name.data(), static_cast<int>(name.size()));
    return ToUtf8(name.c_str());
}

// The name of an action in the list: some sheets and dialogs only have a title.
std::string ShownName(int action, const std::string& name) {
    if (!name.empty()) return name;
    switch (action) {
    case 36:
        return "(driver administration)";
    case 38:
        return "(status monitoring)";
    case 41:
        return "(office compatibility)";
    default:
        return "(without a name)";
    }
}

DWORD OfferOf(const OpenSettings& settings, int action) {
    return settings.Export<DWORD(WINAPI*)(HANDLE, int)>("DAL_Action_Supported")(settings.handle(),
                                                                                action);
}

// Why an action was not run.
std::string Reason(const OpenSettings& settings, int action, const std::string& choice) {
    const DWORD offer = OfferOf(settings, action);
    if (!offer) return "this printer does not offer it";
    if (action == DAL_ACTION_SEND_FILE && choice.empty()) return "it needs a file";
    if ((offer & DAL_ACTION_OPENS_DIALOG) && action != DAL_ACTION_SEND_FILE)
        return choice.empty() ? "it opens a dialog"
                              : "it does not take '" + choice + "', or is not for this user";
    return "it is not for this user";
}

int ActionNumber(const std::string& text) {
    size_t end = 0;
    int number = 0;
    try {
        number = std::stoi(text, &end);
    } catch (const std::exception&) {
        end = 0;
    }
    if (end == 0 || end != text.size())
        throw UsageFault("'" + text + "' is no number of an action (labelhost actions lists them)");
    return number;
}

} // namespace

void ActionsCommand(const Words& words) {
    const Arguments arguments(words, {}, {"json"});
    arguments.RequireCount(1, 1, "actions PRINTER [--json]");
    const OpenSettings settings(arguments[0]);
    Json actions = Json::array();
    for (int action = 1; action <= DAL_ACTION_LAST; ++action)
        if (const DWORD offer = OfferOf(settings, action))
            actions.push_back(
                {{"action", action}, {"name", NameOf(settings, action)}, {"flags", offer}});
    if (arguments.Has("json")) {
        PrintJson(actions);
        return;
    }
    for (const Json& action : actions) {
        const auto flags = action["flags"].get<DWORD>();
        const int number = action["action"].get<int>();
        std::printf("%3d  %s%s%s\n", number, ShownName(number, action["name"]).c_str(),
                    flags & DAL_ACTION_OPENS_DIALOG ? "..." : "",
                    flags & DAL_ACTION_ADMINISTRATIVE ? "  (administrators)" : "");
    }
}

void ActionCommand(const Words& words) {
    const Arguments arguments(words, {}, {});
    arguments.RequireCount(2, 3, "action PRINTER NUMBER [CHOICE]");
    const int action = ActionNumber(arguments[1]);
    std::string choice = arguments.size() > 2 ? arguments[2] : "";
    if (action == DAL_ACTION_SEND_FILE && !choice.empty()) {
        ReadBytes("cannot read file", choice, 1); // says more than the module does
        choice = HostPath(choice);
    }
    const OpenSettings settings(arguments[0]);
    const auto run = settings.Export<BOOL(WINAPI*)(HANDLE, int, LPCWSTR)>("DAL_Action_Run");
    if (!run(settings.handle(), action, ToWide(choice).c_str()))
        throw Fault("action " + arguments[1] +
                    " cannot be done: " + Reason(settings, action, choice));
    std::printf("%s: %s\n", arguments[0].c_str(), NameOf(settings, action).c_str());
}
