#include "locale/facts.h"

#include <win32host/clock_control.h>
#include <win32host/fault_control.h>
#include <win32host/spooler_control.h>

namespace win32host {

void ResetControl() {
    ResetVersion();
    ResetCodePages();
    UseProcessLocale();
    UseProcessUser();
    ResetMessageBoxes();
    UseRealTickCount();
    RefuseSpoolerQuestions(nullptr);
    AlterSpoolerAnswers(nullptr);
    ForgetFaults();
}

} // namespace win32host
