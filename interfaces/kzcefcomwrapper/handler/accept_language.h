// The engine's accept-language preference and the host's list.
#pragma once

namespace kzcef {

// Sets the preference "intl.accept_languages" of the global request context, and so of every
// browser of the process, to the list of the host's settings, even an empty one. Leaves it alone
// for a known kind of host that gave a list. A failure is ignored. UI thread.
void AlignAcceptLanguages();

}  // namespace kzcef
