#include "arguments.h"
#include "commands/commands.h"
#include "commands/progress.h"
#include "fault.h"
#include "json.h"
#include "machine/installation.h"
#include "machine/printer.h"

#include <cstdio>

void ListCommand(const Words& words) {
    const Arguments arguments(words, {}, {"json", "progress"});
    arguments.RequireCount(0, 0, "list [--progress] [--json]");
    const std::vector<std::string> names = PrinterNames();
    Progress progress("listed", names.size(), arguments.Has("progress"));
    Json list = Json::array();
    for (const std::string& name : names) {
        progress.Next();
        PrinterFacts printer;
        try {
            printer = FactsOf(name);
        } catch (const Fault& fault) {
            if (PrinterExists(name)) progress.Failed(fault.what());
            continue; // removed in the meantime
        }
        if (arguments.Has("json"))
            list.push_back({{"name", printer.name},
                            {"driver", printer.driver},
                            {"port", printer.port},
                            {"server", printer.server}});
        else
            std::printf("%-24s %-24s %s\n", printer.name.c_str(), printer.driver.c_str(),
                        printer.port.c_str());
    }
    if (arguments.Has("json")) PrintJson(list);
    progress.Finish();
}

void ModelsCommand(const Words& words) {
    const Arguments arguments(words, {"product"}, {"json"});
    arguments.RequireCount(0, 0, "models [--product DIR] [--json]");
    const Installation product(arguments.Get("product", DefaultProductFolder()));
    Json list = Json::array();
    for (const Model& model : product.models()) {
        list.push_back(
            {{"name", model.name}, {"manufacturer", model.manufacturer}, {"oem", model.oem}});
        if (!arguments.Has("json"))
            std::printf("%-24s %-26s %s\n", model.name.c_str(), model.manufacturer.c_str(),
                        model.oem.c_str());
    }
    if (arguments.Has("json")) PrintJson(list);
}
