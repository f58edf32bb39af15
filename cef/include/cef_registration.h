#pragma once

#include "include/cef_base.h"

// Keeps an observer registered for as long as it lives.
class CefRegistration : public virtual CefBaseRefCounted {};
