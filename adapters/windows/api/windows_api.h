// The system's functions, without the macros that would rename the component's own.
#pragma once

#include <windows.h>

#undef CreateDialog
#undef DeleteFile
#undef DrawText
#undef GetMessage
#undef GetObject
#undef ReplaceFile
#undef StartDoc
