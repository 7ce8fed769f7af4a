// The work of threads and processes at once in one root, and the faults that none of them may find.
//
// All work on the shared printers "Dock 0" to "Dock 2", and each has a printer of its own. A
// worker's round imports a set of stocks, which all printers share. The stocks have the round in
// their width, so a list that nobody has saved is recognised: it has a part of a set, or parts of
// two.
#pragma once

#include <map>
#include <string>
#include <vector>

#include "support/model_test.h"

class TortureWorker {
public:
    static constexpr int kSharedPrinters = 3;

    // The model of all printers, for which the worker's files are made.
    static ModelTables Tables();

    static std::string SharedPrinter(int number) { return "Dock " + std::to_string(number); }
    static std::string OwnPrinter(int worker) { return "Own " + std::to_string(worker); }
    // The shared printer that a worker uses in a round.
    static int PrinterOf(int worker, int round) { return (worker + round) % kSharedPrinters; }
    static std::string DocumentOf(int worker, int round);

    // The round of each worker's set in the stored stocks. Their faults are added to `faults`.
    static std::map<int, int> StoredSets(const std::string& printer,
                                         std::vector<std::string>& faults);

    // The host is that of this process.
    explicit TortureWorker(int number)
        : number_(number) {}

    // Asks for capabilities, imports, exports, prints and runs actions. The job of the last round
    // stays in the spooler.
    void Work(int rounds);

    // Imports options that change what the model can do.
    void ChangeOptions(const std::string& printer);

    // The faults that the worker has found.
    const std::vector<std::string>& faults() const { return faults_; }

private:
    void AskCapabilities(const std::string& printer);
    void ImportStocks(const std::string& printer, int round);
    void Import(const std::string& printer, const std::string& text, int contents);
    void Print(const std::string& printer, int round, bool keep);
    void RunAction();
    void Fault(const std::string& what);

    const int number_;
    std::string action_bytes_; // of the first action's job
    std::vector<std::string> faults_;
};
