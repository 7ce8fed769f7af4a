// Several programs printing to one printer at the same time.

#include "companions/emulator_test.h"

#include <filesystem>

namespace {

class PrintingThreads : public EmulatorTest {
protected:
    static constexpr int kClients = 5, kJobs = 3;
    static constexpr size_t kBytes = 50000;

    // A graphic of its own size, in which every byte is the client's.
    static std::string Label(int client, int job) {
        const std::string name = std::to_string(client) + std::to_string(job);
        const size_t size = kBytes + static_cast<size_t>(10 * client + job);
        return "~DGE:C" + name + "," + std::to_string(size) + ",10," +
               std::string(2 * size, static_cast<char>('0' + client)) + "^XA^XGE:C" + name +
               "^FS^XZ";
    }

    // Every client prints its labels one after the other, and each client in processes of its own.
    void PrintAll(const std::string& printer) const {
        std::vector<std::thread> clients;
        for (int client = 0; client < kClients; ++client)
            clients.emplace_back([this, client, printer] {
                for (int job = 0; job < kJobs; ++job) {
                    const std::string file = "label" + std::to_string(client) + std::to_string(job);
                    WriteFile(file, Label(client, job));
                    const ProgramResult result = Run({"action", printer, "22", OnDriveC(file)});
                    EXPECT_EQ(result.status, 0) << result.errors;
                }
            });
        for (std::thread& client : clients) client.join();
    }
};

TEST_F(PrintingThreads, LoseAndMixNothingOnTheWayToThePrinter) {
    Install("Dock3", Port());
    PrintAll("Dock3");
    const std::string notes = StopServer();
    size_t expected = 0;
    for (int client = 0; client < kClients; ++client)
        for (int job = 0; job < kJobs; ++job) {
            // The label is printed in the connection that stored its graphic.
            const std::string stored =
                "stored E:C" + std::to_string(client) + std::to_string(job) + ".GRF, " +
                std::to_string(kBytes + static_cast<size_t>(10 * client + job)) +
                " bytes;printed 1 label;";
            EXPECT_NE(notes.find(stored), std::string::npos) << stored;
            expected += stored.size();
        }
    EXPECT_EQ(notes.size(), expected) << notes;
    EXPECT_TRUE(std::filesystem::is_empty(root() + "/spool"));
}

} // namespace
