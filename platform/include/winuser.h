// Strings, resources and message boxes.
#pragma once

#include <windef.h>
