// A host object on its way to the process that runs a page's script.
#pragma once

#include <windows.h>

#include <objidl.h>

#include <cstdint>
#include <optional>
#include <vector>

#include "include/cef_process_message.h"

namespace kzcef {

// Returns `object` marshalled for another process on this machine, to be unmarshalled there exactly
// once. Returns nothing for a null object or one that cannot be marshalled. Called in the object's
// apartment.
std::optional<std::vector<uint8_t>> MarshalScriptObject(IUnknown* object);

// Returns what was marshalled into `stream`, from its start. Returns nothing when it cannot be
// read; nobody can unmarshal it then, so the references that it holds are released.
std::optional<std::vector<uint8_t>> TakeMarshalled(IStream* stream);

// Returns all of `stream` from its current position, read in blocks of 512 bytes up to the first
// that is not full. Returns nothing when a read fails.
std::optional<std::vector<uint8_t>> ReadInBlocks(IStream* stream);

// Makes the message to a page's process: argument 0 is the script name, argument 1 a binary value
// that holds the base64 text of `marshalled`.
CefRefPtr<CefProcessMessage> ScriptObjectMessage(const CefString& message_name,
                                                 const CefString& script_name,
                                                 const std::vector<uint8_t>& marshalled);

}  // namespace kzcef
