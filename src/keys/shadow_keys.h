// A user's copy of the settings of another machine's printer, kept in step with that machine.
#pragma once

#include "core/ostring.h"

// The copy is the shadow tree of prtreg, and what it covers are the keys that
// prtreg::EnumShadowKeys lists. Both operations take the printer's full name and do nothing for a
// printer without a shadow tree and for one whose server does not share its settings. They say
// nothing of failure: a server that cannot be reached, a user who may not administer the printer
// and an answer that makes no sense leave everything as it was.
//
// The server is asked through the printer's data (see config/shadow_request.h for the questions and
// config/shared_keys_text.h for what travels). Beside each key of the copy stands a REG_DWORD named
// as the key with " CRC32" behind it, the checksum of the key's text when the server was last asked
// ("DATA:Settings CRC32").
//
// Several users and processes may be at it at a time; the server takes them one after the other.

// Brings the copy up to date: every key that the server has another text of is replaced by it.
void CreateShadow(const OString& printer_name);

// Sends the copy to the server, which takes it over.
void CommitShadow(const OString& printer_name);
