#include "window/rich_text.h"

#include <algorithm>
#include <cstring>

namespace win32host {
namespace {

constexpr DWORD kAllOfParagraph = 0xD0FFFDFF;
constexpr WORD kLeastBold = 551;

bool IsBreak(char16_t unit) {
    return unit == u'\r' || unit == u'\n';
}

bool IsSame(const CHARFORMAT2W& a, const CHARFORMAT2W& b) {
    return memcmp(&a, &b, sizeof(a)) == 0;
}

// Takes out of the mask what is different.
void KeepCommon(CHARFORMAT2W& common, const CHARFORMAT2W& other) {
    const DWORD effects = (common.dwEffects ^ other.dwEffects) & kTextEffects;
    common.dwMask &= ~effects;
    common.dwEffects &= ~effects;
    const auto drop_unless = [&](bool same, DWORD bit) {
        if (!same) common.dwMask &= ~bit;
    };
    const auto same_effect = [&](DWORD bit) {
        return (common.dwEffects & bit) == (other.dwEffects & bit);
    };
    drop_unless(common.crTextColor == other.crTextColor && same_effect(CFE_AUTOCOLOR), CFM_COLOR);
    drop_unless(common.crBackColor == other.crBackColor && same_effect(CFE_AUTOBACKCOLOR),
                CFM_BACKCOLOR);
    drop_unless(common.yHeight == other.yHeight, CFM_SIZE);
    drop_unless(common.yOffset == other.yOffset, CFM_OFFSET);
    drop_unless(common.bCharSet == other.bCharSet, CFM_CHARSET);
    drop_unless(memcmp(common.szFaceName, other.szFaceName, sizeof(common.szFaceName)) == 0,
                CFM_FACE);
}

PARAFORMAT2 PlainParagraph() {
    PARAFORMAT2 format = {};
    format.cbSize = sizeof(format);
    format.dwMask = kAllOfParagraph;
    format.wAlignment = PFA_LEFT;
    return format;
}

} // namespace

void ApplyFormat(CHARFORMAT2W& format, const CHARFORMAT2W& change) {
    const DWORD mask = change.dwMask;
    const auto set_effects = [&](DWORD bits) {
        format.dwEffects = (format.dwEffects & ~bits) | (change.dwEffects & bits);
    };
    set_effects(mask & kTextEffects);
    if (mask & CFM_BOLD) format.wWeight = change.dwEffects & CFE_BOLD ? FW_BOLD : FW_NORMAL;
    if (mask & CFM_COLOR) {
        set_effects(CFE_AUTOCOLOR);
        format.crTextColor = change.crTextColor;
    }
    if (mask & CFM_SIZE && change.yHeight > 0) format.yHeight = change.yHeight;
    if (mask & CFM_OFFSET) format.yOffset = change.yOffset;
    if (mask & CFM_CHARSET) format.bCharSet = change.bCharSet;
    if (mask & CFM_FACE) {
        std::fill(std::begin(format.szFaceName), std::end(format.szFaceName), u'\0');
        for (size_t i = 0; i + 1 < LF_FACESIZE && change.szFaceName[i]; ++i)
            format.szFaceName[i] = change.szFaceName[i];
        format.bPitchAndFamily = change.bPitchAndFamily;
    }
    if (change.cbSize != sizeof(CHARFORMAT2W)) return;
    if (mask & CFM_BACKCOLOR) {
        set_effects(CFE_AUTOBACKCOLOR);
        format.crBackColor = change.crBackColor;
    }
    if (mask & CFM_WEIGHT) {
        const bool bold = change.wWeight >= kLeastBold;
        format.wWeight = change.wWeight;
        format.dwEffects = (format.dwEffects & ~DWORD{CFE_BOLD}) | (bold ? DWORD{CFE_BOLD} : 0);
    }
}

RichText::RichText(const CHARFORMAT2W& standard)
    : paragraphs_(1, PlainParagraph())
    , standard_(standard) {}

std::u16string RichText::WithParagraphs(std::u16string_view text, bool many_lines) {
    std::u16string made;
    made.reserve(text.size());
    for (size_t i = 0; i < text.size(); ++i) {
        if (!IsBreak(text[i])) {
            made += text[i];
            continue;
        }
        if (!many_lines) break;
        made += u'\r';
        if (text[i] == u'\r' && i + 1 < text.size() && text[i + 1] == u'\n') ++i;
    }
    return made;
}

std::u16string RichText::WithLineBreaks(std::u16string_view text) {
    std::u16string made;
    made.reserve(text.size());
    for (const char16_t unit : text) {
        made += unit;
        if (unit == u'\r') made += u'\n';
    }
    return made;
}

size_t RichText::CutAt(size_t position) {
    size_t start = 0;
    for (size_t i = 0; i < runs_.size(); ++i) {
        if (position == start) return i;
        if (position < start + runs_[i].length) {
            Run rest = runs_[i];
            rest.length = start + rest.length - position;
            runs_[i].length -= rest.length;
            runs_.insert(runs_.begin() + static_cast<ptrdiff_t>(i) + 1, rest);
            return i + 1;
        }
        start += runs_[i].length;
    }
    return runs_.size();
}

void RichText::JoinEqual() {
    size_t kept = 0, start = 0;
    for (size_t i = 0; i < runs_.size(); ++i) {
        const size_t length = runs_[i].length;
        if (length == 0) continue;
        if (kept > 0 && IsSame(runs_[kept - 1].format, runs_[i].format)) {
            runs_[kept - 1].length += length;
        } else {
            if (kept != i) runs_[kept] = runs_[i];
            runs_[kept++].start = start;
        }
        start += length;
    }
    runs_.erase(runs_.begin() + static_cast<ptrdiff_t>(kept), runs_.end());
}

void RichText::Replace(size_t from, size_t to, std::u16string_view text,
                       const CHARFORMAT2W& format) {
    // The format may be one of this text's own.
    CHARFORMAT2W kept = format;
    kept.cbSize = sizeof(kept);
    kept.dwMask = kAllOfFormat;
    to = std::min(to, Length());
    from = std::min(from, to);
    const size_t paragraph = ParagraphAt(from);
    const auto removed = std::count(text_.begin() + static_cast<ptrdiff_t>(from),
                                    text_.begin() + static_cast<ptrdiff_t>(to), u'\r');
    const auto added = std::count(text.begin(), text.end(), u'\r');
    const auto next = paragraphs_.begin() + static_cast<ptrdiff_t>(paragraph) + 1;
    if (added > removed)
        paragraphs_.insert(next, static_cast<size_t>(added - removed),
                           PARAFORMAT2(paragraphs_[paragraph]));
    else
        paragraphs_.erase(next, next + (removed - added));

    const size_t first = CutAt(from);
    const size_t last = CutAt(to);
    runs_.erase(runs_.begin() + static_cast<ptrdiff_t>(first),
                runs_.begin() + static_cast<ptrdiff_t>(last));
    runs_.insert(runs_.begin() + static_cast<ptrdiff_t>(first), Run{text.size(), kept, from});
    text_.replace(from, to - from, text);
    JoinEqual();
}

void RichText::Reset(std::u16string_view text, const CHARFORMAT2W& format) {
    standard_ = format;
    text_.clear();
    runs_.clear();
    paragraphs_.assign(1, PlainParagraph());
    Replace(0, 0, text, standard_);
}

const RichText::Run* RichText::RunAt(size_t position) const {
    if (position >= Length()) return nullptr;
    const auto after =
        std::upper_bound(runs_.begin(), runs_.end(), position,
                         [](size_t wanted, const Run& run) { return wanted < run.start; });
    return &*(after - 1);
}

const CHARFORMAT2W& RichText::FormatAt(size_t position) const {
    if (const Run* run = RunAt(position)) return run->format;
    return runs_.empty() ? standard_ : runs_.back().format;
}

size_t RichText::EndOfFormat(size_t position) const {
    const Run* run = RunAt(position);
    return run ? run->start + run->length : Length();
}

const CHARFORMAT2W& RichText::FormatForTyping(size_t position) const {
    return FormatAt(position > 0 ? position - 1 : 0);
}

CHARFORMAT2W RichText::FormatOf(size_t from, size_t to) const {
    CHARFORMAT2W common = from < to ? FormatAt(from) : FormatForTyping(from);
    size_t start = 0;
    for (const Run& run : runs_) {
        if (start < to && start + run.length > from) KeepCommon(common, run.format);
        start += run.length;
    }
    return common;
}

void RichText::SetFormat(size_t from, size_t to, const CHARFORMAT2W& change) {
    to = std::min(to, Length());
    from = std::min(from, to);
    const size_t first = CutAt(from);
    const size_t last = CutAt(to);
    for (size_t i = first; i < last; ++i) ApplyFormat(runs_[i].format, change);
    JoinEqual();
}

bool RichText::HasProtected(size_t from, size_t to) const {
    size_t start = 0;
    for (const Run& run : runs_) {
        if (start < to && start + run.length > from && run.format.dwEffects & CFE_PROTECTED)
            return true;
        start += run.length;
    }
    return false;
}

size_t RichText::ParagraphAt(size_t position) const {
    const size_t end = std::min(position, Length());
    return static_cast<size_t>(
        std::count(text_.begin(), text_.begin() + static_cast<ptrdiff_t>(end), u'\r'));
}

const PARAFORMAT2& RichText::ParagraphFormat(size_t paragraph) const {
    return paragraphs_[std::min(paragraph, paragraphs_.size() - 1)];
}

PARAFORMAT2 RichText::ParagraphFormatOf(size_t from, size_t to) const {
    const size_t first = ParagraphAt(from);
    const size_t last = ParagraphAt(to);
    PARAFORMAT2 common = paragraphs_[first];
    for (size_t i = first + 1; i <= last; ++i) {
        const PARAFORMAT2& other = paragraphs_[i];
        const auto drop_unless = [&](bool same, DWORD bit) {
            if (!same) common.dwMask &= ~bit;
        };
        drop_unless(common.dxStartIndent == other.dxStartIndent, PFM_STARTINDENT);
        drop_unless(common.dxRightIndent == other.dxRightIndent, PFM_RIGHTINDENT);
        drop_unless(common.dxOffset == other.dxOffset, PFM_OFFSET);
        drop_unless(common.wAlignment == other.wAlignment, PFM_ALIGNMENT);
        drop_unless(common.cTabCount == other.cTabCount &&
                        memcmp(common.rgxTabs, other.rgxTabs, sizeof(common.rgxTabs)) == 0,
                    PFM_TABSTOPS);
    }
    return common;
}

void RichText::SetParagraphFormat(size_t from, size_t to, const PARAFORMAT& change) {
    const size_t last = ParagraphAt(to);
    for (size_t i = ParagraphAt(from); i <= last; ++i) {
        PARAFORMAT2& format = paragraphs_[i];
        if (change.dwMask & PFM_STARTINDENT) format.dxStartIndent = change.dxStartIndent;
        if (change.dwMask & PFM_RIGHTINDENT) format.dxRightIndent = change.dxRightIndent;
        if (change.dwMask & PFM_OFFSET) format.dxOffset = change.dxOffset;
        if (change.dwMask & PFM_ALIGNMENT) format.wAlignment = change.wAlignment;
        if (change.dwMask & PFM_TABSTOPS) {
            const auto count = std::clamp<SHORT>(change.cTabCount, 0, MAX_TAB_STOPS);
            std::fill(std::begin(format.rgxTabs), std::end(format.rgxTabs), 0);
            std::copy_n(change.rgxTabs, count, format.rgxTabs);
            format.cTabCount = count;
        }
    }
}

bool RichText::IsWhole() const {
    size_t length = 0;
    for (const Run& run : runs_) {
        if (run.length == 0 || run.start != length) return false;
        length += run.length;
    }
    return length == Length() && paragraphs_.size() == ParagraphAt(Length()) + 1;
}

} // namespace win32host
