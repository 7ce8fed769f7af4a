// Installs the driver of a model on the host.
#pragma once

#include "machine/installation.h"

// Copies the driver's files into the driver folder and adds the driver. An existing one with the
// same names and the same files stays as it is, so that its printers are not told of a new driver
// whenever another printer is installed. Throws Fault.
void InstallDriver(const Installation& product, const Model& model, const DriverFiles& files);
