// The questions of a client to the server of a printer about its shared settings.
#pragma once

#include <cstddef>
#include <cstdint>

#include "core/oarray.h"
#include "core/ostring.h"
#include "core/ostring_array.h"

// A document that is the name of a printer data value. Reading the value asks the question. 8-bit
// text without line breaks:
//
//   <xpml><registry action='export' name='Dock3' tick='4711'>
//   "DATA:Settings",78563412;"LOCAL:Paper Sizes",00000000;</registry></xpml>
//
// Each key (a path as prtreg::EnumShadowKeys lists it) is followed by a checksum of its text in
// hexadecimal, least significant byte first.
struct ShadowRequest {
    enum Action {
        EXPORT, // prepare the keys that differ from these checksums; the answer is the data's size
        IMPORT  // take over what the client has left; checksums are ignored
    };

    Action action = EXPORT;
    OString printer;   // without its server
    int32_t tick = 0;  // makes every request a different name, so that no cache can answer
    OStringArray keys; // as many as checksums
    OTypedArray<uint32_t> checksums;

    // Appends a key.
    void Add(const OString& key, uint32_t checksum);

    // The document.
    OString Text() const;

    // Reads the document. False if it is not such a document; the request is then unusable.
    bool Parse(const char* text, size_t size);
};
