// The driver of a model, brought into the host.
#pragma once

#include "machine/installation.h"

// Copies the driver's files into the driver folder and adds the driver. One that is there with the
// same names and the same files stays as it is, so that printers which have it are not told of a
// new one each time that another printer is installed. Throws Fault.
void InstallDriver(const Installation& product, const Model& model, const DriverFiles& files);
