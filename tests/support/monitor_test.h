// The fixture of tests in which the status monitor answers about the printer's port.
#pragma once

#include <win32host/clock_control.h>
#include <win32host/control.h>

#include "support/job_test.h"

// Each request has the time in its name, which stands still here: so the answers can be stored.
class MonitorTest : public JobTest {
protected:
    MonitorTest() { win32host::SetTickCount(77); }
    ~MonitorTest() override {
        win32host::UseRealTickCount();
        win32host::ResetControl();
    }

    // What is answered when printer data of that name are asked for next.
    void AnswerTo(const std::string& name, std::string bytes) {
        const OString wide = name.c_str();
        ASSERT_EQ(SetPrinterDataW(printer(), const_cast<WCHAR*>(wide.wstring()), REG_BINARY,
                                  reinterpret_cast<BYTE*>(bytes.data()),
                                  static_cast<DWORD>(bytes.size())),
                  0u);
    }
    void AnswerPort(const std::string& fact, const std::string& bytes) {
        AnswerTo("<xpml><port action='get' name='" + fact + "'/><tick count='77'/></xpml>", bytes);
    }
};
