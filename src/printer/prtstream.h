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

// Everything that the module sends to a printer goes through here, as a job of the spooler. Bytes
// are gathered in a buffer of 8192 bytes and leave in packets of at most 32000.
//
// A job is what is sent between StartJob and EndJob. A packet that leaves outside of a job becomes
// a job of its own, named "write_packet". Only StartJob reports that the printer cannot be reached;
// data that cannot be sent is dropped.
//
// In measuring mode nothing is sent. Bytes are only gathered, to count them.
//
// Belongs to one UI object and its thread, and must not outlive it.
class prtstream : public OList {
public:
    prtstream() = default;
    // Sends the gathered bytes, then closes the connection.
    ~prtstream() override;

    // Every packet leaves through this. Does nothing for no bytes.
    virtual void write_packet(const char* data, int count);

    // The measuring mode. CacheStart sends the gathered bytes. CacheStop drops those gathered
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

    // Begins a job; one that was not ended is lost. Returns the job's number, or 0 or less if no
    // job can be made; then everything up to EndJob is dropped.
    int StartJob(const OString& name);
    // Sends the gathered bytes and ends the job. Always true.
    bool EndJob();

    // ---- Writing --------------------------------------------------------------------------------

    prtstream& write(const char* data, int32_t count);
    prtstream& write_byte(char value);
    // The text without its terminator. Null writes nothing.
    prtstream& operator<<(const char* text);
    // The number in decimal.
    prtstream& operator<<(int32_t number);
    prtstream& operator<<(prtstream& (*manipulator)(prtstream&)) { return manipulator(*this); }

    // Sends bytes now, ahead of the gathered ones.
    void write_direct(const char* data, int32_t count);
    // Writes a whole file, or nothing if it cannot be read to its end.
    void write_file(const OString& path);

    // Sends the gathered bytes. Does nothing in measuring mode.
    void flush();
    // Drops the gathered bytes.
    void clear();
    // Sends the gathered bytes, or drops them in measuring mode.
    void kill();

    // ---- The rendering module -------------------------------------------------------------------

    // Sends an escape to the rendering module, over the job's connection or, outside of a job, over
    // one that lasts until the next StartJob or EndJob. Returns its answer; less than 1 (as a
    // signed number) means failure.
    uint32_t Escape(int code, int input_size, const char* input, int output_size, char* output);

    void DownloadFont(const KVFontInfo& font);
    // At most 65533 bytes at once.
    void DownloadFontData(const char* data, uint32_t count);
    // One glyph followed by its rows.
    void DownloadBitmapData(const KVDownloadBitmapChar* glyph);

    // Replaces the buffer with the description of the objects that the rendering module keeps in
    // the printer, in its final length. False, with the buffer unchanged, if there is none.
    bool GetCacheInformation(OBuffer<unsigned char>& description);
    void CacheAction(const KVCacheAction& action);
    void CacheItemAction(const KVCacheItemAction& action);

    // ---- Queries --------------------------------------------------------------------------------
    //
    // The module does not read from the printer itself. That is the work of the status monitor, a
    // library of the driver (qstmon.dll) beside the module. A query job is a document of its own
    // kind. It holds the questions, each with the length of its answer and the command that asks
    // it:
    //
    //     QueryStart(job), then for each question Query(name, length) and the bytes of its command,
    //     QueryEnd(); QueryExecute(job, ...); then QueryResponse of each name
    //
    // The answers stay in the registry until the next QueryStart on the machine, for any printer.
    // So hold a QueryTurn during all of this (printer/query_turn.h).

    // Opens or closes the document.
    void XPML_xpml(bool open);

    // Forgets earlier answers and begins a query job. Returns the job's number, as StartJob does.
    int QueryStart(const OString& job_name);
    // Begins a question and ends the one before. `length` is the exact length of the answer or, if
    // negative, an estimate of it.
    void Query(const char* name, int32_t length);
    // Ends the last question and the job.
    void QueryEnd();
    // Makes the status monitor ask the printer, and waits for it. `parent` may be null. True if
    // there are answers. In any case the job is removed from the spooler.
    bool QueryExecute(const OString& job_name, int job, HWND parent);

    // The number of bytes in the answer to a question, or 0 if there is none.
    int32_t QueryResponseSize(const OString& name);
    // Reads the answer into a buffer of `size` bytes. False if there is none or it is longer.
    bool QueryResponse(const OString& name, unsigned char* buffer, int32_t size);

    // Asks the status monitor itself, through the printer's data. `request` is the element that
    // asks ("<port action='get' name='type'/>"), and the answer has 1 to `size` bytes. False, with
    // the buffer unchanged, if there is none.
    bool XPML_Query(const char* request, void* buffer, int32_t size);

    // ---- The port -------------------------------------------------------------------------------

    // The status monitor's facts about the printer's port, for the report about versions. Empty if
    // it does not answer.
    OString GetPortType(); // "LPT", "USB" or another word
    OString GetPortIPAddress();
    OString GetPortMonitorName();
    OString GetPortUDPPort();
    OString GetPortDescription();
    OString GetPortProtocol();

    // Whether the printer can answer through its port: the status monitor can read from the port,
    // and the model answers on ports of that type. Never true for parallel ports of Windows NT 4.0.
    bool is_bidirectional();
    // Whether the status monitor can watch the printer and, for the pages, whether it serves its
    // port.
    bool IsMonitorSupported();
    bool IsMonitorEnabled();

    // ---- The printer ----------------------------------------------------------------------------

    HDC GetDC() const; // of the connection, or null without one
    // The printable area in dots, or 0 without a connection.
    int32_t GetPageWidth() const;
    int32_t GetPageHeight() const;
    // The printer's horizontal resolution, or 0 without a model.
    int32_t GetDPI() const;
    // The vertical resolution of the connection, which outside of a job is as for Escape. 0 if
    // there is none.
    int32_t GetVerticalDPI();
    prtmodel* GetModel() const; // null without a UI object
    HANDLE GetPrinter() const { return hprinter_; }

protected:
    UIPrinter* GetUI() const { return ui_; }

private:
    OString AskPort(const char* request);
    // Makes room for `count` more bytes by doubling the buffer. False, with everything unchanged,
    // if there is no memory for it.
    bool Grow(int32_t count);
    void Connect();
    void EndDocument();

    static constexpr int32_t kCapacity = 8192;
    static constexpr int32_t kLargestPacket = 32000;

    UIPrinter* ui_ = nullptr;
    int32_t buffered_ = 0;
    int32_t capacity_ = kCapacity;
    OBuffer<char> buffer_; // of the capacity, or empty
    HANDLE hprinter_ = nullptr;
    bool measuring_ = false;
    bool xpml_open_ = false;  // the document of queries
    bool query_open_ = false; // a question in it
    std::unique_ptr<prtspool> spool_;
};

// Ends a line: `stream << endl` writes carriage return and line feed.
prtstream& endl(prtstream& stream);
