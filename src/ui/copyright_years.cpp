#include "ui/copyright_years.h"

#include <algorithm>

#include "core/numbers.h"

namespace {

constexpr int DIGITS = 4;

int32_t YearAt(const OString& notice, int at) {
    WCHAR year[DIGITS + 1] = {};
    std::copy_n(notice.wstring() + at, std::min(DIGITS, notice.wlen() - at), year);
    return xtol(year);
}

} // namespace

CopyrightYears ReadCopyrightYears(const OString& notice) {
    const WCHAR* text = notice.wstring();
    const int length = notice.wlen();
    int at = 0;
    while (at < length && text[at] != '1' && text[at] != '2') ++at;
    if (at == length) return {};
    CopyrightYears years;
    years.start = YearAt(notice, at);
    at += DIGITS;
    years.end = at < length && text[at] == '-' ? YearAt(notice, at + 1) : years.start;
    return years;
}
