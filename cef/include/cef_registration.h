// include/cef_registration.h of CEF 123, as far as it is used
// here: what keeps an observer registered.
#pragma once

#include "include/cef_base.h"

// Keeps an observer registered for as long as it lives.
class CefRegistration : public virtual CefBaseRefCounted {};
