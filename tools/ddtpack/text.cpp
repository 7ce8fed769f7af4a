#include "text.h"

#include <charconv>

bool ReadNumber(const std::string& text, int32_t& number) {
    const char* end = text.data() + text.size();
    const auto result = std::from_chars(text.data(), end, number);
    return result.ec == std::errc() && result.ptr == end;
}
