#include "core/ostring.h"

#include <algorithm>
#include <charconv>
#include <climits>
#include <cstdarg>
#include <cstring>
#include <functional>
#include <string>

#include "core/memory.h"
#include "core/ostring_core.h"

namespace {

constexpr WCHAR kEmptyW[] = {0};

uint32_t LengthOrZero(const char* text) {
    return text ? static_cast<uint32_t>(std::min<size_t>(std::strlen(text), INT_MAX)) : 0;
}

uint32_t LengthOrZero(const WCHAR* text) {
    if (!text) return 0;
    return static_cast<uint32_t>(std::min<size_t>(std::char_traits<WCHAR>::length(text), INT_MAX));
}

template <class Unit>
Unit FoldCase(Unit c) {
    return c >= 'a' && c <= 'z' ? static_cast<Unit>(c - 'a' + 'A') : c;
}

// The order of two terminated texts by their units.
template <class Unit, class C>
int Order(const C* a, const C* b, bool fold) {
    for (;; ++a, ++b) {
        Unit x = static_cast<Unit>(*a);
        Unit y = static_cast<Unit>(*b);
        if (fold) {
            x = FoldCase(x);
            y = FoldCase(y);
        }
        if (x != y) return x < y ? -1 : 1;
        if (x == 0) return 0;
    }
}

int Order(const OString& a, const OString& b, bool fold) {
    if (a._IsUnicodeOperation(b)) return Order<uint16_t>(a.wstring(), b.wstring(), fold);
    return Order<signed char>(a.nstring(), b.nstring(), fold);
}

} // namespace

OString::OString(const OString& other)
    : core_(other.core_) {
    if (core_) ++core_->reference_count;
}

OString::OString(const char* text) {
    *this = text;
}

OString::OString(const WCHAR* text) {
    *this = text;
}

OString& OString::operator=(const OString& other) {
    if (other.core_) ++other.core_->reference_count;
    OStringCore* core = other.core_;
    ReleaseCore();
    core_ = core;
    return *this;
}

OString& OString::operator=(OString&& other) noexcept {
    if (this != &other) {
        ReleaseCore();
        core_ = std::exchange(other.core_, nullptr);
    }
    return *this;
}

template <class C>
OString& OString::Assign(const C* text) {
    if (Owns(text)) {
        OString copy;
        copy.SetCodePage(GetCodePage());
        copy = text;
        return *this = std::move(copy);
    }
    const uint32_t length = LengthOrZero(text);
    if (WriteNew() && core_->set_length(length, false) && length != 0) Append(text, length);
    return *this;
}

OString& OString::operator=(const char* text) {
    return Assign(text);
}

OString& OString::operator=(const WCHAR* text) {
    return Assign(text);
}

void OString::ReleaseCore() {
    if (core_ && --core_->reference_count == 0) delete core_;
    core_ = nullptr;
}

void OString::ChangeCore() {
    if (!core_) {
        core_ = new (kCounted) OStringCore;
    } else if (core_->reference_count > 1) {
        --core_->reference_count;
        core_ = core_->Clone();
    }
}

OString OString::OwnCopy() const {
    OString own(*this);
    own.ChangeCore();
    return own;
}

bool OString::WriteNew() {
    if (!core_ || core_->reference_count > 1) {
        const uint32_t code_page = GetCodePage();
        ReleaseCore();
        ChangeCore();
        if (core_) core_->SetCodePage(code_page);
    }
    return core_ != nullptr;
}

bool OString::WriteN() {
    if (core_ && core_->reference_count == 1 && core_->is_valid_n()) {
        core_->invalidate_w();
        return true;
    }
    if (is_valid_w() && !is_valid_n() && !core_->w_to_n()) return false;
    ChangeCore();
    if (!core_) return false;
    core_->invalidate_w();
    return true;
}

bool OString::WriteW() {
    if (core_ && core_->reference_count == 1 && core_->is_valid_w()) {
        core_->invalidate_n();
        return true;
    }
    if (is_valid_n() && !is_valid_w() && !core_->n_to_w()) return false;
    ChangeCore();
    if (!core_) return false;
    core_->invalidate_n();
    return true;
}

bool OString::Owns(const void* text) const {
    const std::less<const void*> before;
    const auto inside = [&](const void* block) {
        return block && !before(text, block) &&
               before(text, static_cast<const char*>(block) + ___msize(block));
    };
    return core_ && text && (inside(core_->n()) || inside(core_->w()));
}

uint32_t OString::GetCodePage() const {
    return core_ ? core_->code_page() : 0;
}

void OString::SetCodePage(uint32_t code_page) {
    if (code_page == GetCodePage()) return;
    ChangeCore();
    if (core_) core_->SetCodePage(code_page);
}

bool OString::is_valid_n() const {
    return core_ && core_->is_valid_n();
}

bool OString::is_valid_w() const {
    return core_ && core_->is_valid_w();
}

int OString::GetLength() const {
    return is_valid_w() ? wlen() : nlen();
}

const char* OString::nstring() const {
    if (is_valid_n() || (is_valid_w() && core_->w_to_n())) return core_->n();
    return "";
}

const WCHAR* OString::wstring() const {
    if (is_valid_w() || (is_valid_n() && core_->n_to_w())) return core_->w();
    return kEmptyW;
}

int OString::nlen() const {
    return core_ ? static_cast<int>(core_->nlen()) : 0;
}

int OString::wlen() const {
    return core_ ? static_cast<int>(core_->wlen()) : 0;
}

char* OString::GetBufferA(int length) {
    const uint32_t room = static_cast<uint32_t>(std::max(length, 0));
    if (!WriteNew() || !core_->set_length(room, false) || !core_->alloc_n()) return nullptr;
    core_->expose_n();
    return core_->n();
}

WCHAR* OString::GetBufferW(int length) {
    const uint32_t room = static_cast<uint32_t>(std::max(length, 0));
    if (!WriteNew() || !core_->set_length(room, false) || !core_->alloc_w()) return nullptr;
    core_->expose_w();
    return core_->w();
}

void OString::Format(const WCHAR* format, ...) {
    // Into a local buffer, so that an argument may be this string's text.
    WCHAR text[4096 + 1] = {0};
    if (format) {
        va_list arguments;
        va_start(arguments, format);
        wvsprintfW(text, format, arguments);
        va_end(arguments);
    }
    *this = text;
}

// ---- Appending ----------------------------------------------------------------------------------

OString& OString::operator<<(const OString& text) {
    if (text.IsEmpty()) return *this;
    if (IsEmpty()) return *this = text;
    if (&text == this) return *this << OString(text);
    if (_IsUnicodeOperation(text)) {
        const WCHAR* units = text.wstring();
        return Append(units, static_cast<uint32_t>(text.wlen()));
    }
    return Append(text.nstring(), static_cast<uint32_t>(text.nlen()));
}

OString& OString::operator<<(const char* text) {
    if (is_valid_n() && !is_valid_w() && GetCodePage() == 0 && text && !Owns(text))
        return Append(text, LengthOrZero(text));
    return *this << OString(text);
}

OString& OString::operator<<(const WCHAR* text) {
    if (!IsEmpty() && text && *text && !Owns(text)) return Append(text, LengthOrZero(text));
    return *this << OString(text);
}

OString& OString::operator<<(char c) {
    return c == 0 ? *this : Append(&c, 1);
}

OString& OString::operator<<(WCHAR c) {
    return c == 0 ? *this : Append(&c, 1);
}

OString& OString::Append(const char* text, uint32_t length) {
    if (!WriteN()) return *this;
    const uint32_t old_length = core_->nlen();
    if (!core_->set_length(old_length + length, true) || !core_->alloc_n()) return *this;
    std::memcpy(core_->n() + old_length, text, length);
    core_->end_n(old_length + length);
    return *this;
}

OString& OString::Append(const WCHAR* text, uint32_t length) {
    if (!WriteW()) return *this;
    const uint32_t old_length = core_->wlen();
    if (!core_->set_length(old_length + length, true) || !core_->alloc_w()) return *this;
    std::memcpy(core_->w() + old_length, text, length * sizeof(WCHAR));
    core_->end_w(old_length + length);
    return *this;
}

OString& OString::AppendNumber(bool negative, uint64_t magnitude) {
    char digits[24];
    digits[0] = '-';
    char* end = std::to_chars(digits + 1, digits + sizeof(digits) - 1, magnitude).ptr;
    *end = 0;
    return *this << static_cast<const char*>(negative ? digits : digits + 1);
}

OString operator+(const OString& a, const OString& b) {
    OString sum(a);
    sum << b;
    return sum;
}

OString operator+(const OString& a, const char* b) {
    OString sum(a);
    sum << b;
    return sum;
}

OString operator+(const OString& a, char b) {
    OString sum(a);
    sum << b;
    return sum;
}

OString& operator<<(OString& text, OString& (*manipulator)(OString&)) {
    return manipulator(text);
}

OString& tab(OString& text) {
    return text << "\t";
}

OString& endl(OString& text) {
    return text << "\r\n";
}

OString& clear(OString& text) {
    text.Truncate(0);
    return text;
}

OString FormatInt(int32_t number) {
    OString text;
    text << number;
    return text;
}

// ---- Comparing ----------------------------------------------------------------------------------

int OString::Collate(const OString& other) const {
    return Order(*this, other, false);
}

int OString::CompareNoCase(const OString& other) const {
    return Order(*this, other, true);
}

bool OString::operator==(const OString& other) const {
    if (core_ == other.core_) return true;
    if (_IsUnicodeOperation(other)) return Order<uint16_t>(wstring(), other.wstring(), false) == 0;
    return std::strcmp(nstring(), other.nstring()) == 0;
}

bool OString::operator==(const char* text) const {
    return *this == OString(text);
}

bool OString::_IsUnicodeOperation(const OString& other) const {
    return is_valid_w() || other.is_valid_w() || GetCodePage() != other.GetCodePage();
}
