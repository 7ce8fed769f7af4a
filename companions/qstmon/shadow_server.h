// The settings that a print server shares with those who are connected to its printers.
#pragma once

#include <windows.h>

#include <cstdint>
#include <optional>
#include <string_view>

// Answers the questions of clients (see config/shadow_request.h), in the order in which they come.
// `printer` is the full name of a printer, of this machine or of another one.
//
// A question for news leaves in the printer's data "Shadow Key Data" (see
// config/shared_keys_text.h) all keys whose text the client does not have, and names for deletion
// those that only the client has; the answer is the size of it, 0 when there is nothing new. Keys
// are named as the client names its printer, whose checksums are those of such text.
//
// A request to take over puts the client's "Shadow Key Data", when it is whole ("Shadow Key Size"
// says how long it is), in the place of the server's keys; the answer is 1 then and 0 otherwise.
// Nothing but keys that are shared is touched, and the server's processes build their model records
// anew. What a client has left behind is also taken over before another one's question is answered,
// so that it is not lost.
//
// No answer when the document is no such question, when the printer is not known, and when its
// settings are not shared.
std::optional<uint32_t> AnswerShadowRequest(LPCWSTR printer, std::string_view document);
