// The Win32 surface that the module uses, under the SDK's header and symbol names.
#pragma once

#include <windef.h>
#include <winerror.h>
#include <winnt.h>
#include <winbase.h>
#include <processthreadsapi.h>
#include <winnls.h>
#include <winreg.h>
#include <wingdi.h>
#include <winuser.h>
#include <winver.h>
