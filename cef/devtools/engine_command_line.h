#pragma once

#include <string>
#include <vector>

#include "include/cef_app.h"

namespace cefedition {

/// The browser executable as a Unix path: that of the environment variable `KZCEF_ENGINE_PATH` (a
/// Unix or a Windows path), or the first that is installed where distributions put it. Empty with
/// `error` when there is none.
std::string FindBrowserProgram(std::string& error);

/// The browser's arguments, the program not included. They come from a CEF command line: the host's
/// own switches (unless `command_line_args_disabled`), those that the settings stand for, and what
/// `CefApp::OnBeforeCommandLineProcessing` makes of both. The edition's own switches come last and
/// win. Arguments that are no switches are not passed on, nor are switches that would make the
/// browser do something else than wait for the edition.
std::vector<std::string> BuildBrowserArguments(const CefSettings& settings,
                                               CefRefPtr<CefApp> app,
                                               const std::string& unix_profile_path);

/// The languages that pages are told: `accept_language_list`, else those of `locale`, else
/// "en-US,en".
std::string AcceptLanguagesOf(const CefSettings& settings);

/// The user agent that pages see, from the browser's own: without its word "Headless", and with
/// `product` in place of the browser's name and version if that is given. One that the settings
/// give whole stays as it is.
std::string ComposeUserAgent(const std::string& browsers_own,
                             bool given_whole,
                             const std::string& product);

}  // namespace cefedition
