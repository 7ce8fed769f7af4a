// What is special in texts of the user interface: access keys, and parts that are replaced.
#pragma once

#include <string>
#include <vector>

// The character after the first single "&", in upper case; 0 if there is none.
char16_t AccessKey(const std::u16string& text);

// The text as it is shown: without the marks of access keys ("&&" is "&"), and with the signs and
// years that stand for "{C}", "{R}" and "{T}".
std::u16string Shown(const std::u16string& text);

// The places for values and signs in the order of the text: "%s", "%d", "{C=2003}". "%%" is a sign.
std::vector<std::u16string> Placeholders(const std::u16string& text);
