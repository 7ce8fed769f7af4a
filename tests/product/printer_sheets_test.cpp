// The driver's sheets as people use them: labelhost plays the user.
#include "support/labelhost_test.h"

#include <set>

namespace {

class PrinterSheets : public Labelhost {
protected:
    Json Sheet(const std::string& kind, const std::string& script) const {
        Write("script", script);
        return RunJson({"sheet", "Dock3", "--" + kind, "--run", File("script")});
    }
    static const Json& State(const Json& told, const std::string& name) {
        for (const Json& state : told["states"])
            if (state["name"] == name) return state;
        static const Json kNone;
        ADD_FAILURE() << "no state " << name;
        return kNone;
    }
    static const Json& Control(const Json& state, int id) {
        for (const Json& control : state["controls"])
            if (control["id"] == id) return control;
        static const Json kNone;
        ADD_FAILURE() << "no control " << id;
        return kNone;
    }
};

} // namespace

TEST_F(PrinterSheets, OfEveryModelAreUnchangedByLookingAtThem) {
    for (const Json& model : RunJson({"models"})) {
        const std::string name = model["name"];
        Install(name, name);
        for (const char* kind : {"--defaults", "--device"}) {
            const Json told = RunJson({"sheet", name, kind});
            EXPECT_GE(told["states"].size(), 3u) << name << kind;
            for (const Json& state : told["states"])
                EXPECT_EQ(state["apply"], false) << name << kind << state["title"];
        }
    }
}

TEST_F(PrinterSheets, KeepStocksThatTheUserMakesAndAskBeforeTheyGo) {
    Install("Dock3", "Valdrick X4 300 dpi");
    const Json told = Sheet("defaults", R"(
click 391
type 389 "user"
ok
state reserved
answer OK
state renamed
type 389 "Shelf"
type 393 "99 in"
leave
state clamped
ok
state chosen
click 391
type 389 "Shelf"
ok
state taken
answer OK
cancel
apply
state applied
click 383
state question
answer No
ok
)");
    EXPECT_EQ(told["result"], "ok");
    EXPECT_NE(State(told, "reserved")["text"].get<std::string>().find("\"user\""),
              std::string::npos);
    EXPECT_EQ(State(told, "renamed")["focus"], 389);
    EXPECT_EQ(Control(State(told, "renamed"), 389)["text"], "New Label");
    EXPECT_NE(Control(State(told, "clamped"), 393)["text"], "99 in");
    EXPECT_EQ(Control(State(told, "chosen"), 512)["text"].get<std::string>().rfind("Shelf (", 0),
              0u);
    EXPECT_EQ(State(told, "chosen")["apply"], true);
    EXPECT_EQ(State(told, "taken")["window"], "message");
    EXPECT_EQ(State(told, "applied")["apply"], false);
    EXPECT_EQ(State(told, "question")["buttons"], Json::array({"Yes", "No"}));

    const Json later = Sheet("defaults", "state kept\nclick 383\nanswer Yes\nstate gone\nok\n");
    EXPECT_EQ(Control(State(later, "kept"), 512)["text"],
              Control(State(told, "chosen"), 512)["text"]);
    EXPECT_NE(Control(State(later, "gone"), 512)["text"],
              Control(State(told, "chosen"), 512)["text"]);
}

TEST_F(PrinterSheets, RenamePresetsOfTheSameNameOrLetTheUserDoIt) {
    Install("Dock3", "Valdrick X4 300 dpi");
    const Json told = Sheet("document", R"(
click 356
click 513
click 590
type 593 "Labels"
click 590
type 593 "Labels"
ok
state question
answer No
state again
ok
answer Yes
state page
choose 514 "Default Settings"
state defaults
choose 514 "Labels"
state back
cancel
)");
    EXPECT_EQ(
        State(told, "question")["text"],
        "There are two presets with the name \"Labels\".\n\nRename one of them to \"Labels 2\"?");
    EXPECT_EQ(State(told, "again")["focus"], 593);
    const Json items = Control(State(told, "page"), 514)["items"];
    const std::set<std::string> names(items.begin(), items.end());
    EXPECT_TRUE(names.count("Labels") && names.count("Labels 2")) << items;
    EXPECT_EQ(Control(State(told, "defaults"), 355)["checked"], 1);
    EXPECT_EQ(Control(State(told, "back"), 356)["checked"], 1);
    EXPECT_EQ(told["result"], "cancel");
    const Json later = Sheet("document", "state list\ncancel\n");
    EXPECT_EQ(Control(State(later, "list"), 514)["items"].size(), items.size() - 2);
}
