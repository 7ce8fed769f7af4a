// How the text of an edit field changes.
#include "window/clipboard.h"
#include "window/edit.h"

#include <algorithm>
#include <utility>

namespace win32host {

std::u16string EditField::InCase(std::u16string text) const {
    const DWORD style = Style();
    if (style & ES_UPPERCASE) CharUpperW(text.data());
    if (style & ES_LOWERCASE) CharLowerW(text.data());
    return text;
}

void EditField::TellChange() {
    ScrollToCaret();
    Redraw();
    NotifyCommand(EN_UPDATE);
    if (IsWindow(Self())) NotifyCommand(EN_CHANGE);
}

void EditField::SetText(LPCWSTR text) {
    text_ = InCase(text ? text : u"");
    anchor_ = caret_ = 0;
    undo_ = {};
    if (HasLines()) modified_ = false;
    first_line_ = 0;
    scrolled_x_ = 0;
    BreakIntoLines();
    Redraw();
}

void EditField::Replace(size_t from, size_t to, std::u16string_view with) {
    text_.replace(from, to - from, with);
    anchor_ = caret_ = from + with.size();
    modified_ = true;
    BreakIntoLines();
}

void EditField::Remember(size_t from, std::u16string_view removed, size_t inserted) {
    // Characters that are typed or deleted one after the other are one change.
    if (removed.empty() && !undo_.IsNone() && from == undo_.start + undo_.inserted) {
        undo_.inserted += inserted;
        return;
    }
    if (inserted == 0 && undo_.inserted == 0 && !undo_.removed.empty()) {
        if (from == undo_.start) {
            undo_.removed += removed;
            return;
        }
        if (from + removed.size() == undo_.start) {
            undo_.removed.insert(0, removed);
            undo_.start = from;
            return;
        }
    }
    undo_ = {from, std::u16string(removed), inserted};
}

size_t EditField::FittingLength(const std::u16string& text) const {
    const DWORD scrolls = HasLines() ? ES_AUTOVSCROLL | WS_VSCROLL : ES_AUTOHSCROLL;
    if (text.empty() || Style() & scrolls) return text.size();
    const RECT rect = TextRect();
    const int width = static_cast<int>(rect.right - rect.left);
    // What was too long before cannot be helped.
    const size_t most = std::max<size_t>(static_cast<size_t>(VisibleLines()), layout_.Count());
    EditLayout lines = layout_;
    const size_t start = SelectionStart();
    const auto fits = [&](size_t length) {
        std::u16string all = text_;
        all.replace(start, SelectionEnd() - start, text, 0, length);
        if (!HasLines()) return layout_.Width(all) <= width;
        lines.BreakLines(all, Wraps() ? width : 0);
        return lines.Count() <= most;
    };
    if (fits(text.size())) return text.size();
    size_t fitting = 0; // in any case
    for (size_t beyond = text.size(); beyond - fitting > 1;) {
        const size_t middle = fitting + (beyond - fitting) / 2;
        (fits(middle) ? fitting : beyond) = middle;
    }
    return fitting;
}

void EditField::Insert(std::u16string text) {
    if (text.empty() && !HasSelection()) return;
    const size_t start = SelectionStart();
    const size_t end = SelectionEnd();
    const size_t rest = text_.size() - (end - start);
    const size_t room = limit_ > rest ? limit_ - rest : 0;
    size_t length = std::min(text.size(), room);
    const bool cut = length < text.size();
    text.resize(length);
    length = FittingLength(text);
    const bool too_wide = length < text.size();
    text.resize(length);
    if (cut || too_wide) {
        NotifyCommand(EN_MAXTEXT);
        // Whoever is told may have changed the field.
        if (!IsWindow(Self()) || SelectionStart() != start || SelectionEnd() != end ||
            end > text_.size())
            return;
    }
    text = InCase(std::move(text));
    const std::u16string removed = text_.substr(start, end - start);
    if (!text.empty() || !removed.empty()) Remember(start, removed, text.size());
    Replace(start, end, text);
    TellChange();
}

void EditField::Delete(size_t from, size_t to) {
    if (from == to) return;
    Remember(from, text_.substr(from, to - from), 0);
    Replace(from, to, u"");
    TellChange();
}

void EditField::Undo() {
    if (undo_.IsNone()) return;
    // What is taken back becomes the change that can be taken back.
    const Change change = std::exchange(undo_, {});
    const size_t end = change.start + change.inserted;
    undo_ = {change.start, text_.substr(change.start, change.inserted), change.removed.size()};
    Replace(change.start, end, change.removed);
    anchor_ = change.start;
    TellChange();
}

void EditField::Copy() const {
    // Nobody gets to see a password.
    if (!HasSelection() || password_) return;
    SetClipboardText(text_.substr(SelectionStart(), SelectionEnd() - SelectionStart()));
}

void EditField::Cut() {
    if (IsReadOnly() || password_) return;
    Copy();
    Delete(SelectionStart(), SelectionEnd());
}

void EditField::Paste() {
    if (IsReadOnly()) return;
    std::u16string text = ClipboardText();
    // A field of one line takes the first one.
    if (!HasLines()) text.resize(std::min(text.size(), text.find_first_of(u"\r\n")));
    Insert(std::move(text));
}

} // namespace win32host
