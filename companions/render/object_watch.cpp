#include "object_watch.h"

#include <algorithm>
#include <cctype>
#include <cstdlib>
#include <utility>

namespace {

// A command's parameters that matter are in so many characters at its start.
constexpr size_t kLongestHead = 128;
// More acts than this in one job are not noted; nobody could store so much.
constexpr size_t kMostEvents = 100000;

struct ObjectCommand {
    const char* code;
    ObjectEvent::Act act;
    KVCacheItemInfo::Kind kind;
    const char* extension; // if the command names none
};

constexpr ObjectCommand kCommands[] = {
    {"^DF", ObjectEvent::STORED, KVCacheItemInfo::FORMAT, ".ZPL"},
    {"~DG", ObjectEvent::STORED, KVCacheItemInfo::GRAPHIC, ".GRF"},
    {"^XF", ObjectEvent::RECALLED, KVCacheItemInfo::FORMAT, ".ZPL"},
    {"^XG", ObjectEvent::RECALLED, KVCacheItemInfo::GRAPHIC, ".GRF"},
    {"^IM", ObjectEvent::RECALLED, KVCacheItemInfo::GRAPHIC, ".GRF"},
    {"^ID", ObjectEvent::ERASED, KVCacheItemInfo::GRAPHIC, ".GRF"},
};

bool IsFormatEnd(const std::string& command) {
    return command.size() == 3 && command[0] == '^' && (command[1] | 0x20) == 'x' &&
           (command[2] | 0x20) == 'z';
}

// The part of a command up to a comma or the end, from a position that then is after it.
std::string NextPart(const std::string& command, size_t& at) {
    const size_t end = std::min(command.find(',', at), command.size());
    std::string part = command.substr(std::min(at, end), end - std::min(at, end));
    at = end + 1;
    return part;
}

} // namespace

void ObjectWatch::Read(const void* bytes, size_t size) {
    const auto* next = static_cast<const char*>(bytes);
    for (const char* const end = next + size; next != end; ++next) {
        if (*next == '^' || *next == '~') {
            EndCommand();
            command_ = *next;
        } else if (!command_.empty() && command_.size() < kLongestHead) {
            command_ += *next;
        }
        if (!in_format_) continue;
        ++events_.back().size;
        if (!IsFormatEnd(command_)) continue;
        in_format_ = false; // what was stored ended before these three characters
        events_.back().size -= 3;
    }
}

std::vector<ObjectEvent> ObjectWatch::End() {
    EndCommand();
    in_format_ = false;
    return std::exchange(events_, {});
}

void ObjectWatch::Reset() {
    command_.clear();
    events_.clear();
    in_format_ = false;
}

void ObjectWatch::EndCommand() {
    std::string command = std::exchange(command_, {});
    // A line end after the command is no part of it.
    command.erase(
        std::find_if(command.begin(), command.end(), [](char c) { return c >= 0 && c <= ' '; }),
        command.end());
    for (char& c : command) c = static_cast<char>(std::toupper(static_cast<unsigned char>(c)));
    const std::string code = command.substr(0, 3);
    if (in_format_) return; // it is stored, and not done
    const auto* const known = std::find_if(std::begin(kCommands), std::end(kCommands),
                                           [&](const ObjectCommand& c) { return code == c.code; });
    if (known == std::end(kCommands) || events_.size() >= kMostEvents) return;
    size_t at = 3;
    std::string name = NextPart(command, at);
    char location = 'R';
    if (name.size() > 2 && name[1] == ':') {
        location = name[0];
        name.erase(0, 2);
    }
    if (name.empty() || name.size() >= sizeof KVCacheItemInfo::name) return;
    if (known->act != ObjectEvent::ERASED && name.find('*') != name.npos) return;
    if (name.find('.') == name.npos) name += known->extension;
    ObjectEvent event = {known->act, location, name, known->kind};
    if (known->act == ObjectEvent::STORED && known->kind == KVCacheItemInfo::GRAPHIC)
        event.size = static_cast<uint32_t>(std::min<unsigned long>(
            std::strtoul(NextPart(command, at).c_str(), nullptr, 10), 1u << 30));
    events_.push_back(std::move(event));
    in_format_ = known->act == ObjectEvent::STORED && known->kind == KVCacheItemInfo::FORMAT;
}
