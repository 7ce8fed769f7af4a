#include "emulator/emulated_printer.h"

#include <algorithm>
#include <utility>

namespace {

// Nobody reads more than that.
constexpr size_t kMaxNotes = 1000;
constexpr uint32_t kMaxSize = 999999999;

bool IsOneOf(const std::string& name, const char* list) {
    const std::string names = list;
    for (size_t at = 0; at + 2 <= names.size(); at += 3)
        if (names.compare(at, 2, name) == 0) return true;
    return false;
}

char FirstOf(const std::string& text, char otherwise) {
    if (text.empty()) return otherwise;
    return text[0] >= 'a' && text[0] <= 'z' ? static_cast<char>(text[0] - 'a' + 'A') : text[0];
}

// The extension that ~DY's third parameter asks for.
const char* DownloadExtension(char kind) {
    switch (kind) {
    case 'B':
        return "BMP";
    case 'P':
        return "PNG";
    case 'T':
        return "TTF";
    case 'E':
        return "TTE";
    case 'O':
        return "OTF";
    case 'X':
        return "PCX";
    default:
        return "GRF";
    }
}

} // namespace

std::vector<EmulatedAnswer> EmulatedPrinter::Receive(const void* bytes, size_t size) {
    std::vector<EmulatedAnswer> answers;
    for (const ZplCommand& command : scanner_.Feed(bytes, size)) Execute(command, answers);
    return answers;
}

void EmulatedPrinter::Disconnect() {
    std::vector<EmulatedAnswer> nobody_reads;
    for (const ZplCommand& command : scanner_.Finish()) Execute(command, nobody_reads);
    format_ = {};
}

std::vector<std::string> EmulatedPrinter::TakeNotes() {
    return std::exchange(notes_, {});
}

void EmulatedPrinter::Execute(const ZplCommand& command, std::vector<EmulatedAnswer>& answers) {
    if (Ask(command, answers)) return;
    if (format_.open) format_.bytes += 3 + command.parameters.size() + command.data;
    if (!command.control && command.name == "XA") {
        format_ = {};
        format_.open = true;
    } else if (!command.control && command.name == "XZ") {
        EndFormat();
    } else if (command.control && IsOneOf(command.name, "DB DE DG DS DT DU DY")) {
        Download(command);
    } else {
        Set(command);
    }
}

void EmulatedPrinter::EndFormat() {
    const OpenFormat format = std::exchange(format_, {});
    if (!format.open) return;
    if (!format.store_as.empty()) {
        Store(ObjectName(format.store_as), format.bytes);
    } else if (format.prints) {
        const uint32_t quantity = std::clamp<uint32_t>(format.quantity, 1, 99999999);
        labels_ += quantity;
        Note("printed " + std::to_string(quantity) + (quantity == 1 ? " label" : " labels"));
    }
}

void EmulatedPrinter::Download(const ZplCommand& command) {
    std::vector<std::string> fields = SplitParameters(command.parameters, 5);
    if (!command.whole) {
        Note("dropped " + fields[0] + ", which broke off");
        return;
    }
    const char kind = command.name[1];
    ObjectName where(fields[0]);
    uint64_t size = NumberIn(fields[1], 0);
    if (kind == 'Y') {
        where.extension = DownloadExtension(FirstOf(fields[2], 'G'));
        size = NumberIn(fields[3], 0);
    } else if (where.extension.empty()) {
        where.extension = kind == 'G' ? "GRF" : kind == 'E' ? "DAT" : "FNT";
    }
    // A bitmap font does not give its length.
    Store(where, kind == 'B' ? command.data : size);
}

void EmulatedPrinter::Set(const ZplCommand& command) {
    const std::vector<std::string> fields = SplitParameters(command.parameters, 3);
    const std::string& name = command.name;
    if (command.control) {
        if (name == "PP") settings_.paused = true;
        if (name == "PS") settings_.paused = false;
        if (name == "SD") settings_.darkness = std::min(NumberIn(fields[0], 10), 30u);
        if (name == "TA") {
            const bool up = FirstOf(fields[0], '+') == '-';
            const auto dots = static_cast<int32_t>(
                std::min(NumberIn(up ? fields[0].substr(1) : fields[0], 0), 120u));
            settings_.tear_off = up ? -dots : dots;
        }
        if (name == "JR") {
            Delete("R:*.*");
            settings_ = {};
        }
        if (name == "JB") Delete("B:*.*");
        if (name == "EG") Delete("*:*.GRF");
        return;
    }
    if (IsOneOf(name, "FD FV GB GC GD GE GF GS XG IL IM")) format_.prints = true;
    if (name == "PQ") format_.quantity = NumberIn(fields[0], 1);
    if (name == "DF") {
        format_.store_as = fields[0];
        if (format_.store_as.find('.') == std::string::npos) format_.store_as += ".ZPL";
    }
    if (name == "ID") Delete(fields[0]);
    if (name == "EG") Delete("*:*.GRF");
    if (name == "JB") Delete(std::string(1, FirstOf(fields[0], 'E')) + ":*.*");
    if (name == "CW") objects_.SetLetter(ObjectName(fields[1]), FirstOf(fields[0], ' '));
    if (name == "PP") settings_.paused = true;
    if (name == "PW") settings_.print_width = NumberIn(fields[0], settings_.print_width);
    if (name == "LL") settings_.label_length = std::min(NumberIn(fields[0], 1225), 32000u);
    if (name == "MM") settings_.print_mode = FirstOf(fields[0], 'T');
    if (name == "MN") settings_.continuous = FirstOf(fields[0], 'Y') == 'N';
    if (name == "MT") settings_.thermal_transfer = FirstOf(fields[0], 'D') == 'T';
    if (name == "PR" && !fields[0].empty()) settings_.speed = fields[0].substr(0, 2);
    if (name == "KP") {
        settings_.password = fields[0].substr(0, 4);
        settings_.password.insert(0, 4 - settings_.password.size(), '0');
    }
}

void EmulatedPrinter::Store(const ObjectName& where, uint64_t size) {
    const auto bytes = static_cast<uint32_t>(std::min<uint64_t>(size, kMaxSize));
    const std::string name =
        std::string(1, where.device) + ":" + where.name + "." + where.extension;
    Note(objects_.Store(where, bytes) ? "stored " + name + ", " + std::to_string(bytes) + " bytes"
                                      : "refused " + name);
}

void EmulatedPrinter::Delete(const std::string& pattern) {
    const int count = objects_.Delete(ObjectName(pattern));
    if (count > 0) Note("deleted " + std::to_string(count) + (count == 1 ? " object" : " objects"));
}

void EmulatedPrinter::Note(const std::string& line) {
    if (notes_.size() < kMaxNotes) notes_.push_back(line);
}
