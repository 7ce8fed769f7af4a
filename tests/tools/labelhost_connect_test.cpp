// labelhost connect: two machines that share a printer and its settings.

#include "support/labelhost_test.h"

#include <filesystem>

namespace {

namespace fs = std::filesystem;

const std::string kPrinter = "\\\\SRV1\\Dock";
const std::string kPresets = "HKLM\\SYSTEM\\CurrentControlSet\\Control\\Print\\Printers\\Dock\\"
                             "PrinterDriverData\\Presets";

// A client, and the server SRV1 with the printer Dock.
class TwoHosts : public Labelhost {
protected:
    TwoHosts()
        : server_(root() + "/elsewhere") {
        EXPECT_EQ(Serve({"install", "Dock", "--model", "Valdrick X4 300 dpi"}).status, 0);
    }
    void Connect() const {
        const ProgramResult result = Run({"connect", kPrinter, "--server", server_});
        ASSERT_EQ(result.status, 0) << result.errors;
    }

    ProgramResult Serve(std::vector<std::string> words) const {
        words.insert(words.begin(), {"--root", server_});
        return RunProgram("labelhost", words);
    }
    // Whether the printer has that preset, as seen by the machine.
    bool ServerHas(const std::string& preset) const {
        return Serve({"document", "Dock", "--preset", preset}).status == 0;
    }
    bool ClientHas(const std::string& preset) const {
        return Run({"document", kPrinter, "--preset", preset}).status == 0;
    }
    void SaveOnServer(const std::string& preset) const {
        EXPECT_EQ(Serve({"document", "Dock", "--save-preset", preset}).status, 0);
    }
    void SaveOnClient(const std::string& preset) const {
        EXPECT_EQ(Run({"document", kPrinter, "--save-preset", preset}).status, 0);
    }
    const std::string server_;
};

} // namespace

TEST_F(TwoHosts, SeeEachOthersChanges) {
    Connect();
    EXPECT_EQ(RunJson({"list"})[0]["server"], "\\\\SRV1");
    SaveOnServer("Of the server");
    EXPECT_TRUE(ClientHas("Of the server")) << "at the next open";
    SaveOnClient("Of the client");
    EXPECT_TRUE(ServerHas("Of the client")) << "with the save";
    EXPECT_TRUE(ServerHas("Of the server"));

    // Everything from a settings file goes the same way.
    const std::string file = root() + "/all.kds";
    ASSERT_EQ(Run({"settings", "export", kPrinter, file}).status, 0);
    ASSERT_EQ(Serve({"registry", "delete", kPresets}).status, 0);
    EXPECT_FALSE(ClientHas("Of the server"));
    ASSERT_EQ(Run({"settings", "import", kPrinter, file, "--only", "presets"}).status, 0);
    EXPECT_TRUE(ServerHas("Of the server"));
}

TEST_F(TwoHosts, KeepWhatTheyHaveWhenTheServerIsGone) {
    Connect();
    SaveOnServer("Of the server");
    ASSERT_TRUE(ClientHas("Of the server"));
    fs::rename(server_, server_ + " is off");
    const char* says = "the server does not answer";
    ExpectRefused({{{"document", kPrinter, "--save-preset", "Lost"}, 1, says},
                   {{"settings", "export", kPrinter, root() + "/x.kds"}, 1, says},
                   {{"action", kPrinter, "12"}, 1, says},
                   {{"connect", "\\\\SRV1\\Other"}, 1, says}});
    fs::rename(server_ + " is off", server_);
    EXPECT_TRUE(ClientHas("Of the server"));
    EXPECT_FALSE(ServerHas("Lost"));
    EXPECT_EQ(Run({"disconnect", kPrinter}).status, 0);
    EXPECT_TRUE(RunJson({"list"}).empty());
}

TEST_F(TwoHosts, AreConnectedByNamesThatMeanSomething) {
    Connect();
    Connect();
    ExpectRefused({
        {{"connect", "Dock"}, 2, "no printer of another machine"},
        {{"connect", "\\\\SRV1\\"}, 2, "no printer of another machine"},
        {{"connect", "\\\\..\\Dock", "--server", server_}, 1, "no name of a machine"},
        {{"connect", "\\\\SRV2\\Dock"}, 1, "the server does not answer"},
        {{"connect", kPrinter, "--server", "/nowhere"}, 1, "/nowhere"},
        {{"connect", "\\\\SRV1\\None", "--server", server_}, 1, "no such printer"},
        {{"connect", kPrinter, "--server", root()}, 1, "another machine already"},
        {{"disconnect", "\\\\SRV2\\Dock"}, 1, "no such printer"},
    });
}
