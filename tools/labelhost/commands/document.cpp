#include "arguments.h"
#include "commands/capabilities.h"
#include "commands/commands.h"
#include "commands/dev_mode_fields.h"
#include "commands/preset.h"
#include "fault.h"
#include "json.h"
#include "machine/dev_mode_bytes.h"
#include "machine/printer.h"
#include "text.h"

#include <windows.h>
#include <winspool.h>

#include <cstdio>

namespace {

// What the driver makes of these settings; its defaults if there are none.
DevModeBytes Made(const OpenedPrinter& printer, const std::string& name, DevModeBytes* input) {
    const std::string what = "the driver of '" + name + "'";
    const LONG size = DocumentPropertiesW(nullptr, printer.handle(), nullptr, nullptr, nullptr, 0);
    if (size <= 0) throw SystemFault(what + " makes no document settings", GetLastError());
    std::vector<BYTE> bytes(static_cast<size_t>(size));
    const DWORD mode = input ? DM_IN_BUFFER | DM_OUT_BUFFER : DM_OUT_BUFFER;
    if (DocumentPropertiesW(nullptr, printer.handle(), nullptr,
                            reinterpret_cast<PDEVMODEW>(bytes.data()),
                            input ? input->get() : nullptr, mode) != IDOK)
        throw SystemFault(what + " makes no document settings", GetLastError());
    return DevModeBytes(std::move(bytes), what);
}

// Sets one of the printer's papers, as a program does when its user chooses one.
void SetStock(DevModeBytes& settings, const std::string& printer, const std::string& name) {
    const Json papers = AllCapabilities(printer);
    const Json& names = papers["paper_names"];
    for (size_t i = 0; i < names.size(); ++i) {
        const std::string paper = names[i].get<std::string>();
        if (!SameText(paper, name)) continue;
        const int number = papers["papers"][i].get<int>();
        const Json& size = papers["paper_sizes"][i];
        SetField(settings, "dmPaperSize", std::to_string(number));
        const DWORD fields = settings.get()->dmFields;
        SetField(settings, "dmPaperWidth", size[0].dump());
        SetField(settings, "dmPaperLength", size[1].dump());
        // Only the user's own paper is identified by its size.
        if (number != DMPAPER_USER) settings.get()->dmFields = fields;
        const WideString form = ToWide(paper).substr(0, CCHFORMNAME - 1);
        SetField(settings, "dmFormName", ToUtf8(form.data(), form.size()));
        return;
    }
    throw Fault("printer '" + printer + "' has no stock '" + name +
                "' (labelhost capabilities lists its papers)");
}

void Apply(DevModeBytes& settings, const std::string& printer, const std::string& edit) {
    const size_t equals = edit.find('=');
    if (equals == std::string::npos)
        throw UsageFault("--set takes FIELD=VALUE, not '" + edit + "'");
    const std::string field = edit.substr(0, equals), value = edit.substr(equals + 1);
    if (SameText(field, "stock"))
        SetStock(settings, printer, value);
    else
        SetField(settings, field, value);
}

std::string Shown(const Json& value) {
    return value.dump(-1, ' ', false, Json::error_handler_t::replace);
}

void PrintConfiguration(const Json& fields, const std::string& prefix) {
    for (const auto& [name, value] : fields.items()) {
        if (value.is_structured())
            PrintConfiguration(value, prefix + name + ".");
        else
            std::printf("    %-25s %s\n", (prefix + name).c_str(), Shown(value).c_str());
    }
}

void Print(const Json& answer) {
    std::printf("%s: %zu bytes\n", answer["printer"].get<std::string>().c_str(),
                answer["bytes"].get<size_t>());
    std::puts("  settings (* named in dmFields)");
    const auto named = answer["public"]["dmFields"].get<DWORD>();
    for (const auto& [name, value] : answer["public"].items()) {
        const std::string meaning =
            value.is_number() ? MeaningOf(name, value.get<int64_t>()) : std::string();
        std::printf("  %c %-25s %s%s%s\n", named & BitOf(name) ? '*' : ' ', name.c_str(),
                    Shown(value).c_str(), meaning.empty() ? "" : "  ", meaning.c_str());
    }
    if (answer["configuration"].is_null()) return;
    std::puts("  configuration");
    PrintConfiguration(answer["configuration"], "");
}

} // namespace

void DocumentCommand(const Words& words) {
    const Arguments arguments(words, {"in", "preset", "out", "save-preset", "set"}, {"json"});
    const std::string usage =
        "document PRINTER [--in FILE | --preset NAME] [--set FIELD=VALUE ...] [--out FILE] "
        "[--save-preset NAME] [--json]";
    arguments.RequireCount(1, 1, usage);
    if (arguments.Has("in") && arguments.Has("preset"))
        throw UsageFault("usage: labelhost " + usage);
    const std::string& name = arguments[0];
    const OpenedPrinter printer(name, PRINTER_ACCESS_USE);

    DevModeBytes settings = [&] {
        if (!arguments.Has("in") && !arguments.Has("preset")) return Made(printer, name, nullptr);
        DevModeBytes input = arguments.Has("in") ? DevModeBytes::ReadFrom(arguments.Get("in", ""))
                                                 : PresetOf(name, arguments.Get("preset", ""));
        return Made(printer, name, &input);
    }();
    const std::vector<std::string> edits = arguments.All("set");
    for (const std::string& edit : edits) Apply(settings, name, edit);
    if (!edits.empty()) settings = Made(printer, name, &settings);

    if (arguments.Has("out")) settings.WriteTo(arguments.Get("out", ""));
    if (arguments.Has("save-preset")) SavePreset(name, arguments.Get("save-preset", ""), settings);
    const Json answer = {{"printer", name},
                         {"bytes", settings.bytes().size()},
                         {"public", PublicFields(settings)},
                         {"configuration", ConfigurationFields(settings)}};
    if (arguments.Has("json"))
        PrintJson(answer);
    else
        Print(answer);
}
