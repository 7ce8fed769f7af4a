// The status monitor reads query jobs, requests and command lines.

#include <cstdint>
#include <string_view>

#include "qstmon/command_line.h"
#include "qstmon/conversation.h"
#include "qstmon/xpml.h"
#include "target.h"

FUZZ_TARGET(query_job)(const uint8_t* data, size_t size) {
    const std::string_view text(reinterpret_cast<const char*>(data), size);
    size_t at = 0;
    while (const auto tag = NextTag(text, at)) tag->Attribute("name");
    QueriesIn(text);
    ParseMonitorCommand(text);
    IsCompleteAnswer("~HS", text);
    return 0;
}
