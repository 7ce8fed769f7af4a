#include "custom_data.h"

#include "core/base64.h"
#include "text.h"
#include "tool_error.h"

#include <array>
#include <cstdint>
#include <cstring>
#include <sstream>
#include <vector>

namespace {

// The blob: flags, limits in dots, and the speed table. Bytes between them are zero.
constexpr size_t kFlags = 0;
constexpr size_t kLabelTopMin = 20;
constexpr size_t kLabelTopMax = 24;
constexpr size_t kTearOffMin = 28;
constexpr size_t kTearOffMax = 32;
constexpr size_t kSpeeds = 36;
constexpr size_t kSpeedSize = 8;
constexpr size_t kSpeedCount = 20;
constexpr size_t kBlobSize = kSpeeds + kSpeedCount * kSpeedSize;

struct Switch {
    const char* key;
    uint32_t bit;
};

constexpr Switch kSwitches[] = {
    {"Cutter", 0x2},
    {"Backfeed.Percentage", 0x4},
    {"Backfeed.Off", 0x8},
    {"Tracking.Marks", 0x20},
    {"Speed.Backfeed", 0x40},
    {"Speed.Slew", 0x80},
    {"Darkness.Absolute", 0x200},
    {"TearOff", 0x400},
    {"Media.TransferOnly", 0x1000},
    {"Media.DirectOnly", 0x2000},
    {"Options.Extended", 0x20000},
};

struct Limit {
    const char* key;
    size_t offset;
};

constexpr Limit kLimits[] = {
    {"LabelTop.Min", kLabelTopMin},
    {"LabelTop.Max", kLabelTopMax},
    {"TearOff.Min", kTearOffMin},
    {"TearOff.Max", kTearOffMax},
};

class Blob {
public:
    void SetBit(uint32_t bit, bool on) {
        flags_ = on ? flags_ | bit : flags_ & ~bit;
        PutWord32(kFlags, flags_);
    }

    void PutWord32(size_t offset, uint32_t value) {
        for (size_t i = 0; i < 4; ++i) bytes_[offset + i] = static_cast<uint8_t>(value >> (8 * i));
    }

    // False if the table is full.
    bool AddSpeed(int32_t value, const std::string& letter, bool is_default) {
        if (speeds_ == kSpeedCount) return false;
        const size_t entry = kSpeeds + kSpeedSize * speeds_++;
        PutWord32(entry, static_cast<uint32_t>(value));
        std::memcpy(&bytes_[entry + 4], letter.data(), letter.size());
        bytes_[entry + 7] = is_default ? 1 : 0;
        return true;
    }

    std::string Text() const {
        std::string text(Base64::EncodeLength(kBlobSize), '\0');
        uint32_t length = 0;
        Base64::Encode(bytes_.data(), kBlobSize, text.data(), &length);
        text.resize(length);
        return text;
    }

private:
    std::array<uint8_t, kBlobSize> bytes_ = {};
    uint32_t flags_ = 0;
    size_t speeds_ = 0;
};

// Reads "4,"4",default". Answers the reason if it is not understood, else null.
const char* ReadSpeed(const std::string& value, Blob& blob) {
    std::vector<std::string> parts;
    std::istringstream in(value);
    for (std::string part; std::getline(in, part, ',');) parts.push_back(Trim(part));
    int32_t speed = 0;
    if (parts.size() < 2 || parts.size() > 3 || !ReadNumber(parts[0], speed) || speed <= 0)
        return "a speed is VALUE,\"LETTER\"[,default]";
    const std::string& quoted = parts[1];
    if (quoted.size() < 3 || quoted.front() != '"' || quoted.back() != '"' || quoted.size() > 4)
        return "the speed's letter is one or two characters between double quotes";
    if (parts.size() == 3 && parts[2] != "default") return "the third part of a speed is 'default'";
    if (!blob.AddSpeed(speed, quoted.substr(1, quoted.size() - 2), parts.size() == 3))
        return "the speed table holds 20 entries";
    return nullptr;
}

const char* ReadKey(const std::string& key, const std::string& value, Blob& blob) {
    if (key == "Speed") return ReadSpeed(value, blob);
    for (const Switch& entry : kSwitches) {
        if (key != entry.key) continue;
        if (value != "yes" && value != "no") return "the value is yes or no";
        blob.SetBit(entry.bit, value == "yes");
        return nullptr;
    }
    for (const Limit& entry : kLimits) {
        if (key != entry.key) continue;
        int32_t dots = 0;
        if (!ReadNumber(value, dots)) return "the value is a whole number of dots";
        blob.PutWord32(entry.offset, static_cast<uint32_t>(dots));
        return nullptr;
    }
    return "no such key";
}

} // namespace

std::string CustomDataTable(const std::string& text, const std::string& file) {
    std::string table;
    std::string section;
    Blob blob;
    const auto finish = [&] {
        if (section.empty()) return;
        table +=
            section + "\nData.Length=" + std::to_string(kBlobSize) + "\nData=" + blob.Text() + "\n";
        blob = Blob();
    };
    std::istringstream in(text);
    size_t number = 0;
    for (std::string line; std::getline(in, line);) {
        ++number;
        line = Trim(line);
        const auto fault = [&](const char* what) {
            return ToolError("'" + file + "', line " + std::to_string(number) + ": " + what + ": " +
                             line);
        };
        if (line.empty() || line[0] == '!') continue;
        if (line[0] == '[') {
            if (line.back() != ']') throw fault("a section ends with ]");
            finish();
            section = line;
            continue;
        }
        const size_t equals = line.find('=');
        if (equals == std::string::npos) throw fault("not a key=value line");
        if (section.empty()) throw fault("a key before the first section");
        const char* what =
            ReadKey(Trim(line.substr(0, equals)), Trim(line.substr(equals + 1)), blob);
        if (what) throw fault(what);
    }
    finish();
    return table;
}
