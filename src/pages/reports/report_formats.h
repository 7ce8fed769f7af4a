// The three formats in which a report is saved.
#pragma once

#include "core/oarray.h"
#include "core/ofile.h"
#include "ui/text_panel.h"

using ReportPanels = OPointerArray<TextPanel*>;

// Each sets the stream's code page and writes all tabs in order, with their lines in order. Whether
// everything arrived is known after the file is closed (OFile::HasFailed).

// Plain text in `code_page`: titles and bold text in capitals, values from column 29 on.
void SaveReportText(OFile& file, const ReportPanels& panels, uint32_t code_page);

// Rich Text Format 1.x in `code_page`. Braces in the report's own texts are not escaped.
void SaveReportRichText(OFile& file, const ReportPanels& panels, uint32_t code_page);

// HTML in UTF-8, a table with two columns.
void SaveReportHtml(OFile& file, const ReportPanels& panels);
