// A user's copy of the settings of another machine's printer, kept in step with that machine.
#pragma once

#include "core/ostring.h"

// The copy is the shadow tree of prtreg. It has the keys that prtreg::EnumShadowKeys lists. Both
// operations take the printer's full name and do nothing for a printer without a shadow tree or one
// whose server does not share its settings. They do not report failure: if the server cannot be
// reached, the user may not administer the printer, or an answer makes no sense, everything stays
// as it was.
//
// The server is asked through the printer's data (see keys/shadow_request.h for the questions and
// keys/shared_keys_text.h for the data). Beside each key of the copy is a REG_DWORD with the key's
// name followed by " CRC32" ("DATA:Settings CRC32"): the checksum of the key's text when the server
// was last asked.
//
// Several users and processes may do this at the same time. The server handles them one by one.

// Brings the copy up to date by replacing every key whose text on the server is different.
void CreateShadow(const OString& printer_name);

// Sends the copy to the server, which takes it over. Values with characters that the code page
// lacks are left out, and the server then has none of that name.
void CommitShadow(const OString& printer_name);
