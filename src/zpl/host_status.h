// A ZPL II printer's answers to the host's questions about itself, read into named properties.
#pragma once

#include <cstdint>

#include "core/ostring.h"
#include "model/property_set.h"

// The answers are the raw bytes, `size` of them; null stands for no answer. An answer that has too
// few fields sets nothing. The printer's texts are 8-bit, in the system's code page.

// ~HI: "Model", "Firmware-Version", "Dots-Per-Millimeter", "Host-Memory" and "Options".
void ReadHostIdentification(const char* answer, uint32_t size, OPropertySet& properties);

// ~HS, three texts that are read one at a time. Some properties are set in one state only.
//
//   1  "Baud", "HandShake" (DTR, Xon/Xoff), "StopBits", "DataBits", "Parity" (None, EVEN, ODD),
//      "Paper-Out" (Yes, No), "Pause" (Active, Inactive), "Label-Length" in dots,
//      "Number-Of-Formats", "Receive-Buffer-Full" (Full), "Communication-Mode", "Partial-Format",
//      "Corrupt-RAM", "PrintHead-Temperature" (Normal, Under Temperature, Over Temperature)
//   2  "Media-Type" (Continuous, Die Cut), "Sensor-Profile", "Communication-Diagnostics" (On, Off),
//      "Transfer-Mode" (Thermal Transfer, Direct Thermal), "Head-Up" (Open, Closed), "Ribbon-Out"
//      (Yes, No), "Thermal-Mode", "Print-Mode" (Rewind, Peel Off, Tear Off, Cut, Applicator),
//      "Width-Mode", "Label-Waiting", "Labels-Remaining", "Images"
//   3  "Password", "Static-Ram-Installed" (Installed, Not Installed)
void ReadHostStatus(const char* answer, uint32_t size, OPropertySet& properties);

// ~HM, in kilobytes: "PhysicalMemory-Size", "PhysicalMemory-MaxAvaliable" and
// "PhysicalMemory-Avaliable", which despite its name is the memory in use.
void ReadHostMemory(const char* answer, uint32_t size, OPropertySet& properties);

// ~HB: the readings of a printer with a battery. Each is empty if it was not answered.
struct PowerReadings {
    OString battery_voltage;
    OString head_voltage;
    OString battery_temperature;
};
PowerReadings ReadPowerStatus(const char* answer, uint32_t size);
