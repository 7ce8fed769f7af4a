#include "sheet/picture_name.h"

std::string PictureName(const std::string& kind, int number, const std::string& title) {
    std::string name = kind + "-" + std::to_string(number) + "-";
    for (char c : title) {
        if (c >= 'A' && c <= 'Z') c = static_cast<char>(c - 'A' + 'a');
        const bool kept = (c >= 'a' && c <= 'z') || (c >= '0' && c <= '9') || c & 0x80;
        if (kept)
            name += c;
        else if (!name.ends_with('-'))
            name += '-';
    }
    if (name.ends_with('-')) name.pop_back();
    return name + ".png";
}
