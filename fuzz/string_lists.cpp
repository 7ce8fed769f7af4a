// Any bytes as a packed list of strings, 8-bit and UTF-16, and as a text that is split: the list
// survives packing and unpacking, and the pieces join to the text again.
#include <cstdint>
#include <cstring>
#include <string>

#include "core/ostring_array.h"
#include "input.h"
#include "target.h"

namespace {

void CheckSame(const OStringArray& a, const OStringArray& b) {
    Check(a.GetSize() == b.GetSize());
    for (int i = 0; i < a.GetSize(); ++i) Check(a[i] == b[i]);
}

template <class C>
void CheckUnpack(const OBuffer<C>& packed, int mode) {
    OStringArray list, again;
    list.Unpack(packed, mode);
    OBuffer<C> bytes;
    const uint32_t used = list.Pack(bytes, mode);
    Check(used <= bytes.GetSize());
    Check(bytes.SetSize(used));
    again.Unpack(bytes, mode);
    CheckSame(list, again);
}

} // namespace

FUZZ_TARGET(string_lists)(const uint8_t* data, size_t size) {
    Input input(data, size);
    const auto mode = static_cast<int>(input.Number() % 4);
    const std::string separator(1, static_cast<char>(input.Number() % 127 + 1));
    const std::string bytes = input.Rest();

    OBuffer<char> narrow;
    narrow.Assign(bytes.data(), static_cast<uint32_t>(bytes.size()));
    CheckUnpack(narrow, mode);
    OBuffer<WCHAR> wide(static_cast<uint32_t>(bytes.size() / sizeof(WCHAR)));
    if (wide.GetSize() != 0)
        std::memcpy(wide.GetData(), bytes.data(), wide.GetSize() * sizeof(WCHAR));
    CheckUnpack(wide, mode);

    const OString text(bytes.c_str());
    OStringArray pieces;
    pieces.Split(text, separator.c_str());
    OString joined;
    for (int i = 0; i < pieces.GetSize(); ++i) joined << (i ? separator.c_str() : "") << pieces[i];
    Check(std::strcmp(joined.nstring(), text.nstring()) == 0);
    return 0;
}
