// A property sheet: a dialog with a tab control and buttons, in which one page is shown at a time.
#pragma once

#include "window/dialog_template.h"
#include "window/property_page.h"

#include <windows.h>

#include <prsht.h>

#include <memory>
#include <string>
#include <vector>

namespace win32host {

// Pages are told of what happens by notifications, in which they may close the sheet or remove
// pages. So each function looks again at what is left after it has told somebody.
class PropertySheet : public std::enable_shared_from_this<PropertySheet> {
public:
    // Takes the pages over.
    PropertySheet(const PROPSHEETHEADERW& header, const std::vector<HPROPSHEETPAGE>& pages);
    PropertySheet(const PropertySheet&) = delete;
    PropertySheet& operator=(const PropertySheet&) = delete;
    ~PropertySheet();

    // Makes the dialog with its first page, invisible. Null if that fails.
    HWND Make();
    void Show();

    // Whether the user has closed the sheet. Its window exists until somebody destroys it.
    bool Ended() const { return ended_; }
    INT_PTR Result() const { return restart_ != 0 ? restart_ : result_; }

private:
    using Page = std::shared_ptr<PropertyPage>;
    static constexpr size_t kNone = static_cast<size_t>(-1);

    static INT_PTR CALLBACK Procedure(HWND dialog, UINT message, WPARAM first, LPARAM second);
    // True if the message is done with; `answer` then is its result.
    bool Handle(UINT message, WPARAM first, LPARAM second, LRESULT& answer);
    bool HandleSheetMessage(UINT message, WPARAM first, LPARAM second, LRESULT& answer);
    bool HandlePageQuestion(UINT message, WPARAM first, LPARAM second, LRESULT& answer) const;
    bool OnCommand(int id);
    bool OnNotify(const NMHDR& header, LRESULT& answer);
    bool OnDialogMessage(MSG* message);
    void Press(int button);

    // ---- Making (property_sheet_layout.cpp) ----
    DialogTemplate Template() const;
    void Initialise(HWND dialog);
    void Arrange();
    RECT PagePlace() const;
    void InsertTab(size_t position, const std::u16string& title);
    void SetCaption(DWORD flags, LPCWSTR caption);

    // ---- Pages ----
    const Page& At(size_t position) const { return pages_[position]; }
    size_t PositionOf(HPROPSHEETPAGE page) const;
    size_t PositionOfWindow(HWND window) const;
    size_t PositionOfTemplate(LPARAM number) const;
    // The page that a message names by its handle or, without one, by its position.
    size_t Named(WPARAM position, LPARAM page) const;
    HWND CurrentWindow() const;

    // Sends a notification to the page and answers its result; 0 if it has no window.
    LRESULT Tell(const Page& page, UINT code, LPARAM parameter = 0);
    // Leaves the current page, unless it refuses, and turns to another.
    bool Select(size_t position, bool backwards = false);
    bool MayLeave();
    // Shows this page or, if it refuses, the next that does not.
    bool TurnTo(size_t position, bool backwards);
    void ShowPage(size_t position);
    void HideCurrent();
    bool Insert(size_t position, HPROPSHEETPAGE page);
    bool Remove(size_t position);
    LRESULT QuerySiblings(WPARAM first, LPARAM second);

    // ---- Ending ----
    bool Apply(bool closing);
    void Confirm();
    void Cancel(bool closed);
    void End(INT_PTR result);
    void SetChanged(HWND page, bool changed);
    void ShowChanged();
    void Destroyed();

    PROPSHEETHEADERW header_;
    std::u16string caption_;
    std::u16string start_title_;
    std::vector<Page> pages_;
    HWND window_ = nullptr; // null before Make and after the window's end
    HWND tab_ = nullptr;
    size_t current_ = kNone;
    bool ended_ = false;
    INT_PTR result_ = 0;
    INT_PTR restart_ = 0; // ID_PSRESTARTWINDOWS or ID_PSREBOOTSYSTEM
};

} // namespace win32host
