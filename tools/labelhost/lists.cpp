#include "arguments.h"
#include "commands.h"
#include "installation.h"
#include "json.h"
#include "printer.h"

#include <cstdio>

void ListCommand(const Words& words) {
    const Arguments arguments(words, {}, {"json"});
    arguments.RequireCount(0, 0, "list [--json]");
    Json list = Json::array();
    for (const PrinterFacts& printer : AllPrinters()) {
        list.push_back({{"name", printer.name},
                        {"driver", printer.driver},
                        {"port", printer.port},
                        {"server", printer.server}});
        if (!arguments.Has("json"))
            std::printf("%-24s %-24s %s\n", printer.name.c_str(), printer.driver.c_str(),
                        printer.port.c_str());
    }
    if (arguments.Has("json")) PrintJson(list);
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
