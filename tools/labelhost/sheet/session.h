// A person in front of a property sheet who follows a script: from before the sheet opens until it
// has closed.
#pragma once

#include "sheet/acts.h"
#include "sheet/host.h"
#include "sheet/sheet_watch.h"

#include <functional>
#include <string>
#include <vector>

// What the person is to do.
struct SheetPlan {
    std::string kind; // "document", "defaults" or "device"; names the pictures
    bool has_script = false;
    std::vector<Act> acts;
    // In place of acts that were known before: makes them for a sheet of so many pages. May be
    // null.
    std::function<std::vector<Act>(int pages)> make_acts;
    std::string pictures; // the folder for a picture of each page; empty: none are taken
};

class Session {
public:
    // Begins at once: windows that this thread opens from now on are used. Only one session may
    // exist at a time.
    explicit Session(SheetPlan plan);

    // To be called after the function that opened the sheet has returned: acts that are left have
    // no window. `opened`: whether that function succeeded.
    void End(bool opened);

    // "ok", "cancel" or "failed", "applied" beside it, the titles of the pages and the states.
    Json Told() const;

    // Why the script ended early, with the number of the line; empty if it did not.
    const std::string& fault() const { return fault_; }

private:
    bool Turn();
    void TakeTurn();
    void Perform(const Act& act, const Topmost& topmost);
    void Fail(const std::string& reason);
    bool InFrontOfSheet(const Topmost& topmost);
    void Close(const Topmost& topmost);

    // The visit to every page before the script.
    bool HasVisit() const;
    void Visit(const Topmost& topmost);
    void VisitPage(const Topmost& topmost, int page);

    SheetPlan plan_;
    SheetWatch watch_;
    Hands hands_;
    Rest rest_;
    size_t next_ = 0; // of the acts
    int line_ = 0;    // of the act that was begun last
    Json pages_ = Json::array();
    Json states_ = Json::array();
    std::string fault_;
    std::string result_ = "failed";

    int visited_ = 0;        // pages so far
    int first_page_ = -1;    // where the visit began
    bool turned_ = false;    // to the page that is visited next
    HWND closing_ = nullptr; // the window that was last told to close
    int closings_ = 0;       // how often, without another one between
    bool given_up_ = false;
    WhenLoopsAreIdle idle_; // last: turns may begin when it is made
};
