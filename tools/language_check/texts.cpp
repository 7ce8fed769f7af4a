#include "texts.h"

namespace {

// Upper case of the letters of western languages.
char16_t Upper(char16_t unit) {
    const bool is_lower = (unit >= u'a' && unit <= u'z') ||
                          (unit >= u'\u00E0' && unit <= u'\u00FE' && unit != u'\u00F7');
    return is_lower ? static_cast<char16_t>(unit - 0x20) : unit;
}

// The longest form that the sign of copyright takes, with both years.
constexpr char16_t kCopyright[] = u"\u00A9 2000-2029";

// The end of the placeholder at `start`, or `start` if there is none.
size_t EndOfPlaceholder(const std::u16string& text, size_t start) {
    if (text[start] == u'{') {
        const size_t end = text.find(u'}', start);
        return end == std::u16string::npos ? start : end + 1;
    }
    if (text[start] != u'%' || start + 1 == text.size()) return start;
    size_t at = start + 1;
    at = text.find_first_not_of(u"0123456789.-+#lhw", at);
    const bool known = at != std::u16string::npos &&
                       std::u16string(u"sSdiucCxX%").find(text[at]) != std::u16string::npos;
    return known ? at + 1 : start;
}

} // namespace

char16_t AccessKey(const std::u16string& text) {
    for (size_t i = 0; i + 1 < text.size(); ++i) {
        if (text[i] != u'&') continue;
        if (text[i + 1] != u'&') return Upper(text[i + 1]);
        ++i;
    }
    return 0;
}

std::u16string Shown(const std::u16string& text) {
    std::u16string shown;
    for (size_t i = 0; i < text.size(); ++i) {
        const size_t end = text[i] == u'{' ? EndOfPlaceholder(text, i) : i;
        if (end > i) {
            switch (text[i + 1] | 0x20) {
            case u'c':
                shown += kCopyright;
                break;
            case u'r':
                shown += u'\u00AE';
                break;
            case u't':
                shown += u'\u2122';
                break;
            default:
                break;
            }
            i = end - 1;
        } else if (text[i] == u'&' && i + 1 < text.size()) {
            if (text[i + 1] == u'&') shown += text[i++];
        } else {
            shown += text[i];
        }
    }
    return shown;
}

std::vector<std::u16string> Placeholders(const std::u16string& text) {
    std::vector<std::u16string> found;
    for (size_t i = 0; i < text.size(); ++i) {
        const size_t end = EndOfPlaceholder(text, i);
        if (end == i) continue;
        found.push_back(text.substr(i, end - i));
        i = end - 1;
    }
    return found;
}
