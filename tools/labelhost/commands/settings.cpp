// labelhost settings: has the driver write and read settings files.
#include "arguments.h"
#include "commands/commands.h"
#include "commands/done_list.h"
#include "commands/progress.h"
#include "commands/settings_export.h"
#include "commands/settings_text.h"
#include "fault.h"
#include "files.h"
#include "json.h"

#include <zplui.h>

#include <cstdio>
#include <filesystem>
#include <map>
#include <memory>

namespace {

// The printer's current settings.
SettingsText Now(const OpenSettings& settings, int contents) {
    return SettingsText(ExportedSettings(settings, contents & ~DAL_SETTINGS_OPTIONS));
}

std::string Counted(const SettingsText& text, int contents) {
    std::string list;
    for (const SettingsKind& kind : kSettingsKinds) {
        if (!(kind.content & contents)) continue;
        const int count = text.Count(kind);
        list += (list.empty() ? "" : ", ") + std::to_string(count) + ' ' +
                (count == 1 ? kind.one : kind.many);
    }
    return list;
}

Json CountedJson(const SettingsText& text, int contents) {
    Json counts = Json::object();
    for (const SettingsKind& kind : kSettingsKinds)
        if (kind.content & contents) counts[kind.name] = text.Count(kind);
    return counts;
}

void ExportTo(const Arguments& arguments, int contents) {
    const std::string& printer = arguments[1];
    const std::string& file = arguments[2];
    // Written aside, so that an old file stays until the new one is complete.
    const FileAside aside(file);
    CallWithFile(OpenSettings(printer), "DAL_Settings_Export", aside.name(), contents);
    std::error_code error;
    if (!std::filesystem::exists(PathOf(aside.name()), error))
        throw Fault("cannot write settings file '" + file + "'");
    const SettingsText text(ReadBytes("cannot read settings file", aside.name()));
    aside.Replace("cannot write settings file", file);
    if (arguments.Has("json"))
        PrintJson({{"printer", printer}, {"file", file}, {"written", CountedJson(text, contents)}});
    else
        std::printf("%s: %s\n", file.c_str(), Counted(text, contents).c_str());
}

// A settings file that has something of what is wanted; `text` counts its contents.
struct WantedSettings {
    const std::string& file;
    const SettingsText& text;
    int contents;
};

// Has the driver read the file, and reports what the printer had before and has now.
Json Import(const std::string& printer, const WantedSettings& wanted, bool json) {
    const auto& [file, text, contents] = wanted;
    const std::string model = FactsOf(printer).driver;
    const bool options = (contents & DAL_SETTINGS_OPTIONS) && text.HasOptionsOf(model);

    const int lists = contents & ~DAL_SETTINGS_OPTIONS;
    const OpenSettings settings(printer);
    const SettingsText before = Now(settings, lists);
    ImportSettings(settings, file, contents);
    const SettingsText after = Now(settings, lists);
    if (json)
        return {{"printer", printer},
                {"file", file},
                {"before", CountedJson(before, lists)},
                {"after", CountedJson(after, lists)},
                {"options", options}};
    std::printf("%s had: %s\n%s has: %s\n", printer.c_str(), Counted(before, lists).c_str(),
                printer.c_str(), Counted(after, lists).c_str());
    if (options)
        std::printf("options taken\n");
    else if ((contents & DAL_SETTINGS_OPTIONS) && text.HasOptions())
        std::printf("options left out: they are not those of a '%s'\n", model.c_str());
    return {};
}

// Keeps the drivers of all printers so far loaded, with what they know about the models.
class LoadedDrivers {
public:
    void Keep(const std::string& printer) {
        std::unique_ptr<DriverModule>& module = modules_[FactsOf(printer).driver];
        if (!module) module = std::make_unique<DriverModule>(printer);
    }

private:
    std::map<std::string, std::unique_ptr<DriverModule>> modules_;
};

void ImportIntoMany(const Arguments& arguments, const std::vector<std::string>& printers,
                    const WantedSettings& wanted) {
    DoneList done(arguments.Get("done", ""));
    Json answers = Json::array();
    LoadedDrivers drivers;
    Progress progress("imported into", printers.size(), arguments.Has("progress"));
    for (const std::string& printer : printers) {
        progress.Next();
        if (done.Has(printer)) continue;
        try {
            drivers.Keep(printer);
            answers.push_back(Import(printer, wanted, arguments.Has("json")));
        } catch (const Fault& fault) {
            progress.Failed(fault.what());
            continue;
        }
        done.Add(printer);
    }
    if (arguments.Has("json")) PrintJson(answers);
    progress.Finish();
}

void ImportFrom(const Arguments& arguments, int contents) {
    const std::string& file = arguments[2];
    const SettingsText text(ReadBytes("cannot read settings file", file));
    if (text.Contents() == 0)
        throw Fault("'" + file + "' is no settings file" +
                    (text.HasMark() ? ": it begins with a byte order mark, which the driver "
                                      "does not take"
                                    : ""));
    if (!(text.Contents() & contents))
        throw Fault("'" + file + "' has nothing of what --only names");
    const WantedSettings wanted = {file, text, contents};

    const std::vector<std::string> printers = PrintersNamed(arguments[1]);
    if (printers != std::vector{arguments[1]} || arguments.Has("done"))
        return ImportIntoMany(arguments, printers, wanted);
    const Json answer = Import(printers[0], wanted, arguments.Has("json"));
    if (arguments.Has("json")) PrintJson(answer);
}

} // namespace

void SettingsCommand(const Words& words) {
    const Arguments arguments(words, {"only", "done"}, {"json", "progress"});
    arguments.RequireCount(
        3, 3, "settings export|import PRINTER FILE [--only LIST] [--done FILE] [--progress]");
    const int contents = ContentsOf(arguments.Get("only", ""));
    if (arguments[0] == "export")
        ExportTo(arguments, contents);
    else if (arguments[0] == "import")
        ImportFrom(arguments, contents);
    else
        throw UsageFault("settings are exported or imported, not '" + arguments[0] + "'");
}
