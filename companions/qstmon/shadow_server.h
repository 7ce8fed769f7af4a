// The settings that a print server shares with those who are connected to its printers.
#pragma once

#include <windows.h>

#include <cstdint>
#include <optional>
#include <string_view>

// Answers the questions of clients (see keys/shadow_request.h) in the order in which they come.
// `printer` is the full name of a printer, of this machine or of another one.
//
// A question for news puts into the printer's data "Shadow Key Data" (see keys/shared_keys_text.h)
// all keys whose text the client does not have, and the names of those that only the client has,
// which are to be deleted. The answer is the size of that data, or 0 if there is nothing new. Keys
// are under the client's name for its printer, as the client's checksums are of such text.
//
// A request to take over replaces the server's keys with the client's "Shadow Key Data", if that is
// complete ("Shadow Key Size" is its length). The answer is then 1, and 0 otherwise. Only shared
// keys are touched, and the server's processes build their model records anew. What a client has
// left is also taken over before another client's question is answered, so that it is not lost.
//
// No answer if the document is not such a question, if the printer is not known, or if its settings
// are not shared.
std::optional<uint32_t> AnswerShadowRequest(LPCWSTR printer, std::string_view document);
