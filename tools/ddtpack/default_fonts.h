// The data fonts of a driver's default settings in text form.
#pragma once

#include <string>

#include "fonts/data_font_manager.h"

// Each adds the font that a line describes. Answers the reason if the line is not understood, else
// null.
//
//   NAME=SYMBOLOGY,WIDTH[,none|above|below]   as the model tables call the symbology; the width of
//                                             a module in thousandths of an inch, and where the
//                                             human-readable text is, none when left out
const char* ReadBarCodeFont(const std::string& name, const std::string& value,
                            DataFontManager& fonts);
//   NAME=TAG[,FORMAT]                         as the model tables call the tag type; with a format
//                                             SGTIN-64, SSCC-64 or SGLN-64
const char* ReadRFIDFont(const std::string& name, const std::string& value, DataFontManager& fonts);
