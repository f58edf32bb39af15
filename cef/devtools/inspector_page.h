#pragma once

namespace cefedition {

/// The binding by which the inspector's page sends protocol messages.
inline constexpr char kInspectorBinding[] = "cefeditionInspector";

/// The inspector's page: the inspected page's nodes, and a console. HTML, ASCII only.
///
/// The page sends each protocol command as a JSON text to the binding. Answers and events come as
/// objects to its function `receive`; besides the protocol's there is "Edition.attached" (the
/// session exists, from now on or anew) and "Edition.inspect" (parameters x and y, CSS pixels).
extern const char kInspectorPage[];

}  // namespace cefedition
