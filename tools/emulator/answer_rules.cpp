#include "emulator/answer_rules.h"

#include <algorithm>
#include <fstream>
#include <iterator>
#include <sstream>

namespace {

// Bytes without a pattern that are the same in every run.
std::string Garbage(size_t size) {
    std::string bytes(size, 0);
    uint32_t state = 12345;
    for (char& byte : bytes) {
        state = state * 1664525u + 1013904223u;
        byte = static_cast<char>(state >> 24);
    }
    return bytes;
}

} // namespace

void ApplyFault(const std::string& line, const std::string& query, SpoiltAnswer& answer) {
    std::istringstream words(line);
    std::string name, fault;
    unsigned number = 0;
    if (!(words >> name >> fault) || (name != "*" && name != query)) return;
    const bool has_number = static_cast<bool>(words >> number);
    if (fault == "silent")
        answer.bytes.clear();
    else if (fault == "garbled")
        answer.bytes = Garbage(answer.bytes.size());
    else if (fault == "short" && has_number)
        answer.bytes.resize(std::min<size_t>(number, answer.bytes.size()));
    else if (fault == "split" && has_number)
        answer.packet = number;
    else if (fault == "late" && has_number)
        answer.delay = static_cast<int>(std::min(number, 600000u));
}

SpoiltAnswer AnswerRules::Apply(const EmulatedAnswer& answer) const {
    SpoiltAnswer spoilt;
    spoilt.bytes = answer.bytes;
    if (folder_.empty()) return spoilt;
    if (std::ifstream own(folder_ + "/" + answer.query, std::ios::binary); own)
        spoilt.bytes.assign(std::istreambuf_iterator<char>(own), {});
    std::ifstream faults(folder_ + "/faults");
    for (std::string line; std::getline(faults, line);) ApplyFault(line, answer.query, spoilt);
    return spoilt;
}
