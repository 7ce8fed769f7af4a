// labelhost: installs label printers on its own host and shows what the driver's configuration
// module answers about them, asking as the spooler and applications do.

#include "labelhost.h"

#include "fault.h"
#include "machine/machine.h"

#include <cstdio>
#include <exception>

namespace {

struct Command {
    const char* name;
    void (*run)(const Words& words);
    const char* usage;
};

constexpr Command kCommands[] = {
    {"install", InstallCommand,
     "install PRINTER --model NAME [--oem CODE] [--port PORT] [--product DIR]\n"
     "                    add a printer with its driver\n"
     "  install --list FILE [--oem CODE] [--port PORT] [--product DIR] [--progress]\n"
     "                    add the printers of a list: lines of name, model and port with tabs"},
    {"remove", RemoveCommand, "remove PRINTER        delete a printer"},
    {"connect", ConnectCommand,
     "connect \\\\SERVER\\PRINTER [--server DIR]\n"
     "                    use a printer of another machine, whose root folder is DIR"},
    {"disconnect", DisconnectCommand,
     "disconnect \\\\SERVER\\PRINTER\n                    use it no longer"},
    {"list", ListCommand, "list [--progress]     the installed printers"},
    {"models", ModelsCommand,
     "models [--product DIR]\n                    the printers that can be installed"},
    {"capabilities", CapabilitiesCommand,
     "capabilities PRINTER  every device capability that the driver answers"},
    {"dither", DitherCommand,
     "dither IN OUT [--algorithm N] [--color-mode N] [--brightness N] ...\n"
     "                    bring a PNG picture to a label printer's few colours"},
    {"document", DocumentCommand,
     "document PRINTER [--in FILE | --preset NAME] [--set FIELD=VALUE ...]\n"
     "         [--out FILE] [--save-preset NAME]\n"
     "                    the document settings that the driver makes; FILE holds a DEVMODE"},
    {"convert", ConvertCommand,
     "convert PRINTER IN OUT --mode MODE [--out-size BYTES]\n"
     "                    have the driver convert a DEVMODE: convert, convert351 or default"},
    {"upgrade", UpgradeCommand,
     "upgrade PRINTER       have the driver bring a printer of an older version up to date"},
    {"jobs", JobsCommand,
     "jobs PRINTER [--show ID] [--restart ID] [--delete ID]\n"
     "                    what waits in the spooler; show a job's bytes, send it again or delete "
     "it"},
    {"settings", SettingsCommand,
     "settings export|import PRINTER FILE [--only LIST]\n"
     "                    settings files; LIST of stocks,presets,barcode-fonts,rfid-fonts,options\n"
     "  settings import 'PATTERN' FILE [--only LIST] [--done FILE] [--progress]\n"
     "                    into all printers whose names match: * and ? stand for characters"},
    {"actions", ActionsCommand, "actions PRINTER       what the printer can be told to do"},
    {"action", ActionCommand,
     "action PRINTER NUMBER [CHOICE]\n"
     "                    tell it to do one of them; 22 sends a file, 32 is for its memories, 46\n"
     "                    for its battery"},
    {"fonts", FontsCommand,
     "fonts list|verify|resend PRINTER\n"
     "                    the fonts in the printer's memory; ask it for them; send them again\n"
     "  fonts add PRINTER FAMILY [--bitmap POINTS [--characters SET]] [--weight N] [--italic]\n"
     "            [--memory LETTER] [--file NAME]\n"
     "                    send a font of the system, as its file or as pictures\n"
     "  fonts delete PRINTER FILE\n"
     "                    have the printer delete one"},
    {"event", EventCommand,
     "event PRINTER N       tell the driver what happens to a document: 1 device context, 5 "
     "start,\n"
     "                    12 end, or any other number"},
    {"query", QueryCommand,
     "query PRINTER [--mask N]\n                    ask the printer about itself"},
    {"sheet", SheetCommand,
     "sheet PRINTER [--document | --defaults | --device] [--in FILE] [--out FILE]\n"
     "      [--run SCRIPT] [--pictures DIR] [--dpi N] [--version-report FILE]\n"
     "                    open the property sheets, use them as a script says, and tell what they "
     "show;\n"
     "                    or save the driver's report about itself, as .html, .rtf or .txt"},
    {"registry", RegistryCommand,
     "registry dump KEY | set KEY NAME TYPE HEX | delete KEY [NAME]\n"
     "                    look at or change the host's registry"},
    {"printer-emulator", PrinterEmulatorCommand,
     "printer-emulator --port N [--answers DIR]\n"
     "                    a ZPL printer on the network that answers the host's queries"},
    {"demo", DemoCommand,
     "demo [DIR] [--product DIR]\n"
     "                    the whole story, step by step, on machines of its own in a new folder"},
};

void PrintUsage(std::FILE* out) {
    std::fputs("usage: labelhost [--root DIR] [--standard-user] COMMAND ...\n\n", out);
    for (const Command& command : kCommands) std::fprintf(out, "  %s\n", command.usage);
    std::fprintf(out, "\nCommands that show something take --json. %s\n", kMachineUsage);
}

// Takes the options before the command.
void TakeMachine(Words& words) {
    for (;;) {
        if (words.size() >= 2 && words[0] == "--root") {
            UseRoot(words[1]);
            words.erase(words.begin(), words.begin() + 2);
        } else if (!words.empty() && words[0] == "--standard-user") {
            BecomeStandardUser();
            words.erase(words.begin());
        } else {
            return;
        }
    }
}

int Run(Words words) {
    TakeMachine(words);
    if (words.empty()) {
        PrintUsage(stderr);
        return 2;
    }
    if (words[0] == "help" || words[0] == "--help" || words[0] == "-h") {
        PrintUsage(stdout);
        return 0;
    }
    for (const Command& command : kCommands) {
        if (words[0] != command.name) continue;
        command.run(Words(words.begin() + 1, words.end()));
        return 0;
    }
    throw UsageFault("unknown command '" + words[0] + "' (labelhost help lists them)");
}

} // namespace

int RunLabelhost(const Words& words) {
    try {
        return Run(words);
    } catch (const UsageFault& fault) {
        std::fprintf(stderr, "labelhost: %s\n", fault.what());
        return 2;
    } catch (const std::exception& fault) {
        std::fprintf(stderr, "labelhost: %s\n", fault.what());
        return 1;
    }
}
