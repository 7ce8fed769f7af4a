// Answers of the spooler that come in buffers.
#pragma once

#include <windows.h>

#include <vector>

// A filled buffer, and the structures at its start.
template <class Info>
class Answer {
public:
    // `ask(buffer, size, needed)` is as the API wants it. Empty on failure.
    template <class Ask>
    explicit Answer(const Ask& ask) {
        DWORD needed = 0;
        if (ask(nullptr, 0, &needed)) return;
        buffer_.resize(needed);
        if (!ask(buffer_.data(), needed, &needed)) buffer_.clear();
    }
    bool good() const { return !buffer_.empty(); }
    const Info& operator[](size_t i) const {
        return reinterpret_cast<const Info*>(buffer_.data())[i];
    }
    const Info* operator->() const { return &(*this)[0]; }
    const std::vector<BYTE>& buffer() const { return buffer_; }

private:
    std::vector<BYTE> buffer_;
};
