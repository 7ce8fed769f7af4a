#include "commands/capabilities.h"

#include "arguments.h"
#include "commands/commands.h"
#include "fault.h"
#include "json.h"
#include "machine/printer.h"
#include "text.h"

#include <windows.h>
#include <winspool.h>

#include <cstdint>
#include <cstdio>
#include <cstring>

namespace {

constexpr WORD kLastCapability = DC_NUP;

// Texts are in slots of fixed length, in UTF-16 units.
constexpr size_t kPaperNameSlot = 64;
constexpr size_t kBinNameSlot = 24;
constexpr size_t kFileSlot = 64;
constexpr size_t kPersonalitySlot = 32;

// Asks one printer's driver through the spooler, as an application does.
class Asker {
public:
    explicit Asker(const std::string& printer)
        : name_(printer)
        , wide_(ToWide(printer))
        , port_(ToWide(FactsOf(printer).port)) {}

    // The answer without an output buffer: a value or a count, or -1 for an unsupported capability.
    int Value(WORD capability) const { return Ask(capability, nullptr); }

    // The entries of a list capability, each of `entry_size` bytes; empty if it is not supported.
    std::vector<std::vector<BYTE>> Entries(WORD capability, size_t entry_size) const {
        const int count = Value(capability);
        if (count <= 0) return {};
        std::vector<BYTE> bytes(static_cast<size_t>(count) * entry_size);
        const int filled = Ask(capability, bytes.data());
        std::vector<std::vector<BYTE>> entries;
        for (int i = 0; i < count && i < filled; ++i) {
            const BYTE* entry = bytes.data() + static_cast<size_t>(i) * entry_size;
            entries.emplace_back(entry, entry + entry_size);
        }
        return entries;
    }

    Json Texts(WORD capability, size_t slot) const {
        Json list = Json::array();
        for (const auto& entry : Entries(capability, slot * sizeof(WCHAR))) {
            std::vector<WCHAR> units(slot);
            std::memcpy(units.data(), entry.data(), entry.size());
            list.push_back(FromSlot(units.data(), slot));
        }
        return list;
    }

    // Entries of `count` numbers of type T each: a plain number if `count` is 1, else a list.
    template <class T>
    Json Numbers(WORD capability, size_t count) const {
        Json list = Json::array();
        for (const auto& entry : Entries(capability, count * sizeof(T))) {
            std::vector<T> numbers(count);
            std::memcpy(numbers.data(), entry.data(), entry.size());
            list.push_back(count == 1 ? Json(numbers[0]) : Json(numbers));
        }
        return list;
    }

private:
    int Ask(WORD capability, BYTE* output) const {
        return DeviceCapabilitiesW(wide_.c_str(), port_.c_str(), capability,
                                   reinterpret_cast<LPWSTR>(output), nullptr);
    }

    std::string name_;
    WideString wide_, port_;
};

struct Named {
    WORD capability;
    const char* name;
};

constexpr Named kNames[] = {
    {DC_FIELDS, "fields"},
    {DC_PAPERS, "papers"},
    {DC_PAPERSIZE, "paper sizes"},
    {DC_MINEXTENT, "smallest paper"},
    {DC_MAXEXTENT, "largest paper"},
    {DC_BINS, "bins"},
    {DC_DUPLEX, "duplex"},
    {DC_SIZE, "public bytes"},
    {DC_EXTRA, "private bytes"},
    {DC_VERSION, "record version"},
    {DC_DRIVER, "driver version"},
    {DC_BINNAMES, "bin names"},
    {DC_ENUMRESOLUTIONS, "resolutions"},
    {DC_FILEDEPENDENCIES, "dependent files"},
    {DC_TRUETYPE, "TrueType"},
    {DC_PAPERNAMES, "paper names"},
    {DC_ORIENTATION, "landscape angle"},
    {DC_COPIES, "copies"},
    {DC_BINADJUST, "bin adjustment"},
    {DC_EMF_COMPLIANT, "metafiles"},
    {DC_COLLATE, "collate"},
    {DC_PERSONALITY, "personalities"},
    {DC_STAPLE, "staple"},
    {DC_COLORDEVICE, "colour"},
    {DC_NUP, "pages per sheet"},
};

} // namespace

Json AllCapabilities(const std::string& printer) {
    const Asker asker(printer);
    Json results = Json::object();
    for (WORD capability = DC_FIELDS; capability <= kLastCapability; ++capability)
        results[std::to_string(capability)] = asker.Value(capability);
    return {{"printer", printer},
            {"results", results},
            {"papers", asker.Numbers<uint16_t>(DC_PAPERS, 1)},
            {"paper_sizes", asker.Numbers<int32_t>(DC_PAPERSIZE, 2)},
            {"paper_names", asker.Texts(DC_PAPERNAMES, kPaperNameSlot)},
            {"bins", asker.Numbers<uint16_t>(DC_BINS, 1)},
            {"bin_names", asker.Texts(DC_BINNAMES, kBinNameSlot)},
            {"resolutions", asker.Numbers<int32_t>(DC_ENUMRESOLUTIONS, 2)},
            {"file_dependencies", asker.Texts(DC_FILEDEPENDENCIES, kFileSlot)},
            {"personality", asker.Texts(DC_PERSONALITY, kPersonalitySlot)}};
}

namespace {

// For people: sizes in millimetres, the rest as the driver gave it.
std::string Described(WORD capability, int value) {
    if (value == -1) return "-";
    if (capability != DC_MINEXTENT && capability != DC_MAXEXTENT) return std::to_string(value);
    char text[48];
    std::snprintf(text, sizeof(text), "%.1f x %.1f mm", (value & 0xFFFF) / 10.0,
                  ((value >> 16) & 0xFFFF) / 10.0);
    return text;
}

void PrintList(const char* title, const Json& list) {
    std::string line;
    for (const Json& entry : list) {
        if (!line.empty()) line += ", ";
        if (entry.is_string())
            line += entry.get<std::string>();
        else if (entry.is_array())
            line += entry[0].dump() + " x " + entry[1].dump();
        else
            line += entry.dump();
    }
    if (!line.empty()) std::printf("  %-18s %s\n", title, line.c_str());
}

} // namespace

void CapabilitiesCommand(const Words& words) {
    const Arguments arguments(words, {}, {"json"});
    arguments.RequireCount(1, 1, "capabilities PRINTER [--json]");
    const Json answer = AllCapabilities(arguments[0]);
    if (arguments.Has("json")) {
        PrintJson(answer);
        return;
    }
    std::printf("%s\n", arguments[0].c_str());
    for (const Named& named : kNames) {
        const int value = answer["results"][std::to_string(named.capability)].get<int>();
        std::printf("  %2d %-18s %s\n", named.capability, named.name,
                    Described(named.capability, value).c_str());
    }
    PrintList("bins", answer["bin_names"]);
    PrintList("resolutions", answer["resolutions"]);
    PrintList("files", answer["file_dependencies"]);
    PrintList("personality", answer["personality"]);
    PrintList("papers", answer["paper_names"]);
}
