// The one definition of the type library's identifiers (CLSID_..., IID_..., LIBID_...), which its
// generated header only declares.

#include <windows.h>

#include <oaidl.h>
#include <ocidl.h>

#ifdef _MSC_VER
#include "KZCEFComWrapper_i.c"
#else
// From here on DEFINE_GUID defines; what the system's own headers declare is defined elsewhere.
#include <initguid.h>

#include "KZCEFComWrapper.h"
#endif
