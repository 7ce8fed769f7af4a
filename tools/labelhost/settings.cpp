// labelhost settings: settings files, written and read by the driver.
#include "arguments.h"
#include "commands.h"
#include "fault.h"
#include "json.h"
#include "open_settings.h"
#include "settings_text.h"

#include <unistd.h>

#include <zplui.h>

#include <cstdio>
#include <filesystem>
#include <memory>

namespace {

namespace fs = std::filesystem;

void Call(const OpenSettings& settings, const char* name, const std::string& file, int contents) {
    const auto function = settings.Export<void(WINAPI*)(HANDLE, LPCWSTR, int)>(name);
    function(settings.handle(), ToWide(fs::absolute(file).string()).c_str(), contents);
}

std::string ReadFile(const std::string& path) {
    const auto fail = [&] { throw FileFault("cannot read settings file", path); };
    const std::unique_ptr<std::FILE, int (*)(std::FILE*)> file(std::fopen(path.c_str(), "rb"),
                                                               std::fclose);
    if (!file) fail();
    std::string text;
    char piece[65536];
    for (size_t size; (size = std::fread(piece, 1, sizeof piece, file.get())) > 0;)
        text.append(piece, size);
    if (std::ferror(file.get())) fail(); // a folder, for one
    return text;
}

// A file for a moment.
class TemporaryFile {
public:
    explicit TemporaryFile(std::string path)
        : path_(std::move(path) + ".new" + std::to_string(getpid())) {}
    ~TemporaryFile() { std::remove(path_.c_str()); }
    TemporaryFile(const TemporaryFile&) = delete;
    TemporaryFile& operator=(const TemporaryFile&) = delete;

    const std::string& path() const { return path_; }

private:
    const std::string path_;
};

// What the printer has now.
SettingsText Now(const OpenSettings& settings, int contents) {
    const TemporaryFile file((fs::temp_directory_path() / "labelhost.kds").string());
    Call(settings, "DAL_Settings_Export", file.path(), contents & ~DAL_SETTINGS_OPTIONS);
    return SettingsText(ReadFile(file.path()));
}

std::string Counted(const SettingsText& text, int contents) {
    std::string list;
    for (const SettingsKind& kind : kSettingsKinds)
        if (kind.content & contents)
            list +=
                (list.empty() ? "" : ", ") + std::to_string(text.Count(kind)) + ' ' + kind.words;
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
    // Written aside: a file that is there stays until there is another.
    const TemporaryFile aside(file);
    Call(OpenSettings(printer), "DAL_Settings_Export", aside.path(), contents);
    std::error_code error;
    if (!fs::exists(aside.path(), error)) throw Fault("cannot write settings file '" + file + "'");
    const SettingsText text(ReadFile(aside.path()));
    if (std::rename(aside.path().c_str(), file.c_str()) != 0)
        throw FileFault("cannot write settings file", file);
    if (arguments.Has("json"))
        PrintJson({{"printer", printer}, {"file", file}, {"written", CountedJson(text, contents)}});
    else
        std::printf("%s: %s\n", file.c_str(), Counted(text, contents).c_str());
}

void ImportFrom(const Arguments& arguments, int contents) {
    const std::string& printer = arguments[1];
    const std::string& file = arguments[2];
    const SettingsText text(ReadFile(file));
    if (text.Contents() == 0) throw Fault("'" + file + "' is no settings file");
    if (!(text.Contents() & contents))
        throw Fault("'" + file + "' has nothing of what --only names");
    const std::string model = FactsOf(printer).driver;
    const bool options = (contents & DAL_SETTINGS_OPTIONS) && text.HasOptionsOf(model);

    const int lists = contents & ~DAL_SETTINGS_OPTIONS;
    const OpenSettings settings(printer);
    const SettingsText before = Now(settings, lists);
    Call(settings, "DAL_Settings_Import", file, contents);
    const SettingsText after = Now(settings, lists);
    if (arguments.Has("json")) {
        PrintJson({{"printer", printer},
                   {"file", file},
                   {"before", CountedJson(before, lists)},
                   {"after", CountedJson(after, lists)},
                   {"options", options}});
        return;
    }
    std::printf("%s had: %s\n%s has: %s\n", printer.c_str(), Counted(before, lists).c_str(),
                printer.c_str(), Counted(after, lists).c_str());
    if (options)
        std::printf("options taken\n");
    else if ((contents & DAL_SETTINGS_OPTIONS) && text.HasOptions())
        std::printf("options left out: they are not those of a '%s'\n", model.c_str());
}

} // namespace

void SettingsCommand(const Words& words) {
    const Arguments arguments(words, {"only"}, {"json"});
    arguments.RequireCount(3, 3, "settings export|import PRINTER FILE [--only LIST]");
    const int contents = ContentsOf(arguments.Get("only", ""));
    if (arguments[0] == "export")
        ExportTo(arguments, contents);
    else if (arguments[0] == "import")
        ImportFrom(arguments, contents);
    else
        throw UsageFault("settings are exported or imported, not '" + arguments[0] + "'");
}
