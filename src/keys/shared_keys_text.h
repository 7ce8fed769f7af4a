// The text of the settings that a server and its clients exchange.
#pragma once

#include "core/obuffer.h"
#include "core/ostring.h"
#include "core/ostring_array.h"
#include "registry/oregistry.h"
#include "registry/oregistry_text.h"

// Settings are exchanged in the registry's text form (see ORegistry::Export): keys below the
// printer's data and below the driver's machine-wide settings, with the names that the client uses.

// Appends to `result` the lines of the keys that a client may share, put below other keys.
//
// `lines` names the keys as the machine with the printer `printer` does:
//
//   HKEY_LOCAL_MACHINE\SYSTEM\CurrentControlSet\Control\Print\Printers\PRINTER\PrinterDriverData\K
//   HKEY_LOCAL_MACHINE\SOFTWARE\Valdrick\Drivers\K
//
// or by the places of their copies in a user's shadow tree. They come out as K below `data` or
// `local`, paths in Windows notation. All other keys, values before the first key, and the two keys
// themselves are left out: the text comes from another machine, which must not reach anything else.
void RenameSharedKeys(const OStringArray& lines, const OString& printer, const OString& data,
                      const OString& local, OStringArray& result);

// Takes the lines of an export, and appends those that an 8-bit list can carry. A value with a
// character that the code page lacks is left out, and a key with such a name as well: on the other
// machine they would stand in place of what is meant.
class SurvivingLines final : public RegistryLines {
public:
    explicit SurvivingLines(OStringArray& lines)
        : lines_(lines) {}
    void Add(const WideText& line) override;

private:
    OStringArray& lines_;
    bool key_left_out_ = false;
    bool left_out_ = false; // the value, or the key
};

// The checksum of lines: that of their 8-bit forms with their terminators. The second is that of
// the lines in an export of the key, or 0 if the path has no root.
uint32_t SharedKeysChecksum(const OStringArray& lines);
uint32_t SharedKeysChecksum(ORegistry& registry, const OString& key);

// Packs lines into the bytes that travel, a compressed list of 8-bit strings, and back. Unpacking
// appends. False without memory and when the bytes are no such list, or one beyond the limits.
bool PackSharedKeys(const OStringArray& lines, OBuffer<char>& bytes);
bool UnpackSharedKeys(const OBuffer<char>& bytes, OStringArray& lines);

// The printer data that carries the bytes, and the one that has their size.
inline constexpr char kSharedKeyData[] = "Shadow Key Data";
inline constexpr char kSharedKeySize[] = "Shadow Key Size";

// More than this is not taken from another machine: bytes, and the text and its lines that they
// unpack to. No printer's settings come near; but a thousand bytes could unpack to a million lines,
// and every program that prints would work through them.
inline constexpr uint32_t kMaxSharedKeyData = 0x4000000;
inline constexpr uint32_t kMaxSharedKeyText = 0x4000000;
inline constexpr int kMaxSharedKeyLines = 1000000;
