// A document that a program is printing: a job in the making.
#pragma once

#include "spooler/job_record.h"

#include <memory>
#include <string>

namespace win32host {

class OpenedPrinter;

// Its bytes go to a file of another name, which gets the job's name when the document ends, so that
// a complete file is a complete job. The file is locked while it is written.
class SpooledDocument {
public:
    // Null, with the last error set, on failure.
    static std::unique_ptr<SpooledDocument>
    Start(const OpenedPrinter& printer, const std::u16string& name, const std::u16string& datatype);
    // Drops a document that was not ended.
    ~SpooledDocument();
    SpooledDocument(const SpooledDocument&) = delete;
    SpooledDocument& operator=(const SpooledDocument&) = delete;

    DWORD Job() const { return record_.number; }
    void AddPage() { ++record_.pages; }
    // False, with the last error set, on failure. `written` is the number of bytes that reached the
    // file all the same.
    bool Write(const void* data, DWORD size, DWORD& written);
    // Completes the job and sends it. False, with the last error set, on failure. A document that
    // lost bytes in writing cannot be printed and is dropped.
    bool End();

private:
    SpooledDocument(std::shared_ptr<PrintServer> server, std::u16string printer)
        : server_(std::move(server))
        , printer_(std::move(printer)) {}

    const std::shared_ptr<PrintServer> server_;
    const std::u16string printer_;
    JobRecord record_;
    int file_ = -1;
    DWORD fault_ = 0; // why bytes were lost
};

} // namespace win32host
