// Any bytes as edits and formats of ranges.
#include "../platform/window/rich_text.h"
#include "input.h"
#include "target.h"

#include <cstring>

FUZZ_TARGET(rich_text)(const uint8_t* data, size_t size) {
    using namespace win32host;
    Input input(data, size);
    CHARFORMAT2W plain = {};
    plain.cbSize = sizeof(plain);
    plain.dwMask = kAllOfFormat;
    RichText text(plain);
    while (!input.IsEmpty()) {
        const size_t act = input.Number();
        size_t from = input.Number16();
        size_t to = input.Number16();
        switch (act % 4) {
        case 0: {
            const std::u16string added =
                RichText::WithParagraphs(Units(input.Text(input.Number())), act & 4);
            const size_t length = text.Length();
            const size_t end = std::min(to, length);
            const size_t start = std::min(from, end);
            text.Replace(from, to, added, text.FormatForTyping(from));
            Check(text.Length() == length - (end - start) + added.size());
            Check(text.Text().compare(start, added.size(), added) == 0);
            break;
        }
        case 1: {
            CHARFORMAT2W change = {};
            const auto bytes = input.Take(sizeof(change));
            if (!bytes.empty()) memcpy(&change, bytes.data(), bytes.size());
            change.cbSize = act & 4 ? sizeof(CHARFORMATW) : sizeof(CHARFORMAT2W);
            text.SetFormat(from, to, change);
            to = std::min(to, text.Length());
            if (from < to && change.dwMask & CFM_PROTECTED) {
                Check(text.FormatOf(from, to).dwMask & CFM_PROTECTED);
                Check(text.HasProtected(from, to) == ((change.dwEffects & CFE_PROTECTED) != 0));
            }
            break;
        }
        case 2: {
            PARAFORMAT change = {};
            const auto bytes = input.Take(sizeof(change));
            if (!bytes.empty()) memcpy(&change, bytes.data(), bytes.size());
            change.cbSize = sizeof(change);
            if (from > to) std::swap(from, to);
            text.SetParagraphFormat(from, to, change);
            (void)text.ParagraphFormatOf(from, to);
            break;
        }
        default:
            (void)text.FormatOf(from, to);
            break;
        }
        Check(text.IsWhole());
    }
    return 0;
}
