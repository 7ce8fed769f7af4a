// The byte stream to the printer.
#pragma once

#include <windows.h>

#include <cstdint>
#include <memory>

#include "core/obuffer.h"
#include "core/olist.h"
#include "core/ostring.h"
#include "printer/escape_records.h"
#include "printer/prtspool.h"

class prtmodel;
class UIPrinter;

// Everything that the module tells a printer goes through here, as a job of the spooler's. Bytes
// are gathered in a buffer of 8192 bytes and leave in packets of at most 32000.
//
// A job is what is sent between StartJob and EndJob. A packet that leaves outside of one becomes a
// job of its own, named "write_packet". Failures to reach the printer show in StartJob's answer
// alone: what cannot be sent is dropped.
//
// In the measuring mode nothing is sent; bytes are only gathered, to learn how many there are.
//
// Belongs to one UI object and to its thread, and does not outlive it.
class prtstream : public OList {
public:
    prtstream() = default;
    // Sends what is gathered, then lets go of the connection.
    ~prtstream() override;

    // Where every packet leaves. Nothing for no bytes.
    virtual void write_packet(const char* data, int count);

    // The measuring mode. CacheStart sends what is gathered; CacheStop drops what was gathered
    // since, and leaves the buffer at the size to which it has grown.
    virtual void CacheStart();
    virtual void CacheStop();
    // The memory that the gathered bytes take in the printer; here GetCachedSize.
    virtual int32_t GetCachedMemory() const;
    // The number of gathered bytes.
    int32_t GetCachedSize() const { return buffered_; }
    bool is_virtual() const { return measuring_; }

    // Drops everything: no UI object, no connection, no bytes.
    void init();
    // The same, for the printer of a UI object.
    void init(UIPrinter* ui);

    // ---- Jobs -----------------------------------------------------------------------------------

    // Begins a job; one that was not ended is lost. The job's number, 0 or less when there can be
    // none: then everything up to EndJob is dropped.
    int StartJob(const OString& name);
    // Sends what is gathered and ends the job. Always true.
    bool EndJob();

    // ---- Writing --------------------------------------------------------------------------------

    prtstream& write(const char* data, int32_t count);
    prtstream& write_byte(char value);
    // The text without its terminator; null writes nothing.
    prtstream& operator<<(const char* text);
    // The number in decimal.
    prtstream& operator<<(int32_t number);
    prtstream& operator<<(prtstream& (*manipulator)(prtstream&)) { return manipulator(*this); }

    // Sends bytes now, in front of those that are gathered.
    void write_direct(const char* data, int32_t count);
    // Writes a whole file; nothing when it cannot be read to its end.
    void write_file(const OString& path);

    // Sends what is gathered; nothing in the measuring mode.
    void flush();
    // Drops what is gathered.
    void clear();
    // Sends what is gathered, and drops it in the measuring mode.
    void kill();

    // ---- The rendering module -------------------------------------------------------------------

    // Says something to the rendering module, over the job's connection or, outside of a job, over
    // one that lasts until the next StartJob or EndJob. Answers what it answers: less than 1 (as a
    // signed number) is failure.
    uint32_t Escape(int code, int input_size, const char* input, int output_size, char* output);

    void DownloadFont(const KVFontInfo& font);
    // At most 65533 bytes at once.
    void DownloadFontData(const char* data, uint32_t count);
    // One glyph, and its rows after it.
    void DownloadBitmapData(const KVDownloadBitmapChar* glyph);

    // Replaces the buffer by the description of the objects that the rendering module keeps in the
    // printer, as long as it was told. False, and the buffer as it was, when there is none.
    bool GetCacheInformation(OBuffer<unsigned char>& description);
    void CacheAction(const KVCacheAction& action);
    void CacheItemAction(const KVCacheItemAction& action);

    // ---- Queries --------------------------------------------------------------------------------
    //
    // The module does not read from the printer itself: that is the status monitor's work, a
    // library of the driver's (qstmon.dll) beside the module. A query job holds the questions, each
    // with the command that asks it and how long its answer is, in a document of its own kind:
    //
    //     QueryStart(job), then for each question Query(name, length) and the bytes of its command,
    //     QueryEnd(); QueryExecute(job, ...); then QueryResponse of each name
    //
    // The answers stay in the registry until the next QueryStart, for all printers of the machine
    // together: all of this is done with a QueryTurn in hand (printer/query_turn.h).

    // Opens or closes the document.
    void XPML_xpml(bool open);

    // Forgets the answers there are and begins a query job. The job's number, as StartJob.
    int QueryStart(const OString& job_name);
    // Begins a question, ending the one before. `length` is the exact length of the answer, or,
    // when it is negative, an estimate of it.
    void Query(const char* name, int32_t length);
    // Ends the last question and the job.
    void QueryEnd();
    // Has the status monitor ask the printer, and waits for it. `parent` may be null. True when
    // there are answers. The job is taken out of the spooler, answered or not.
    bool QueryExecute(const OString& job_name, int job, HWND parent);

    // The number of bytes that were answered to a question; 0 when none were.
    int32_t QueryResponseSize(const OString& name);
    // Reads the answer into a buffer of `size` bytes. False when there is none or it is longer.
    bool QueryResponse(const OString& name, unsigned char* buffer, int32_t size);

    // Asks the status monitor itself, through the printer's data: `request` is the element that
    // asks ("<port action='get' name='type'/>"), the answer has 1 to `size` bytes. False, and the
    // buffer as it was, when there is none.
    bool XPML_Query(const char* request, void* buffer, int32_t size);

    // ---- The port -------------------------------------------------------------------------------

    // What the status monitor knows about the printer's port, for the report about versions; empty
    // when it does not tell.
    OString GetPortType(); // "LPT", "USB" or another word
    OString GetPortIPAddress();
    OString GetPortMonitorName();
    OString GetPortUDPPort();
    OString GetPortDescription();
    OString GetPortProtocol();

    // Whether the printer can answer through its port: the status monitor can read from that, and
    // the model answers on ports of that type. Never on parallel ports of Windows NT 4.0.
    bool is_bidirectional();
    // Whether the status monitor can watch the printer, and, for the pages, whether it serves its
    // port.
    bool IsMonitorSupported();
    bool IsMonitorEnabled();

    // ---- The printer ----------------------------------------------------------------------------

    HDC GetDC() const; // of the connection; null without one
    // The printable area in dots; 0 without a connection.
    int32_t GetPageWidth() const;
    int32_t GetPageHeight() const;
    // The printer's horizontal resolution; 0 without a model.
    int32_t GetDPI() const;
    // The vertical resolution of the connection, which outside of a job is one as for Escape; 0
    // when there can be none.
    int32_t GetVerticalDPI();
    prtmodel* GetModel() const; // null without a UI object
    HANDLE GetPrinter() const { return hprinter_; }

protected:
    UIPrinter* GetUI() const { return ui_; }

private:
    OString AskPort(const char* request);
    // Makes room for `count` more bytes by doubling the buffer. False, with all as it was, when
    // there is no memory for it.
    bool Grow(int32_t count);
    void Connect();
    void EndDocument();

    static constexpr int32_t kCapacity = 8192;
    static constexpr int32_t kLargestPacket = 32000;

    UIPrinter* ui_ = nullptr;
    int32_t buffered_ = 0;
    int32_t capacity_ = kCapacity;
    OBuffer<char> buffer_; // of the capacity, or none
    HANDLE hprinter_ = nullptr;
    bool measuring_ = false;
    bool xpml_open_ = false;  // the document of queries
    bool query_open_ = false; // a question in it
    std::unique_ptr<prtspool> spool_;
};

// Ends a line: `stream << endl` writes carriage return and line feed.
prtstream& endl(prtstream& stream);
