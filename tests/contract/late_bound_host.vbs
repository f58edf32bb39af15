' A script as a late-bound host: it knows the classes by their identifiers only. Prints one line a
' check and ends with the number of those that failed.
Option Explicit
Dim failures
failures = 0

Sub Check(what, actual, expected)
  If VarType(actual) = VarType(expected) And CStr(actual) = CStr(expected) Then
    WScript.Echo "ok " & what
  Else
    WScript.Echo "FAILED " & what & ": " & TypeName(actual) & " " & CStr(actual)
    failures = failures + 1
  End If
End Sub

Dim application, settings, browser
Set application = GetObject("new:{3DB0ECFC-7271-457C-9C7B-5B6D48A73A2B}")
Check "host kind", IsObject(application.GetToken("KzxMeadow", Empty)), True
Set settings = application.GetKzCEFComSettings(Nothing)
Check "default port", settings.HubPort, CLng(-1)
settings.HubPort = 8080
Check "port", settings.HubPort, CLng(8080)
settings.UserAgentProduct = "MyHost/1.0"
Check "product", settings.UserAgentProduct, "Chrome/123.0.6312.124MyHost/1.0"
settings.PersistSessionCookies = True
Check "flag", settings.PersistSessionCookies, True
settings.AddCefCommandLineArg "proxy-server", "A"
Set browser = application.GetKzCEFBrowser(Nothing, 0)
browser.URL = "http://a/"
Check "url before the start", browser.URL, ""
browser.PopupUserBrowser = True
Check "popup flag", browser.PopupUserBrowser, True
browser.ResizeBrowser 10.5, 20
application.HostClosing False
Check "processing", application.IsProcessingNotifications, False
application.ExitCef Nothing
WScript.Quit failures
