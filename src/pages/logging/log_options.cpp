// The dialog that prtpage::ShowLogOptions opens.
#include "locale/text_numbers.h"
#include "pages/logging/pp_logging_server.h"
#include "printer/prtstream.h"
#include "ui/prtui.h"

void prtpage::ShowLogOptions() {
    if (!ui_->stream || !ui_->stream->IsMonitorEnabled()) {
        Message(GetString(TEXT_LOGGING_NEEDS_MONITOR), GetString(TEXT_LOGGING),
                MB_OK | MB_ICONINFORMATION);
        return;
    }
    if (registry_.IsRemote())
        DialogModal("*:TOOLS/^LOGGING_REMOTE", ppLoggingClient::WinProc);
    else
        DialogModal("*:TOOLS/^LOGGING", ppLoggingServer::WinProc);
}
