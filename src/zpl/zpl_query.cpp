#include "zpl/zpl_query.h"

#include <algorithm>
#include <cstring>
#include <iterator>

#include "core/obuffer.h"
#include "printer/query_turn.h"
#include "zpl/extstream.h"
#include "zpl/host_lists.h"

namespace {

struct AskedQuestion {
    ZPLQuery::Question question;
    const char* name;
    int32_t estimate; // bytes of the answer
    const char* command;
};

// STX and ETX stand for the start and the end of a format.
constexpr AskedQuestion kQuestions[] = {
    {ZPLQuery::IDENTIFICATION, "HostID", 30, "~HI"},
    {ZPLQuery::STATUS, "HostStatus", 90, "~HS"},
    {ZPLQuery::MEMORY, "HostMemory", 20, "~HM"},
    {ZPLQuery::ALL_FILES, "DirectoryList", 90, "\x02^HW*:*.*\x03"},
    {ZPLQuery::FONT_FILES, "DirectoryList", 150, "\x02^HW*:*.FNT\x03"},
    {ZPLQuery::XML_FORMAT_SETTINGS, "XML Format Parameter Settings", 1000, "\x02^HZF\x03"},
    {ZPLQuery::XML_DIRECTORY, "XML Directory List", 512, "\x02^HZL\x03"},
    {ZPLQuery::XML_STATUS, "XML Status Settings", 512, "\x02^HZR\x03"},
    {ZPLQuery::XML_ALL, "XML All Settings", 2500, "\x02^HZA\x03"},
    {ZPLQuery::CONFIGURATION, "Configuration Label", 500, "^XA^HH^XZ"},
};

const char kJobName[] = "PrinterInfo";

constexpr int32_t kPowerLength = 12;

// No printer's answer is longer.
constexpr int32_t kLongestAnswer = 16 << 20;

// The answer to a question, or empty if there is none.
OBuffer<char> ReadAnswer(extstream& stream, const OString& name) {
    OBuffer<char> answer;
    const int32_t size = stream.QueryResponseSize(name);
    if (size < 1 || size > kLongestAnswer || !answer.SetSize(static_cast<uint32_t>(size)))
        return answer;
    // The store may hold fewer bytes than it announces.
    std::memset(answer.GetData(), 0, answer.GetSize());
    if (!stream.QueryResponse(name, reinterpret_cast<unsigned char*>(answer.GetData()), size))
        answer.Clear();
    return answer;
}

} // namespace

bool ZPLQuery::RunQuery(int mask) {
    const bool asks =
        std::any_of(std::begin(kQuestions), std::end(kQuestions),
                    [mask](const AskedQuestion& asked) { return mask & asked.question; });
    if (!asks || !stream_ || !stream_->is_bidirectional()) return false;
    const QueryTurn turn;
    if (!turn.IsOwn()) return false;
    const int job = stream_->QueryStart(kJobName);
    for (const AskedQuestion& asked : kQuestions) {
        if (!(mask & asked.question)) continue;
        stream_->Query(asked.name, -asked.estimate);
        *stream_ << asked.command;
    }
    stream_->QueryEnd();
    if (!stream_->QueryExecute(kJobName, job, parent_)) return false;
    for (const AskedQuestion& asked : kQuestions)
        if (mask & asked.question) Read(asked.question, asked.name);
    return true;
}

void ZPLQuery::Read(int question, const char* name) {
    const OBuffer<char> answer = ReadAnswer(*stream_, name);
    const char* bytes = answer.GetData();
    const uint32_t size = answer.GetSize();
    switch (question) {
    case IDENTIFICATION:
        ReadHostIdentification(bytes, size, properties);
        break;
    case STATUS:
        ReadHostStatus(bytes, size, properties);
        break;
    case MEMORY:
        ReadHostMemory(bytes, size, properties);
        break;
    case ALL_FILES:
    case FONT_FILES:
        ReadFileList(bytes, size, files);
        break;
    case CONFIGURATION:
        ReadConfigurationList(bytes, size, configuration);
        break;
    default:
        break;
    }
}

bool RunPowerQuery(HWND parent, extstream& stream, const OString& job_name,
                   const OString& query_name, PowerReadings& readings) {
    if (!stream.is_bidirectional()) return false;
    const QueryTurn turn;
    if (!turn.IsOwn()) return false;
    const int job = stream.QueryStart(job_name);
    stream.Query(query_name.nstring(), kPowerLength);
    stream.command_control("HB");
    stream.QueryEnd();
    if (!stream.QueryExecute(job_name, job, parent)) return false;
    const OBuffer<char> answer = ReadAnswer(stream, query_name);
    readings = ReadPowerStatus(answer.GetData(), answer.GetSize());
    return true;
}
