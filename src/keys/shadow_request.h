// The questions that a client asks the server of a printer about its shared settings.
#pragma once

#include <cstddef>
#include <cstdint>

#include "core/oarray.h"
#include "core/ostring.h"
#include "core/ostring_array.h"

// A document that is the name of a printer data value; reading the value asks the question. 8-bit
// text without line breaks:
//
//   <xpml><registry action='export' name='Dock3' tick='4711'>
//   "DATA:Settings",78563412;"LOCAL:Paper Sizes",00000000;</registry></xpml>
//
// Behind each key (a path as prtreg::EnumShadowKeys lists it) stands a checksum of its text in
// hexadecimal, least significant byte first.
struct ShadowRequest {
    enum Action {
        EXPORT, // make ready what differs from these checksums; the answer is its size
        IMPORT  // take over what the client has left; checksums do not count
    };

    Action action = EXPORT;
    OString printer;   // without its server
    int32_t tick = 0;  // makes every request another name, so that nobody answers from memory
    OStringArray keys; // as many as checksums
    OTypedArray<uint32_t> checksums;

    // Appends a key.
    void Add(const OString& key, uint32_t checksum);

    // The document.
    OString Text() const;

    // Becomes what the document says. False when it is no such document; the request is then good
    // for nothing.
    bool Parse(const char* text, size_t size);
};
