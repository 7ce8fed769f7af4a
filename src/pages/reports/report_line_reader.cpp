#include "pages/reports/report_line_reader.h"

bool ReportLineReader::Next() {
    at_ = next_;
    if (text_[at_] == 0) return false;
    const int end = EndOfMark();
    kind_ = end < 0 ? kCharacter : KindOfMark(end);
    next_ = (end < 0 ? at_ : end) + 1;
    return true;
}

int ReportLineReader::EndOfMark() const {
    if (text_[at_] != '[') return -1;
    for (int i = at_ + 1; text_[i] != 0; ++i)
        if (text_[i] == ']') return i;
    return -1;
}

ReportLineReader::Kind ReportLineReader::KindOfMark(int end) const {
    int letter = at_ + 1;
    const bool closes = text_[letter] == '/';
    if (closes) ++letter;
    if (letter + 1 != end) return kUnknownMark;
    switch (text_[letter]) {
    case 'b':
    case 'B':
        return closes ? kEndBold : kBold;
    case 'i':
    case 'I':
        return closes ? kEndItalic : kItalic;
    default:
        return kUnknownMark;
    }
}
