// The shared body of strings.
#pragma once

#include <windows.h>

#include <cstdint>

// One text in up to two forms: 8-bit in the body's code page, and UTF-16. Only OString uses it.
//
// A form is valid if its block exists and does not begin with NUL. If both are valid they hold the
// same text. A form that is overwritten by a write to the other keeps its block for later.
//
// Every block has room for `capacity` characters with the terminator: the 16-bit block is twice
// that many bytes, the 8-bit block twice as well, or four times for UTF-8, so that a double-byte or
// UTF-8 text of capacity - 1 characters fits. A conversion that needs even more takes a larger
// block. The length of a form is remembered, except while a caller may be writing into its block.
//
// Operations that allocate return false if there is no memory, and leave the text unchanged.
class OStringCore {
public:
    static constexpr uint32_t kUTF8 = 1208; // the code page of our own coder
    static constexpr uint32_t kMaxLength = 0x1FFFFFFF;

    OStringCore() = default;
    ~OStringCore();
    OStringCore(const OStringCore&) = delete;
    OStringCore& operator=(const OStringCore&) = delete;

    // A copy with a reference count of 1, or null if there is no memory.
    OStringCore* Clone() const;

    uint32_t reference_count = 1;

    char* n() const { return n_; }
    WCHAR* w() const { return w_; }
    bool is_valid_n() const { return n_ && *n_; }
    bool is_valid_w() const { return w_ && *w_; }

    // The length of a form in its own characters, or 0 if it is not valid.
    uint32_t nlen() const {
        if (!is_valid_n()) return 0;
        return n_length_ == kUnknown ? CountN() : n_length_;
    }
    uint32_t wlen() const {
        if (!is_valid_w()) return 0;
        return w_length_ == kUnknown ? CountW() : w_length_;
    }

    // Notes the length of a form just written, and puts the terminator there.
    void end_n(uint32_t length) {
        n_[length] = 0;
        n_length_ = length;
    }
    void end_w(uint32_t length) {
        w_[length] = 0;
        w_length_ = length;
    }

    // Makes a form invalid; its block stays.
    void invalidate_n() {
        if (n_) end_n(0);
    }
    void invalidate_w() {
        if (w_) end_w(0);
    }

    // From now on a caller may write into the block at any time.
    void expose_n() { n_length_ = kUnknown; }
    void expose_w() { w_length_ = kUnknown; }

    uint32_t capacity() const { return capacity_; }
    uint32_t code_page() const { return code_page_; }

    // Changes the code page. The text survives: an 8-bit form is first converted to the 16-bit
    // form, and comes back in the new code page when next asked for.
    void SetCodePage(uint32_t code_page);

    // Makes room for `length` characters. With `keep` the valid forms stay, without it both become
    // invalid. Blocks never shrink.
    bool set_length(uint32_t length, bool keep);

    // Allocate the block of a form if it has none. A new block holds the empty text.
    bool alloc_n() { return n_ || reserve_n(0); }
    bool alloc_w() { return w_ || reserve_w(0); }
    void free_n();
    void free_w();

    // Fill one form from the other, which is valid.
    bool n_to_w();
    bool w_to_n();

private:
    static constexpr uint32_t kUnknown = UINT32_MAX;

    uint32_t CountN() const;
    uint32_t CountW() const;
    void SetSize(uint32_t length) { capacity_ = (length + 32) & ~31u; }
    size_t BytesN() const;
    size_t BytesW() const;
    bool reserve_n(size_t bytes);
    bool reserve_w(size_t bytes);

    char* n_ = nullptr;
    WCHAR* w_ = nullptr;
    uint32_t capacity_ = 0;
    uint32_t code_page_ = 0;
    uint32_t n_length_ = 0;
    uint32_t w_length_ = 0;
};
