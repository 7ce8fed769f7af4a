#include "commands/commands.h"
#include "fault.h"

void DemoCommand(const Words& /*words*/) {
    throw Fault("the demo needs machines of its own; on Windows, labelhost works on the machine "
                "that it runs on");
}
