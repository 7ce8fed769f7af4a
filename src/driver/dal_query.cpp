// Queries to a ZPL II printer, for programs.
#include <windows.h>

#include "ui/prtui.h"
#include "zpl/extstream.h"
#include "zpl/zpl_query.h"
#include "zplui.h"

static_assert(DAL_QUERY_IDENTIFICATION == ZPLQuery::IDENTIFICATION);
static_assert(DAL_QUERY_STATUS == ZPLQuery::STATUS);
static_assert(DAL_QUERY_MEMORY == ZPLQuery::MEMORY);
static_assert(DAL_QUERY_FILES == ZPLQuery::ALL_FILES);
static_assert(DAL_QUERY_FONTS == ZPLQuery::FONT_FILES);
static_assert(DAL_QUERY_XML_FORMAT == ZPLQuery::XML_FORMAT_SETTINGS);
static_assert(DAL_QUERY_XML_DIRECTORY == ZPLQuery::XML_DIRECTORY);
static_assert(DAL_QUERY_XML_STATUS == ZPLQuery::XML_STATUS);
static_assert(DAL_QUERY_XML_ALL == ZPLQuery::XML_ALL);
static_assert(DAL_QUERY_CONFIGURATION == ZPLQuery::CONFIGURATION);

BOOL WINAPI DAL_Query_Run(HANDLE settings, int questions, DAL_QUERY_ANSWER answer, void* context) {
    auto* ui = static_cast<prtui*>(settings);
    if (!ui || !answer) return FALSE;
    // The UI object of this driver is always the ZPL II one.
    ZPLQuery query(nullptr, static_cast<extstream*>(ui->stream));
    if (!query.RunQuery(questions)) return FALSE;
    for (int i = 0; i < query.properties.GetCount(); ++i) {
        const OString name = query.properties.GetName(i);
        const OString value = query.properties.GetString(name, OString());
        answer(context, DAL_ANSWER_PROPERTY, name.wstring(), value.wstring());
    }
    for (int i = 0; i < query.files.GetSize(); ++i)
        answer(context, DAL_ANSWER_FILE, nullptr, query.files[i].wstring());
    for (int i = 0; i < query.configuration.GetSize(); ++i)
        answer(context, DAL_ANSWER_CONFIGURATION, nullptr, query.configuration[i].wstring());
    return TRUE;
}
