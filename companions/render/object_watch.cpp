#include "object_watch.h"

#include <algorithm>
#include <utility>

namespace {

// More acts in one job are not noted; nobody stores so many objects.
constexpr size_t kMostEvents = 100000;

struct ObjectCommand {
    const char* name;
    bool control;
    ObjectEvent::Act act;
    KVCacheItemInfo::Kind kind;
    const char* extension; // if the command names none
};

constexpr ObjectCommand kCommands[] = {
    {"DF", false, ObjectEvent::STORED, KVCacheItemInfo::FORMAT, "ZPL"},
    {"DG", true, ObjectEvent::STORED, KVCacheItemInfo::GRAPHIC, "GRF"},
    {"XF", false, ObjectEvent::RECALLED, KVCacheItemInfo::FORMAT, "ZPL"},
    {"XG", false, ObjectEvent::RECALLED, KVCacheItemInfo::GRAPHIC, "GRF"},
    {"IM", false, ObjectEvent::RECALLED, KVCacheItemInfo::GRAPHIC, "GRF"},
    {"ID", false, ObjectEvent::ERASED, KVCacheItemInfo::GRAPHIC, "GRF"},
};

} // namespace

void ObjectWatch::Read(const void* bytes, size_t size) {
    for (const ZplCommand& command : scanner_.Feed(bytes, size)) Take(command);
}

std::vector<ObjectEvent> ObjectWatch::End() {
    for (const ZplCommand& command : scanner_.Finish()) Take(command);
    std::vector<ObjectEvent> events = std::move(events_);
    *this = {};
    return events;
}

void ObjectWatch::Take(const ZplCommand& command) {
    if (in_format_) {
        // The commands of a format that is being stored are not carried out.
        in_format_ = command.name != "XZ";
        if (in_format_)
            events_.back().size +=
                static_cast<uint32_t>(3 + command.parameters.size() + command.data);
        return;
    }
    const auto* const known =
        std::find_if(std::begin(kCommands), std::end(kCommands), [&](const ObjectCommand& c) {
            return command.control == c.control && command.name == c.name;
        });
    if (known == std::end(kCommands) || !command.whole || events_.size() >= kMostEvents) return;
    const std::vector<std::string> fields = SplitParameters(command.parameters, 2);
    ObjectEvent event = {known->act, ObjectName(fields[0]), known->kind};
    if (event.where.extension.empty()) event.where.extension = known->extension;
    if (event.where.name.empty() || (event.act != ObjectEvent::ERASED && event.where.IsPattern()))
        return;
    if (known->act == ObjectEvent::STORED) {
        if (known->kind == KVCacheItemInfo::GRAPHIC) event.size = NumberIn(fields[1], 0);
        in_format_ = known->kind == KVCacheItemInfo::FORMAT;
    }
    events_.push_back(std::move(event));
}
