#include "core/ostring_core.h"

#include <algorithm>
#include <climits>
#include <cstring>
#include <string>

#include "core/locale_utility.h"
#include "core/memory.h"

namespace {

uint32_t Length(const char* text) {
    return static_cast<uint32_t>(std::strlen(text));
}

uint32_t Length(const WCHAR* text) {
    return static_cast<uint32_t>(std::char_traits<WCHAR>::length(text));
}

// The size of a block in the type that the platform's converters take.
int Room(size_t size) {
    return static_cast<int>(std::min<size_t>(size, INT_MAX));
}

} // namespace

OStringCore::~OStringCore() {
    free_n();
    free_w();
}

OStringCore* OStringCore::Clone() const {
    OStringCore* copy = new (kCounted) OStringCore;
    if (!copy) return nullptr;
    copy->capacity_ = capacity_;
    copy->code_page_ = code_page_;
    const bool room = (!is_valid_n() || copy->reserve_n(nlen() + size_t{1})) &&
                      (!is_valid_w() || copy->reserve_w((wlen() + size_t{1}) * sizeof(WCHAR)));
    if (!room) {
        delete copy;
        return nullptr;
    }
    if (is_valid_n()) {
        std::memcpy(copy->n_, n_, nlen());
        copy->end_n(nlen());
    }
    if (is_valid_w()) {
        std::memcpy(copy->w_, w_, wlen() * sizeof(WCHAR));
        copy->end_w(wlen());
    }
    return copy;
}

uint32_t OStringCore::CountN() const {
    return Length(n_);
}

uint32_t OStringCore::CountW() const {
    return Length(w_);
}

void OStringCore::SetCodePage(uint32_t code_page) {
    if (code_page == code_page_) return;
    if (is_valid_n() && !is_valid_w()) n_to_w();
    // A block sized for one code page is of no use in another.
    free_n();
    code_page_ = code_page;
}

bool OStringCore::set_length(uint32_t length, bool keep) {
    if (length > kMaxLength) return false;
    if (length < capacity_) {
        if (!keep) {
            invalidate_n();
            invalidate_w();
        }
        return true;
    }
    if (!keep) {
        free_n();
        free_w();
        SetSize(length);
        return true;
    }
    // Growing by half avoids moving a text on every append.
    const uint32_t old_capacity = capacity_;
    SetSize(std::max(length, std::min(capacity_ + capacity_ / 2, kMaxLength)));
    OStringCore* moved = Clone();
    if (!moved) {
        capacity_ = old_capacity;
        return false;
    }
    std::swap(n_, moved->n_);
    std::swap(w_, moved->w_);
    n_length_ = moved->n_length_;
    w_length_ = moved->w_length_;
    delete moved;
    return true;
}

size_t OStringCore::BytesN() const {
    return size_t{capacity_} * (code_page_ == kUTF8 ? 4 : 2);
}

size_t OStringCore::BytesW() const {
    return size_t{capacity_} * sizeof(WCHAR);
}

// Allocates the 8-bit block if there is none or it has less than `bytes` bytes.
bool OStringCore::reserve_n(size_t bytes) {
    if (n_ && ___msize(n_) >= bytes) return true;
    free_n();
    n_ = static_cast<char*>(___malloc(std::max(bytes, BytesN())));
    if (n_) end_n(0);
    return n_ != nullptr;
}

bool OStringCore::reserve_w(size_t bytes) {
    if (w_ && ___msize(w_) >= bytes) return true;
    free_w();
    w_ = static_cast<WCHAR*>(___malloc(std::max(bytes, BytesW())));
    if (w_) end_w(0);
    return w_ != nullptr;
}

void OStringCore::free_n() {
    ___free(n_);
    n_ = nullptr;
    n_length_ = 0;
}

void OStringCore::free_w() {
    ___free(w_);
    w_ = nullptr;
    w_length_ = 0;
}

bool OStringCore::n_to_w() {
    // Hardly any code page has more units than bytes.
    const uint32_t length = nlen();
    if (!reserve_w((length + size_t{1}) * sizeof(WCHAR))) return false;
    if (code_page_ == kUTF8) {
        w_[LocaleUtility::ConvertUTF8(n_, length, w_)] = 0;
    } else if (!MultiByteToWideChar(code_page_, 0, n_, -1, w_,
                                    Room(___msize(w_) / sizeof(WCHAR)))) {
        const int units = MultiByteToWideChar(code_page_, 0, n_, -1, nullptr, 0);
        if (units <= 0 || !reserve_w(static_cast<size_t>(units) * sizeof(WCHAR)) ||
            !MultiByteToWideChar(code_page_, 0, n_, -1, w_, units)) {
            invalidate_w();
            return false;
        }
    }
    w_length_ = Length(w_);
    return true;
}

bool OStringCore::w_to_n() {
    const uint32_t length = wlen();
    if (code_page_ == kUTF8) {
        if (!reserve_n(length * size_t{3} + 1)) return false;
        end_n(LocaleUtility::ConvertUTF8(w_, length, n_));
        return true;
    }
    if (!reserve_n(length * size_t{2} + 1)) return false;
    if (!WideCharToMultiByte(code_page_, 0, w_, -1, n_, Room(___msize(n_)), nullptr, nullptr)) {
        // A code page with more than two bytes a character.
        const int bytes = WideCharToMultiByte(code_page_, 0, w_, -1, nullptr, 0, nullptr, nullptr);
        if (bytes <= 0 || !reserve_n(static_cast<size_t>(bytes)) ||
            !WideCharToMultiByte(code_page_, 0, w_, -1, n_, bytes, nullptr, nullptr)) {
            invalidate_n();
            return false;
        }
    }
    n_length_ = Length(n_);
    return true;
}
