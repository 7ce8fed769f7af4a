// Texts of WCHAR as tests build and show them.
#pragma once

#include <windows.h>

#include <string>

#include "core/obuffer.h"
#include "core/ostring.h"

using WideText = std::basic_string<WCHAR>;

// Every byte becomes the unit of the same number.
inline WideText Widen(const std::string& text) {
    WideText wide;
    for (char c : text) wide.push_back(static_cast<WCHAR>(static_cast<unsigned char>(c)));
    return wide;
}

// A buffer of exactly these units, without terminator.
template <class C>
OBuffer<C> Buffer(const std::basic_string<C>& text) {
    OBuffer<C> buffer;
    buffer.Assign(text.data(), static_cast<uint32_t>(text.size()));
    return buffer;
}

template <class C>
std::basic_string<C> Contents(const OBuffer<C>& buffer) {
    return std::basic_string<C>(buffer.GetData(), buffer.GetSize());
}

// A text of one code page that has only its 8-bit form.
inline OString InCodePage(uint32_t code_page, const char* text) {
    OString string;
    string.SetCodePage(code_page);
    string = text;
    return string;
}
