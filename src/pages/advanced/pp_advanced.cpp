#include "pages/advanced/pp_advanced.h"

#include <richedit.h>

#include <cstring>

#include "core/crc.h"
#include "locale/text_numbers.h"
#include "model/driver_settings.h"
#include "ui/prtui.h"
#include "ui/ufile_dialog.h"

namespace {

constexpr int kLongestSequence = 255;

// Every character is protected, so that the control tells of each change to the text.
constexpr uint32_t kCommandEvents = ENM_CHANGE | ENM_UPDATE | ENM_PROTECTED;

constexpr COLORREF kPlainColor = RGB(0, 0, 0);
constexpr COLORREF kEscapeColor = RGB(0xE0, 0, 0);

constexpr char kEscapeCharacters[] = {'^', '~', '!', '_', '/', '\\'};

// A command of the document settings, which need not be terminated.
OString CommandText(const char (&command)[prtconfig::USER_COMMAND_SIZE]) {
    char text[sizeof command + 1] = {};
    std::memcpy(text, command, sizeof command);
    return OString(text);
}

} // namespace

void ppAdvanced::Init() {
    prtpage::Init();
    list_.Bind(this, SEQUENCES);
    commands_.Bind(this, COMMANDS);
    escapes_.Bind(this, ESCAPE_CHARACTERS);
    insert_.Bind(this, INSERT);
    if (menu_.Load(ui_->locale, "*:ADVANCED/USER_COMMANDS/INSERT"))
        insert_.GetMenu() = menu_.GetSubMenu(0);
    if (config_)
        for (int i = 0; i < prtconfig::USER_COMMANDS; ++i)
            sequences_[i] = CommandText(config_->user[i]);
    DriverSettings settings;
    settings.Load(registry_);
    escape_ = settings.GetEscapeCharacter();
}

OString& ppAdvanced::Current() {
    return sequences_[list_.GetCurSelData()];
}

// ---- What the page shows ------------------------------------------------------------------------

void ppAdvanced::Refresh(bool all) {
    if (list_.IsInvalid()) FillSequences();
    if (escapes_.IsInvalid()) FillEscapeCharacters();
    if (all) {
        commands_.LimitText(kLongestSequence);
        commands_.SetEventMask(kCommandEvents);
    }
    const bool highlight = all || reload_ || escape_changed_;
    if (all || reload_) {
        commands_.SetText(Current());
        commands_.SetSelection(0, 0);
        reload_ = false;
    }
    if (all || escape_changed_) {
        insert_.Enable(escape_ != 0);
        escape_changed_ = false;
    }
    if (highlight) Highlight();
    // The commands belong to the document, the escape character to the printer.
    if (all && IsRestricted()) escapes_.Enable(false);
}

void ppAdvanced::FillSequences() {
    list_.ResetContent();
    constexpr struct {
        int text;
        int sequence;
    } kPlaces[] = {{TEXT_FIRST_USER_COMMANDS, 0},
                   {TEXT_THIRD_USER_COMMANDS, 2},
                   {TEXT_FOURTH_USER_COMMANDS, 3},
                   {TEXT_SECOND_USER_COMMANDS, 1}};
    for (const auto& place : kPlaces) list_.AddString(GetString(place.text), place.sequence);
    list_.SetCurSelData(0);
}

void ppAdvanced::FillEscapeCharacters() {
    escapes_.ResetContent();
    escapes_.AddString(GetString(TEXT_NO_ESCAPE_CHARACTER), 0);
    for (const char c : kEscapeCharacters) escapes_.AddString(OString(" ") << c, c);
    escapes_.SetCurSelData(static_cast<unsigned char>(escape_));
}

// ---- The user's acts ----------------------------------------------------------------------------

bool ppAdvanced::Command(uint16_t id, uint16_t code, LPARAM value) {
    if (id >= FIRST_CONTROL_CHARACTER && id <= LAST_CONTROL_CHARACTER) {
        InsertCharacter(static_cast<char>(id - FIRST_CONTROL_CHARACTER));
        return false;
    }
    switch (id) {
    case DELETE_CHARACTER:
        InsertCharacter('\x7F');
        return false;
    case CHOOSE_FILE:
        ChooseFile();
        return false;
    case SEQUENCES:
        if (code != LBN_SELCHANGE) break;
        reload_ = true;
        return false;
    case ESCAPE_CHARACTERS:
        if (code != CBN_SELCHANGE) break;
        escape_ = static_cast<char>(escapes_.GetCurSelData());
        escape_changed_ = true;
        return false;
    case COMMANDS:
        // Some controls tell of an update only when they paint themselves.
        if (code == EN_UPDATE || code == EN_CHANGE) {
            Current() = commands_.GetText();
            WM_SetChanged(CheckChanged());
        }
        if (code == EN_CHANGE && protected_touched_) Highlight();
        break;
    default:
        break;
    }
    return prtpage::Command(id, code, value);
}

bool ppAdvanced::Notify(uint16_t id, uint32_t code, NMHDR* header) {
    if (id != COMMANDS || code != EN_PROTECTED) return prtpage::Notify(id, code, header);
    protected_touched_ = true;
    SetWindowLongPtrW(GetWindow(), DWLP_MSGRESULT, 0); // the change may be made
    return false;
}

bool ppAdvanced::SetActive() {
    reload_ = true;
    WM_Refresh(false);
    return true;
}

void ppAdvanced::InsertCharacter(char c) {
    OString text;
    InsertSequence(text << escape_ << "<" << ControlCharName(c) << ">");
}

void ppAdvanced::InsertSequence(const OString& text) {
    int start = 0;
    int end = 0;
    commands_.GetSelection(start, end);
    commands_.ReplaceSelection(text);
    commands_.TakeFocus();
    const int after = start + text.GetLength();
    commands_.SetSelection(after, after);
    Highlight();
}

void ppAdvanced::ChooseFile() {
    UFileDialog dialog(*this, registry_, TEXT_FILES_TO_SEND);
    dialog.AddFilter(TEXT_PRINTER_FILES, "*.prn");
    dialog.AddFilter(TEXT_ALL_FILES, "*.*");
    if (!dialog.Browse(UFileDialog::OPEN)) return;
    OString command;
    command << escape_ << "?" << dialog.GetPath();
    Current() = command;
    reload_ = true;
}

// ---- Colours ------------------------------------------------------------------------------------

void ppAdvanced::Highlight() {
    if (highlighting_) return;
    highlighting_ = true;
    protected_touched_ = false;
    commands_.SetEventMask(ENM_NONE);
    OTypedArray<TextRange> escapes;
    FindEscapeSequences(commands_.GetText(), escape_, escapes);

    int start = 0;
    int end = 0;
    commands_.GetSelection(start, end);
    Forward(COMMANDS, WM_SETREDRAW, FALSE, 0);
    SetFormatOf({0, -1}, kPlainColor);
    for (int i = 0; i < escapes.GetSize(); ++i) SetFormatOf(escapes[i], kEscapeColor);
    commands_.SetSelection(start, end);
    Forward(COMMANDS, WM_SETREDRAW, TRUE, 0);
    commands_.Repaint();

    commands_.SetEventMask(kCommandEvents);
    highlighting_ = false;
}

void ppAdvanced::SetFormatOf(TextRange range, COLORREF color) {
    CHARFORMAT2W format = {};
    format.cbSize = sizeof format;
    format.dwMask = CFM_COLOR | CFM_PROTECTED;
    format.dwEffects = CFE_PROTECTED;
    format.crTextColor = color;
    commands_.SetSelection(range.start, range.end);
    commands_.SetFormat(format);
}

// ---- Storing ------------------------------------------------------------------------------------

bool ppAdvanced::Apply() {
    for (int i = 0; i < prtconfig::USER_COMMANDS; ++i) config_->set_user(sequences_[i], i);
    DriverSettings settings;
    settings.Load(registry_);
    const bool is_new = escape_ != settings.GetEscapeCharacter();
    settings.SetEscapeCharacter(escape_);
    settings.Save(registry_);
    // Users who may not change the printer can still store their document's commands.
    if (is_new && settings.HasFailed()) {
        ReportNotStored(GetString(TEXT_DRIVER_SETTINGS));
        return false;
    }
    return prtpage::Apply();
}

uint32_t ppAdvanced::GetCurrentCRC32() const {
    CRC32_Calculator checksum(0);
    for (const OString& sequence : sequences_) checksum.CRC32(sequence);
    return checksum.CRC32(escape_);
}
