// The way over the C API in both directions: what every class of the binding includes.
#pragma once

#include "client_object.h"
#include "library_object.h"
