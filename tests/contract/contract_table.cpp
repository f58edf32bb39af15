// The rows of the contract: interfaces with their members, coclasses and enumerations.

#include "contract_table.h"

#include <objbase.h>

#include <algorithm>
#include <stdexcept>
#include <string>
#include <string_view>

namespace contract {
namespace {

constexpr INVOKEKIND kMethod = INVOKE_FUNC;
constexpr INVOKEKIND kGet = INVOKE_PROPERTYGET;
constexpr INVOKEKIND kPut = INVOKE_PROPERTYPUT;

constexpr Member kApplication[] = {
    {1, kMethod, "GetToken",
     "[in] BSTR ProductKey; [in] VARIANT Keys; [out, retval] IKZCEFComToken** TokenObject", ""},
    {2, kMethod, "GetKzCEFBrowser",
     "[in] IKZCEFComToken* TokenObject; [in] long Cookie1; "
     "[out, retval] IKZCEFComBrowser** Retval",
     "Get CEF Browser"},
    {3, kMethod, "RegisterKzCEFBrowserCallback",
     "[in] IKZCEFComToken* TokenObject; [in] long addinId; [in] IKZCEFComBrowser* Browser; "
     "[in] IKZCEFComBrowserHandler* Handler",
     "Register CEF Callback"},
    {4, kMethod, "UnRegisterKzCEFBrowserCallback",
     "[in] IKZCEFComToken* TokenObject; [in] long addinId; [in] IKZCEFComBrowser* Browser; "
     "[in] IKZCEFComBrowserHandler* Handler",
     "UnRegister CEF Callback"},
    {5, kMethod, "GetCookieManager",
     "[in] IKZCEFComToken* TokenObject; [in] long Cookie1; "
     "[out, retval] IKZCEFComCookieManager** CookieMgr",
     "Get CEF Cookie Manager"},
    {6, kMethod, "InitCef", "[in] IKZCEFComToken* TokenObject; [in] IKZCEFComSettings* settings",
     "Initialize CEF"},
    {7, kMethod, "ExitCef", "[in] IKZCEFComToken* TokenObject", "Shut Down CEF"},
    {8, kMethod, "GetKzCEFComSettings",
     "[in] IKZCEFComToken* TokenObject; [out, retval] IKZCEFComSettings** CEFSettings",
     "Get CEF Settings"},
    {9, kMethod, "RegisterKzCEFBrowserCallback2",
     "[in] IUnknown* TokenObject; [in] long addinId; [in] IUnknown* Browser; "
     "[in] IUnknown* Handler",
     "Register CEF Callback Generic"},
    {10, kMethod, "UnRegisterKzCEFBrowserCallback2",
     "[in] IUnknown* TokenObject; [in] long addinId; [in] IUnknown* Browser; "
     "[in] IUnknown* Handler",
     "UnRegister CEF Callback Generic"},
};

constexpr Member kApplication2[] = {
    {11, kMethod, "HostClosing", "[in] VARIANT_BOOL isClosing", "Host is closing"},
    {12, kMethod, "IsProcessingNotifications", "[out, retval] VARIANT_BOOL* isProcessing",
     "CEF is procesing notifications"},
};

constexpr Member kBrowser[] = {
    {1, kMethod, "GetWindowHandle", "[out, retval] __int64* WindowHandle", "Get window handle"},
    {2, kGet, "URL", "[out, retval] BSTR* URLString", "Get URL"},
    {2, kPut, "URL", "[in] BSTR", "Set URL"},
    {3, kMethod, "ExecuteJS", "[in] BSTR JString", "Execute JS"},
    {4, kMethod, "AddJSHandler", "[in] BSTR ObjectName; [in] IDispatch* FuncComObject",
     "Add JS Handler"},
    {5, kMethod, "RemoveJSHandler", "[in] BSTR ObjectName; [in] IDispatch* FuncComObject",
     "Remove JS Handler"},
    {6, kMethod, "StartBrowser", "[in] __int64 WindowHandle", "Start Browser"},
    {7, kMethod, "ResizeBrowser", "[in] double Width; [in] double Height", "Resize Browser"},
    {8, kGet, "PopupUserBrowser", "[out, retval] VARIANT_BOOL* Popup", "Get PopupUserBrowser Flag"},
    {8, kPut, "PopupUserBrowser", "[in] VARIANT_BOOL", "Set PopupUserBrowser Flag"},
    {9, kMethod, "Refresh", "[in] VARIANT_BOOL IgnoreCache", "Refresh"},
    {10, kMethod, "ResizeBrowserRect",
     "[in] double X; [in] double Y; [in] double Width; [in] double Height",
     "Resize Browser with X,Y offset"},
};

constexpr Member kBrowserHandler[] = {
    {1, kMethod, "AddressChangeNotify", "[in] BSTR NewAddress", "Address Change notification"},
    {2, kMethod, "BeforePopupNotify",
     "[in] BSTR URL; [in, out] VARIANT_BOOL* Popup; [out, retval] VARIANT_BOOL* Continue",
     "Before Popup notification"},
    {3, kMethod, "LoadEndNotify", "[in] long httpStatus", "Load End notification"},
    {4, kMethod, "LoadStartNotify", "[in] long TransitionType", "Load Start notification"},
    {5, kMethod, "LoadingStateChangeNotify",
     "[in] VARIANT_BOOL IsLoading; [in] VARIANT_BOOL CanGoBack; [in] VARIANT_BOOL CanGoForward",
     "Loading State Change notification"},
    {6, kMethod, "BrowserCreatedNotify", "", "Browser created notification"},
    {7, kMethod, "BeforeDownloadNotify",
     "[in, out] BSTR* DownloadPathName; [in, out] VARIANT_BOOL* CanBeDownloaded; "
     "[in, out] VARIANT_BOOL* ShowSaveAsDialog",
     "Before Download notification"},
    {8, kMethod, "DownloadCompletedNotify", "[in] BSTR DownloadPathName",
     "Download complete notification"},
    {9, kMethod, "BeforeBrowseNotify",
     "[in] BSTR RequestURL; [in] VARIANT_BOOL UserGesture; [in] VARIANT_BOOL IsRedirect; "
     "[in, out] VARIANT_BOOL* cancelNavigation",
     "Before Browse notification"},
    {10, kMethod, "ResourceRedirectNotify",
     "[in] BSTR OldURLStr; [in, out] BSTR* NewURLStr; [in] long StatusCode",
     "Resource Redirect notification"},
    {11, kMethod, "ResourceResponseNotify",
     "[in, out] BSTR* URLStr; [in, out] VARIANT_BOOL* ModifyRequest; [in] long ResourceType",
     "Resource Response notification"},
    {12, kMethod, "BeforeResourceLoadNotify",
     "[in, out] BSTR* URLStr; [in, out] BSTR* requestTypeName", "OnBeforeResourceLoadNotify"},
    {13, kMethod, "GetAuthCredentialsNotify",
     "[in, out] BSTR* origin_url; [in, out] VARIANT_BOOL* isProxy; [in, out] BSTR* host; "
     "[in] long port; [in, out] BSTR* realm; [in, out] BSTR* scheme; "
     "[in, out] VARIANT_BOOL* shouldContinue; [in, out] BSTR* username; "
     "[in, out] BSTR* password",
     "GetAuthCredentialsNotify"},
    {14, kMethod, "ResourceLoadCompleteNotify", "[in] BSTR RequestURL; [in] BSTR jsonStr",
     "Resource Load complete notification"},
    {15, kMethod, "EscapeKeyNotify", "", "Escape key notify"},
    {16, kMethod, "SetOwnerWndHandle", "[in] __int64 BHandle", "Get Owner Browser handle"},
};

constexpr Member kBrowserHandler2[] = {
    {17, kMethod, "DownloadUpdatedNotify",
     "[in] BSTR DownloadPathName; [in] long DownloadStatus; [in] long PercentComplete",
     "Download complete notification"},
    {18, kMethod, "BeforeContextMenuNotify", "[in, out] VARIANT_BOOL* ClearModel",
     "Before Context Menu notification"},
};

constexpr Member kBrowserHandler3[] = {
    {19, kMethod, "KeyStrokeNotify",
     "[in] long windowsKeyCode; [in, out] VARIANT_BOOL* isEventHandled", "Key stoke notify"},
};

constexpr Member kCookieManager[] = {
    {1, kMethod, "GetUrlCookies", "[in] BSTR URLString; [out, retval] VARIANT* Cookies",
     "Get Cookies"},
    {2, kMethod, "SetUrlCookies",
     "[in] BSTR URLString; [in] VARIANT Cookies; [out, retval] VARIANT_BOOL* Retval",
     "Set Cookies"},
    {3, kMethod, "GetUrlCookiesSync", "[in] BSTR URLString; [out, retval] VARIANT* Cookies",
     "Get URL Cookies"},
    {4, kMethod, "GetAllCookiesSync", "[out, retval] VARIANT* Cookies", "Get All Cookies"},
};

constexpr Member kSettings[] = {
    {1, kGet, "AcceptLanguageList", "[out, retval] BSTR* LangList", "Get AcceptLanguageListL"},
    {1, kPut, "AcceptLanguageList", "[in] BSTR", "Set AcceptLanguageList"},
    {2, kGet, "BrowserSubprocessPath", "[out, retval] BSTR* SubProcPath",
     "Get BrowserSubprocessPath"},
    {2, kPut, "BrowserSubprocessPath", "[in] BSTR", "Set BrowserSubprocessPath"},
    {3, kGet, "CachePath", "[out, retval] BSTR* CPath", "Get CachePath"},
    {3, kPut, "CachePath", "[in] BSTR", "Set CachePath"},
    {4, kMethod, "AddCefCommandLineArg", "[in] BSTR ComLineArgName; [in] BSTR ComLineArgValue",
     "Get CefCommandLineArg"},
    {5, kGet, "CommandLineArgsDisabled", "[out, retval] VARIANT_BOOL* Flag",
     "Get CommandLineArgsDisabled"},
    {5, kPut, "CommandLineArgsDisabled", "[in] VARIANT_BOOL", "Set CommandLineArgsDisabled"},
    {6, kGet, "JavascriptFlags", "[out, retval] BSTR* JSFlags", "Get JavascriptFlags"},
    {6, kPut, "JavascriptFlags", "[in] BSTR", "Set JavascriptFlags"},
    {7, kGet, "Locale", "[out, retval] BSTR* Loc", "Get Locale"},
    {7, kPut, "Locale", "[in] BSTR", "Set Locale"},
    {8, kGet, "LocalesDirPath", "[out, retval] BSTR* LocPath", "Get LocalesDirPath"},
    {8, kPut, "LocalesDirPath", "[in] BSTR", "Set LocalesDirPath"},
    {9, kGet, "LogFile", "[out, retval] BSTR* Path", "Get LogFile"},
    {9, kPut, "LogFile", "[in] BSTR", "Set LogFile"},
    {10, kGet, "LogSeverity", "[out, retval] long* LogSev", "Get LogSeverity"},
    {10, kPut, "LogSeverity", "[in] long", "Set LogSeverity"},
    {11, kGet, "MultiThreadedMessageLoop", "[out, retval] VARIANT_BOOL* Flag",
     "Get MultiThreadedMessageLoop"},
    {11, kPut, "MultiThreadedMessageLoop", "[in] VARIANT_BOOL", "Set MultiThreadedMessageLoop"},
    {12, kGet, "PackLoadingDisabled", "[out, retval] VARIANT_BOOL* Flag",
     "Get PackLoadingDisabled"},
    {12, kPut, "PackLoadingDisabled", "[in] VARIANT_BOOL", "Set PackLoadingDisabled"},
    {13, kGet, "PersistSessionCookies", "[out, retval] VARIANT_BOOL* Persist",
     "Get PersistSessionCookies"},
    {13, kPut, "PersistSessionCookies", "[in] VARIANT_BOOL", "Set PersistSessionCookies"},
    {14, kGet, "RemoteDebuggingPort", "[out, retval] long* RemotePort", "Get RemoteDebuggingPort"},
    {14, kPut, "RemoteDebuggingPort", "[in] long", "Set RemoteDebuggingPort"},
    {15, kGet, "ResourcesDirPath", "[out, retval] BSTR* DirPath", "Get ResourcesDirPath"},
    {15, kPut, "ResourcesDirPath", "[in] BSTR", "Set ResourcesDirPath"},
    {16, kGet, "UncaughtExceptionStackSize", "[out, retval] long* Size",
     "Get UncaughtExceptionStackSize"},
    {16, kPut, "UncaughtExceptionStackSize", "[in] long", "Set UncaughtExceptionStackSize"},
    {17, kGet, "UserAgent", "[out, retval] BSTR* UAgent", "Get UserAgent"},
    {17, kPut, "UserAgent", "[in] BSTR", "Set UserAgent"},
    {18, kGet, "UserAgentProduct", "[out, retval] BSTR* VerStr", "Get UserAgentProduct"},
    {18, kPut, "UserAgentProduct", "[in] BSTR", "Set UserAgentProduct"},
    {19, kGet, "UserDataPath", "[out, retval] BSTR* DataPath", "Get UserDataPath"},
    {19, kPut, "UserDataPath", "[in] BSTR", "Set UserDataPath"},
    {20, kGet, "WindowlessRenderingEnabled", "[out, retval] VARIANT_BOOL* Enabled",
     "Get WindowlessRenderingEnabled"},
    {20, kPut, "WindowlessRenderingEnabled", "[in] VARIANT_BOOL", "Set WindowlessRenderingEnabled"},
    {21, kGet, "ApplicationType", "[out, retval] BSTR* AppType", "Get ApplicationType"},
    {21, kPut, "ApplicationType", "[in] BSTR", "Set ApplicationType"},
    {22, kGet, "LangResourceDllPath", "[out, retval] BSTR* DllPath", "Get LangResourceDllPath"},
    {22, kPut, "LangResourceDllPath", "[in] BSTR", "Set LangResourceDllPath"},
    {23, kGet, "HubPort", "[out, retval] long* port", "Get Hub Port"},
    {23, kPut, "HubPort", "[in] long", "Set Hub Port"},
};

constexpr Interface kInterfaces[] = {
    {"IKZCEFComApplication", "{0A84E6C1-7469-46D7-AC45-A300D435E741}", "IDispatch", false,
     kApplication},
    {"IKZCEFComApplication2", "{64CECC1E-C422-4421-911A-BEC403CF8C31}", "IKZCEFComApplication",
     false, kApplication2},
    {"IKZCEFComToken", "{DB8538B4-92CC-47B0-8126-1D90904DE8B1}", "IDispatch", false, {}},
    {"IKZCEFComBrowser", "{6A350A27-2739-48AA-88DA-87A87AB92B87}", "IDispatch", false, kBrowser},
    {"IKZCEFComBrowserHandler", "{B2745C85-897B-4B63-A216-4243BE8B9BC8}", "IDispatch", false,
     kBrowserHandler},
    {"IKZCEFComBrowserHandler2", "{0F8A7815-12E8-48E8-B14C-741B2EB272E2}",
     "IKZCEFComBrowserHandler", false, kBrowserHandler2},
    {"IKZCEFComBrowserHandler3", "{56CE960E-F059-416E-84F3-2377293C2D02}",
     "IKZCEFComBrowserHandler2", false, kBrowserHandler3},
    {"IKZCEFComCookieManager", "{7F7A2C88-D434-49FB-82BB-8AF00E421960}", "IDispatch", false,
     kCookieManager},
    {"IKZCEFComSettings", "{B6CE0572-9782-4D32-90A0-A2AA5C182B40}", "IDispatch", true, kSettings},
};

constexpr Coclass kCoclasses[] = {
    {"KZCEFComApplication", "{3DB0ECFC-7271-457C-9C7B-5B6D48A73A2B}", "IKZCEFComApplication", true,
     "IKZCEFComApplication IKZCEFComApplication2"},
    {"KZCEFComToken", "{5AFAA550-8FD7-44DD-BC66-20AD4315AACA}", "IKZCEFComToken", true,
     "IKZCEFComToken"},
    {"KZCEFComBrowser", "{2AE47A70-F337-4F47-9876-8401A5986A3C}", "IKZCEFComBrowser", true,
     "IKZCEFComBrowser"},
    {"KZCEFComBrowserHandler", "{4790F28D-E6C7-440F-B7ED-53F0692A5390}", "IKZCEFComBrowserHandler",
     true, "IKZCEFComBrowserHandler IKZCEFComBrowserHandler2 IKZCEFComBrowserHandler3"},
    {"KZCEFComCookieManager", "{671E854D-51DF-44A1-A3CD-3741165C5A28}", "IKZCEFComCookieManager",
     true, "IKZCEFComCookieManager"},
    {"KZCEFComSettings", "{A2AC9822-988B-4F96-83C8-91434CBAF892}", "IKZCEFComSettings", true,
     "IKZCEFComSettings"},
    {"KZCEFComBrowserHandler2", "{E5147A04-2D5E-42C2-BCFF-D37C0D7014B4}",
     "IKZCEFComBrowserHandler2", false, ""},
    {"KZCEFComBrowserHandler3", "{1E93AE3A-E3AB-4DA1-AE12-2DBE74E71584}",
     "IKZCEFComBrowserHandler3", false, ""},
    {"KZCEFComApplication2", "{6CE2ECCD-7016-4C6A-B1CE-47243C13F022}", "IKZCEFComApplication2",
     false, ""},
};

// VERBOSE and DEBUG share a value on purpose, as they do in CEF.
constexpr Constant kLogSeverity[] = {
    {"KZCEFLogSeverity_LOGSEVERITY_DEFAULT", 0}, {"KZCEFLogSeverity_LOGSEVERITY_VERBOSE", 1},
    {"KZCEFLogSeverity_LOGSEVERITY_DEBUG", 1},   {"KZCEFLogSeverity_LOGSEVERITY_INFO", 2},
    {"KZCEFLogSeverity_LOGSEVERITY_WARNING", 3}, {"KZCEFLogSeverity_LOGSEVERITY_ERROR", 4},
    {"KZCEFLogSeverity_LOGSEVERITY_FATAL", 5},   {"KZCEFLogSeverity_LOGSEVERITY_DISABLE", 99},
};

constexpr Constant kDownloadStatus[] = {
    {"KZCEFDownloadStatus_INPROGRESS", 0},
    {"KZCEFDownloadStatus_COMPLETE", 1},
    {"KZCEFDownloadStatus_CANCELLED", 2},
};

constexpr Enumeration kEnumerations[] = {
    {"KZCEFLogSeverity_e", "{86164B6A-CC27-495F-ABA6-CB78BF122CB5}", kLogSeverity},
    {"KZCEFDownloadStatus_e", "{73FEAD2D-D824-403C-9BAA-8F43A999A9F0}", kDownloadStatus},
};

template <typename Row>
const Row& Find(std::span<const Row> rows, std::string_view name) {
  const auto found = std::ranges::find_if(rows, [&](const Row& row) { return row.name == name; });
  if (found == rows.end()) {
    throw std::out_of_range("the contract has no " + std::string(name));
  }
  return *found;
}

}  // namespace

std::span<const Interface> Interfaces() {
  return kInterfaces;
}

std::span<const Coclass> Coclasses() {
  return kCoclasses;
}

std::span<const Enumeration> Enumerations() {
  return kEnumerations;
}

const Interface& InterfaceNamed(const char* name) {
  return Find(Interfaces(), name);
}

const Coclass& CoclassNamed(const char* name) {
  return Find(Coclasses(), name);
}

GUID Guid(const char* text) {
  const std::string narrow = text;
  GUID guid{};
  if (FAILED(CLSIDFromString(std::wstring(narrow.begin(), narrow.end()).c_str(), &guid))) {
    throw std::invalid_argument(narrow + " is no identifier");
  }
  return guid;
}

}  // namespace contract
