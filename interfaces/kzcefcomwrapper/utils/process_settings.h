// The values that apply to the whole process once the runtime has been started: what the host's
// settings said, kept for the rooms that need it later.
//
// The host's thread writes them at start-up, and the host kind also whenever the host names itself;
// any thread may read them. Every accessor returns a copy.
#pragma once

#include <functional>
#include <map>
#include <string>

namespace kzcef {

// Switch names to switch values, both as the host gave them, in ordinal order of the names.
using CommandLineArgs = std::map<std::wstring, std::wstring, std::less<>>;

CommandLineArgs CommandLineArgTable();
// Replaces the table as a whole.
void SetCommandLineArgTable(CommandLineArgs args);

// The kind of host in the letter case in which it was given; empty until the host named itself.
std::wstring HostKind();
void SetHostKind(std::wstring kind);
// Returns whether `text` is one of the names of a kind of host, letter case ignored.
bool IsKnownHostKind(const std::wstring& text);

// The engine's cache directory: what the host asked for, then the directory really used.
std::wstring CachePath();
void SetCachePath(std::wstring path);

// The library with the texts in the host's language; empty when the host named none.
std::wstring LanguageResourcePath();
void SetLanguageResourcePath(std::wstring path);

// The accept-language list of the host's settings; empty when it gave none.
std::wstring AcceptLanguageList();
void SetAcceptLanguageList(std::wstring list);

// The language that the host's web applications chose: the value of the last language cookie that
// was read or written, empty as long as there was none. Whoever reads or writes cookies sets it, on
// any thread.
std::wstring CookieLanguage();
void SetCookieLanguage(std::wstring language);

// Returns whether the host's accept-language list applies as it is, so that navigations leave the
// engine's preference alone. False until start-up sets it.
bool IsAcceptLanguageOverridden();
void SetAcceptLanguageOverridden(bool overridden);

// The local hub's port as start-up wrote it; -1 as long as nobody did. Readers ask GetHubPort.
int ConfiguredHubPort();
void SetConfiguredHubPort(int port);

}  // namespace kzcef
