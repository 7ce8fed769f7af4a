#include "zpl/zpl_scanner.h"

#include <algorithm>
#include <cstring>
#include <utility>

namespace {

constexpr char kStx = 2;
constexpr char kEtx = 3;

char Upper(char c) {
    return c >= 'a' && c <= 'z' ? static_cast<char>(c - 'a' + 'A') : c;
}

bool IsHexDigit(char c) {
    const char upper = Upper(c);
    return (c >= '0' && c <= '9') || (upper >= 'A' && upper <= 'F');
}

bool IsAnyOf(const std::string& name, const char* list) {
    for (; *list; list += 3)
        if (name[0] == list[0] && name[1] == list[1]) return true;
    return false;
}

// Commands that are complete with their name. Each list holds names of two letters and a blank.
bool HasNoParameters(const ZplCommand& command) {
    return IsAnyOf(command.name,
                   command.control ? "EG HB HD HI HM HS JA JC JD JE JG JL JP JR JX KB NR PH PL PP "
                                     "PR PS RO WC "
                                   : "EG FS HH PH PP XA XB XZ ");
}

// The number of parameters before the data of a command that has data; 0 for all others.
int HeaderFields(const ZplCommand& command) {
    if (!command.control) return command.name == "GF" ? 4 : 0;
    if (command.name == "DB") return 8;
    if (command.name == "DY") return 5;
    if (command.name == "DG") return 3;
    return IsAnyOf(command.name, "DE DS DT DU ") ? 2 : 0;
}

bool ChangesPrefix(const ZplCommand& command) {
    return IsAnyOf(command.name, "CC CD CT ");
}

// The number of raw bytes that follow these parameters; 0 if the data is text.
uint32_t RawBytes(const ZplCommand& command) {
    const std::vector<std::string> fields = SplitParameters(command.parameters, 5);
    if (command.name == "DY" && (fields[1] == "B" || fields[1] == "b"))
        return NumberIn(fields[3], 0);
    if (command.name == "GF" && (fields[0] == "B" || fields[0] == "b"))
        return NumberIn(fields[1], 0);
    return 0;
}

} // namespace

std::vector<ZplCommand> ZplScanner::Feed(const void* bytes, size_t size) {
    std::vector<ZplCommand> found;
    const char* next = static_cast<const char*>(bytes);
    while (size > 0) {
        if (state_ == State::Data) {
            const size_t taken = static_cast<size_t>(std::min<uint64_t>(size, bytes_left_));
            next += taken;
            size -= taken;
            bytes_left_ -= taken;
            command_.data += taken;
            if (bytes_left_ == 0) Emit(found);
        } else {
            Take(*next++, found);
            --size;
        }
    }
    return found;
}

std::vector<ZplCommand> ZplScanner::Finish() {
    std::vector<ZplCommand> found;
    if (state_ == State::Data) command_.whole = false;
    if (state_ == State::Data || state_ == State::Parameters) Emit(found);
    state_ = State::Text;
    return found;
}

void ZplScanner::Take(char c, std::vector<ZplCommand>& found) {
    switch (state_) {
    case State::Text:
        TakeText(c, found);
        break;
    case State::Name:
        TakeName(c, found);
        break;
    case State::Parameters:
        TakeParameter(c, found);
        break;
    case State::Dump:
        TakeDump(c, found);
        break;
    case State::Data:
        break;
    }
}

void ZplScanner::TakeText(char c, std::vector<ZplCommand>& found) {
    if (c == format_prefix_ || c == control_prefix_) {
        Start(c == control_prefix_);
    } else if (c == kStx || c == kEtx) {
        Start(false);
        command_.name = c == kStx ? "XA" : "XZ";
        Emit(found);
    }
}

void ZplScanner::TakeName(char c, std::vector<ZplCommand>& found) {
    if (c == format_prefix_ || c == control_prefix_ || c == kStx || c == kEtx) {
        state_ = State::Text;
        TakeText(c, found);
        return;
    }
    if (c >= 0 && c < ' ') return;
    command_.name += Upper(c);
    if (command_.name.size() < 2) return;
    header_fields_ = HeaderFields(command_);
    state_ = State::Parameters;
    if (HasNoParameters(command_)) Emit(found);
}

void ZplScanner::TakeParameter(char c, std::vector<ZplCommand>& found) {
    if (ChangesPrefix(command_)) {
        ChangePrefix(c);
        command_.parameters = std::string(1, c);
        Emit(found);
        return;
    }
    if (c == format_prefix_ || c == control_prefix_ || c == kStx || c == kEtx) {
        Emit(found);
        TakeText(c, found);
        return;
    }
    if (header_fields_ && delimiters_ == header_fields_) {
        if (IsHexDigit(c)) command_.data = ++hex_digits_ / 2;
        return;
    }
    if (c == '\r' || c == '\n') {
        if (command_.control && !header_fields_) Emit(found);
        return;
    }
    if (c >= 0 && c < ' ') return;
    if (c == delimiter_) {
        ++delimiters_;
        c = ',';
    }
    if (header_fields_ && delimiters_ == header_fields_) {
        bytes_left_ = RawBytes(command_);
        if (bytes_left_ > 0) state_ = State::Data;
    } else if (command_.parameters.size() < kMaxParameters) {
        command_.parameters += c;
    }
}

void ZplScanner::TakeDump(char c, std::vector<ZplCommand>& found) {
    dump_tail_ += Upper(c);
    if (dump_tail_.size() > 3) dump_tail_.erase(0, 1);
    if (dump_tail_.size() < 3 || dump_tail_[0] != control_prefix_ || dump_tail_[1] != 'J' ||
        dump_tail_[2] != 'E')
        return;
    Start(true);
    command_.name = "JE";
    Emit(found);
}

void ZplScanner::Start(bool control) {
    command_ = {};
    command_.control = control;
    delimiters_ = 0;
    header_fields_ = 0;
    hex_digits_ = 0;
    bytes_left_ = 0;
    state_ = State::Name;
}

void ZplScanner::Emit(std::vector<ZplCommand>& found) {
    const bool dump = command_.control && command_.name == "JD";
    dump_tail_.clear();
    state_ = dump ? State::Dump : State::Text;
    found.push_back(std::exchange(command_, {}));
}

void ZplScanner::ChangePrefix(char c) {
    char* const prefix = command_.name == "CC"   ? &format_prefix_
                         : command_.name == "CT" ? &control_prefix_
                                                 : &delimiter_;
    // The three characters must differ from each other and from text.
    if (c > ' ' && c != format_prefix_ && c != control_prefix_ && c != delimiter_) *prefix = c;
}

std::vector<std::string> SplitParameters(const std::string& parameters, size_t least) {
    std::vector<std::string> fields(1);
    for (const char c : parameters) {
        if (c == ',')
            fields.emplace_back();
        else
            fields.back() += c;
    }
    if (fields.size() < least) fields.resize(least);
    return fields;
}

uint32_t NumberIn(const std::string& parameter, uint32_t otherwise) {
    size_t at = 0;
    while (at < parameter.size() && parameter[at] == ' ') ++at;
    const size_t first = at;
    uint32_t number = 0;
    for (; at < parameter.size() && at < first + 9 && parameter[at] >= '0' && parameter[at] <= '9';
         ++at)
        number = number * 10 + static_cast<uint32_t>(parameter[at] - '0');
    return at == first ? otherwise : number;
}
