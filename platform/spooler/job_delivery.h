// Complete jobs on their way to the printer's port.
#pragma once

#include "spooler/job_record.h"

namespace win32host {

// Sends a job to its printer's current port. On "FILE:" it stays where it is, and so does a job for
// the driver's language monitor. A job that got through is deleted, or marked as printed if the
// printer keeps its jobs; one that did not stays, with the reason. ERROR_BUSY if somebody else is
// sending it.
DWORD DeliverJob(const PrintServer& server, const std::u16string& printer, DWORD job);

} // namespace win32host
