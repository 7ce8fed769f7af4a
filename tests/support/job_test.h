// The fixture of tests that print: the printer of ModelTest with the rendering module of the build.
#pragma once

#include <string>
#include <vector>

#include "support/model_test.h"
#include "ui/prtui.h"

struct PrintedJob {
    std::string name, bytes;
    bool operator==(const PrintedJob&) const = default;
};
void PrintTo(const PrintedJob& job, std::ostream* out);

class JobTest : public ModelTest {
protected:
    // ModelTest's Install, with the rendering module of this build.
    void Install(const ModelTables& tables);
    // Gives the driver its English texts.
    void InstallLanguage() const;

    // A UI object on the printer, as prtui::init makes it.
    std::unique_ptr<prtui> OpenUI(const DEVMODEW* in = nullptr, uint32_t mode = 0) const;

    HANDLE printer() const { return printer_; }

    // To be called by a test that prints without looking at the jobs.
    static void NeedRenderingModule();

    // Takes the waiting jobs out of the spooler.
    std::vector<PrintedJob> TakeJobs() const { return TakeJobs(printer_); }
    std::vector<PrintedJob> TakeJobs(HANDLE printer) const;

    ~JobTest() override;

private:
    HANDLE printer_ = nullptr;
};
