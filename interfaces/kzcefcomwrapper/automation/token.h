// The token that the application object's members accept.
#pragma once

#include "KZCEFComWrapper.h"
#include "com/com_object.h"

namespace kzcef {

// Has no members and no state. Nothing in the library makes or reads one.
class CKZCEFComToken : public CoClass<IKZCEFComToken> {};

}  // namespace kzcef
