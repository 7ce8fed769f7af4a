// Code pages and user locale.
#pragma once

#include <windef.h>
